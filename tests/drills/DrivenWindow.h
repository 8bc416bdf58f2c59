#pragma once
/// @file
/// The real window on the offscreen platform, driven by a program in place of a user: what the
/// drills of `scripts/drills/` kill, starve of disk and keep busy.

#include "CanvasWidget.h"
#include "frmMain.h"

#include <QMouseEvent>
#include <QPointF>
#include <QString>

#include <random>

namespace veskora {

/// Answers what the window asks: leaves without saving, takes one file name for all, and does with
/// a journal what comes to mind.
class UnattendedDesktop : public QtDesktop
{
public:
    UnattendedDesktop(const QString &file, unsigned seed) : file_(file.toStdString()), chance_(seed)
    {}

    Answer message(const std::string &text, Icon icon, Buttons buttons) override;
    std::size_t choose(const std::string &text, const std::vector<std::string> &answers,
                       std::size_t escape) override;
    std::string askText(const std::string &) override { return {}; }
    std::optional<std::string> askOpenFile(const FileQuestion &) override { return file_; }
    std::optional<std::string> askSaveFile(const FileQuestion &) override { return file_; }
    /// That of the program: help, packs and examples are there.
    std::string programFolder() override { return QtDesktop::programFolder() + "/../bin"; }

    /// A whole number from 0 to @p limit - 1.
    unsigned below(std::size_t limit) { return static_cast<unsigned>(chance_() % limit); }

private:
    std::string file_;
    std::mt19937 chance_;
};

/// The main window, in the folders of the user that the environment names.
class DrivenWindow
{
public:
    /// One that has started, without a welcome form.
    /// @param desktop  that of the process by now
    DrivenWindow(UnattendedDesktop &desktop, const QString &model);
    /// One that is yet to be started.
    DrivenWindow(UnattendedDesktop &desktop, bool withWelcome);
    void start(const QString &model) { window_.start(model); }

    /// Triggers the action of that object name; a name that is none ends the process.
    void trigger(const QString &action);
    frmMain &window() { return window_; }
    /// A part of it, by its class and object name.
    template <typename Part>
    Part *find(const char *name = nullptr)
    {
        return window_.findChild<Part *>(QString(name));
    }
    CanvasWidget &canvas() { return *find<CanvasWidget>("Picture1"); }
    /// A place on the canvas, by chance.
    QPointF anywhere();
    void mouse(QEvent::Type type, const QPointF &at);
    /// An element from one place to another, by chance.
    void drawElement();
    /// Seconds of the journal's time, enough for a change to be on the disk.
    void keepJournal();
    /// The first group, without which drawing would ask for one.
    static void provideGroup();
    /// Of the model's text, in hexadecimal digits.
    static QByteArray sumOfModel();

private:
    UnattendedDesktop &desktop_;
    frmMain window_;
};

} // namespace veskora
