#pragma once
/// @file
/// The main window on the offscreen platform: found by name, pressed as a user does, its boxes and
/// file dialogs answered by a script.

#include "frmMain.h"
#include "Metablites.h"
#include "ScriptedDesktop.h"
#include "Zoom.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTextEdit>
#include <QTimer>
#include <QWindow>

#include <cstdlib>
#include <functional>

namespace veskora {

inline const std::string title = "Kalvorn Veskora ML";

/// The window's desktop with scripted boxes and dialogs.
class WindowDesktop : public QtDesktop
{
public:
    explicit WindowDesktop(ScriptedDesktop &script) : script_(script) {}
    Answer message(const std::string &text, Icon icon, Buttons buttons) override
    {
        return asksItself ? QtDesktop::message(text, icon, buttons)
                          : script_.message(text, icon, buttons);
    }
    std::size_t choose(const std::string &text, const std::vector<std::string> &answers,
                       std::size_t escape) override
    {
        return asksItself ? QtDesktop::choose(text, answers, escape)
                          : script_.choose(text, answers, escape);
    }
    bool asksItself = false; ///< boxes come on the screen
    std::string askText(const std::string &question) override { return script_.askText(question); }
    std::optional<std::string> askOpenFile(const FileQuestion &question) override
    {
        return script_.askOpenFile(question);
    }
    std::optional<std::string> askSaveFile(const FileQuestion &question) override
    {
        return script_.askSaveFile(question);
    }
    std::string programFolder() override { return script_.programFolder(); }

private:
    ScriptedDesktop &script_;
};

class MainWindow : public StoreTest
{
protected:
    MainWindow()
    {
        ::setenv("XDG_CONFIG_HOME", path("config").c_str(), 1);
        ::setenv("XDG_DATA_HOME", path("data").c_str(), 1);
        ::setenv("PATH", "", 1); // no helper of the desktop's writes there after the test
        openDesktop();
        qtDesktop->storeSetting("Startup", "ShowForm", "0"); // it would wait for an answer
    }
    ~MainWindow() override
    {
        window.reset();
        setDesktop(nullptr);
    }

    /// A desktop that reads the user's settings anew, and a window on it.
    void openDesktop()
    {
        window.reset();
        qtDesktop = std::make_unique<WindowDesktop>(desktop);
        setDesktop(qtDesktop.get());
        reopen();
    }
    /// A window of a new run of the program.
    void reopen()
    {
        window.reset();
        resetStore();
        window = std::make_unique<frmMain>();
        find<QTimer>("JournalTimer")->stop(); // a test makes its ticks itself
        qtDesktop->attach(window.get());
    }
    void start(const std::string &commandLine = {})
    {
        qtDesktop->storeSetting("Startup", "WindowState", "0");
        window->start(QString::fromStdString(commandLine));
        QCoreApplication::processEvents();
    }
    void makeProgram(const std::string &name, const std::string &content) const
    {
        const std::filesystem::path file = path(name);
        std::filesystem::create_directories(file.parent_path());
        write(file, content);
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    }
    /// Of a window of a new run, with the small model open.
    void startWithSmall()
    {
        write(path("m.vsk"), small);
        reopen();
        start(path("m.vsk"));
    }
    void resize(int width, int height)
    {
        window->resize(width, height);
        QCoreApplication::processEvents();
    }

    template <typename Object>
    Object *find(const char *name)
    {
        auto *object = window->findChild<Object *>(name);
        if (object == nullptr)
            throw std::runtime_error(std::string("no control named ") + name);
        return object;
    }
    void trigger(const char *action) { find<QAction>(action)->trigger(); }
    void click(const char *button) { find<QAbstractButton>(button)->click(); }
    bool shown(const char *name) { return find<QWidget>(name)->isVisible(); }
    /// What the timer does at its time.
    void tick(const char *timer) { QMetaObject::invokeMethod(find<QTimer>(timer), "timeout"); }
    /// Talks to the window that comes up next, from inside its event loop.
    /// @return whether @p act brought one
    static bool answered(const std::function<void()> &act,
                         const std::function<void(QWidget &)> &talk)
    {
        QTimer timer;
        bool isTalkedTo = false;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            if (QWidget *modal = QApplication::activeModalWidget()) {
                isTalkedTo = true;
                talk(*modal);
            }
        });
        timer.start(0);
        act();
        return isTalkedTo;
    }
    void expectSaveQuestion(Answer answer, const std::string &file = "Untitled.vsk",
                            Icon icon = Icon::none)
    {
        desktop.expectMessage("Do you want to save the changes you made to file: '" + file + "'?",
                              icon, answer);
    }
    /// As the desktop shows it.
    std::string caption() const { return window->windowHandle()->title().toStdString(); }
    std::string panel(const char *name) { return find<QLabel>(name)->text().toStdString(); }
    QStringList log() { return find<QTextEdit>("RichTextBox1")->toPlainText().split('\n'); }
    /// Of the last letters.
    QTextCharFormat endOfLog()
    {
        QTextCursor end(find<QTextEdit>("RichTextBox1")->document());
        end.movePosition(QTextCursor::End);
        return end.charFormat();
    }
    /// From another window, which may have changed files.
    void comeBack()
    {
        QEvent back(QEvent::WindowActivate);
        QCoreApplication::sendEvent(window.get(), &back);
    }
    CanvasWidget &canvas() { return *find<CanvasWidget>("Picture1"); }

    void mouse(QEvent::Type type, Qt::MouseButton button, double x, double y)
    {
        const QPointF place(x * 96 / 2.54, y * 96 / 2.54);
        QMouseEvent event(type, place, canvas().mapToGlobal(place), button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &event);
    }
    void drag(double x1, double y1, double x2, double y2)
    {
        mouse(QEvent::MouseButtonPress, Qt::LeftButton, x1, y1);
        mouse(QEvent::MouseMove, Qt::LeftButton, x2, y2);
        mouse(QEvent::MouseButtonRelease, Qt::LeftButton, x2, y2);
    }

    std::filesystem::path recovery() const { return path("data/" + title + "/Recovery"); }
    /// What stands in the recovery files and journals.
    std::vector<std::string> keptModels() const
    {
        std::vector<std::string> models;
        std::error_code none;
        for (const auto &entry : std::filesystem::directory_iterator(recovery(), none))
            if (entry.path().extension() == ".vsk")
                models.push_back(contentOf(entry.path().string()));
        return models;
    }

    double canvasX(double x) const { return Kosmos_X(x); }
    double canvasY(double y) const { return Kosmos_Y(y); }
    /// These in model coordinates, through the events that a desktop sends.
    void press(double x, double y, Qt::MouseButton button = Qt::LeftButton)
    {
        moveTo(x, y);
        mouse(QEvent::MouseButtonPress, button, canvasX(x), canvasY(y));
    }
    void moveTo(double x, double y, Qt::MouseButton held = Qt::NoButton)
    {
        mouse(QEvent::MouseMove, held, canvasX(x), canvasY(y));
    }
    void release(double x, double y, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse(QEvent::MouseButtonRelease, button, canvasX(x), canvasY(y));
    }
    void dragModel(double x1, double y1, double x2, double y2)
    {
        press(x1, y1);
        moveTo((x1 + x2) / 2, (y1 + y2) / 2, Qt::LeftButton);
        moveTo(x2, y2, Qt::LeftButton);
        release(x2, y2);
    }
    void click(double x, double y)
    {
        press(x, y);
        release(x, y);
    }
    void doubleClick(double x, double y)
    {
        click(x, y);
        mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, canvasX(x), canvasY(y));
        release(x, y);
    }

    void chooseInMenu(double x, double y, const char *entry)
    {
        press(x, y, Qt::RightButton);
        release(x, y, Qt::RightButton);
        find<QMenu>("mnuAorato")->close();
        trigger(entry);
    }

    const std::string small = contentOf(TEST_DATA "/small.vsk");
    std::unique_ptr<WindowDesktop> qtDesktop;
    std::unique_ptr<frmMain> window;
};

} // namespace veskora
