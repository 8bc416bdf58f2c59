// A session that only a kill ends: it draws, turns supports and saves at random moments, and notes
// each state of the model with its time.
//   veskora_kill_session NOTES MODEL SEED    the session, in the user's folders of the environment
//   veskora_kill_session --read FILE...      status 0 when each file is a model

#include "Application.h"
#include "BatchDesktop.h"
#include "CanvasWidget.h"
#include "Files.h"
#include "frmMain.h"
#include "Metablites.h"
#include "ModelText.h"
#include "Recovery.h"

#include <QAction>
#include <QApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QMouseEvent>
#include <QTimer>

#include <chrono>
#include <iostream>
#include <random>

namespace veskora {
namespace {

int readFiles(const QStringList &files)
{
    BatchDesktop desktop(std::cerr);
    setDesktop(&desktop);
    for (const QString &file : files) {
        std::string path = file.toStdString();
        if (!Anagnosi_Arxeiou(path))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

/// Answers what the window asks: leaves without saving, and does with a journal what comes to mind.
class Unattended : public QtDesktop
{
public:
    Unattended(const QString &model, unsigned seed) : model_(model.toStdString()), random(seed) {}

    Answer message(const std::string &, Icon, Buttons buttons) override
    {
        return buttons == Buttons::ok ? Answer::ok : Answer::no;
    }
    std::size_t choose(const std::string &, const std::vector<std::string> &answers,
                       std::size_t) override
    {
        const std::size_t any = below(2 * answers.size());
        return any < answers.size() ? any : 0;
    }
    std::optional<std::string> askSaveFile(const FileQuestion &) override { return model_; }

    unsigned below(std::size_t limit) { return static_cast<unsigned>(random() % limit); }

private:
    std::string model_;
    std::mt19937 random;
};

class Session : public QObject
{
public:
    Session(frmMain &window, Unattended &desktop, const QString &notes)
        : window_(window),
          canvas_(*window.findChild<CanvasWidget *>("Picture1")),
          desktop_(desktop),
          notes_(notes)
    {
        if (!notes_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            throw std::runtime_error("the notes cannot be written");
        note();
        act();
    }

private:
    void act()
    {
        if (Arithmos_Stoixeion > 150) {
            trigger("mnuNEOitem");
            note();
        }
        if (Arithmos_Omadon == 0) { // drawing would ask for one
            Arithmos_Omadon = 1;
            Omades(1, group::E) = Omades(1, group::A) = Omades(1, group::I) = 1;
        }
        switch (desktop_.below(60)) {
        case 0:
            trigger("mnuAPOTHIKEFSIitem");
            break;
        case 1:
        case 2:
        case 3:
            mouse(QEvent::MouseButtonPress, anywhere());
            mouse(QEvent::MouseButtonRelease, place_);
            mouse(QEvent::MouseButtonDblClick, place_);
            mouse(QEvent::MouseButtonRelease, place_);
            break;
        default:
            mouse(QEvent::MouseButtonPress, anywhere());
            mouse(QEvent::MouseMove, anywhere());
            mouse(QEvent::MouseButtonRelease, place_);
        }
        note();
        // Now at work without a second's rest, now resting.
        const unsigned rest = desktop_.below(20) == 0 ? 3000 : 500;
        QTimer::singleShot(static_cast<int>(desktop_.below(rest)), this, &Session::act);
    }

    void trigger(const char *action) { window_.findChild<QAction *>(action)->trigger(); }

    QPointF anywhere()
    {
        return place_ = QPointF(desktop_.below(static_cast<std::size_t>(canvas_.width())),
                                desktop_.below(static_cast<std::size_t>(canvas_.height())));
    }

    void mouse(QEvent::Type type, const QPointF &at)
    {
        const bool isRelease = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, canvas_.mapToGlobal(at), Qt::LeftButton,
                          isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas_, &event);
    }

    /// Time in seconds, sum of the model's text, whether it has anything to lose.
    void note()
    {
        const QByteArray sum =
            QCryptographicHash::hash(modelText(), QCryptographicHash::Md5).toHex();
        if (sum == noted_)
            return;
        noted_ = sum;
        using Seconds = std::chrono::duration<double>;
        const Seconds now = std::chrono::steady_clock::now().time_since_epoch();
        notes_.write(QByteArray::number(now.count(), 'f', 4) + ' ' + sum + ' '
                     + (isModelEmpty() ? "0" : "1") + '\n');
    }

    frmMain &window_;
    CanvasWidget &canvas_;
    Unattended &desktop_;
    QFile notes_;
    QByteArray noted_;
    QPointF place_;
};

int run(const QStringList &arguments)
{
    const QString &model = arguments[2];
    Unattended desktop(model, arguments[3].toUInt());
    setDesktop(&desktop);
    desktop.storeSetting("Startup", "ShowForm", "0");
    frmMain window;
    desktop.attach(&window);
    window.start(QFile::exists(model) ? model : QString());
    const Session session(window, desktop, arguments[1]);
    return QApplication::exec();
}

} // namespace
} // namespace veskora

int main(int argc, char **argv)
{
    const veskora::Application application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    veskora::resetStore();
    if (arguments.value(1) == "--read")
        return veskora::readFiles(arguments.mid(2));
    return arguments.size() == 4 ? veskora::run(arguments) : 2;
}
