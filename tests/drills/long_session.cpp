// A long day at the window: analyses, pictures, windows opened and closed, edits taken back, files.
//   veskora_long_session FOLDER ROUNDS SAMPLES SEED    the model is FOLDER/model.vsk
// Prints so many lines, each when every window was closed equally often. What the process holds:
// rounds, bytes in use of the heap without the log, KiB resident, files, threads, widgets, objects,
// lines of the log since the last line, bytes of these. What was done: analyses with results,
// rounds that are to open a window, rounds that did.

#include "Application.h"
#include "DrivenWindow.h"
#include "JournalKeeper.h"
#include "Metablites.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPixmapCache>
#include <QTextEdit>
#include <QTimer>

#include <iostream>
#include <malloc.h>
#include <utility>

namespace veskora {
namespace {

class LongDesktop : public UnattendedDesktop
{
public:
    using UnattendedDesktop::UnattendedDesktop;

    Answer message(const std::string &, Icon, Buttons buttons) override
    {
        return buttons == Buttons::ok            ? Answer::ok
               : buttons == Buttons::yesNoCancel ? Answer::no
                                                 : Answer::yes;
    }
};

/// One of them in each round: the first ones open a window or a dialog.
const QStringList turns =
    QString("mnuOMADESitem mnuKOMBOIitem mnuSTOIXEIAitem mnuSIGKENTROMENAitem mnuOMOIOMORFAitem "
            "mnuMETAKINISIKOMBONitem mnuSIGXONEFSIitem mnuDIAIRESIitem mnuKYKLIKOitem "
            "mnuRITHMISEISitem Apotelesmata mnuELEGXOS_ANALYSIS_item mnuTIMES_STOIXEIOU_item "
            "mnuCALCULATION_item mnuVIMATA_ANALYSIS_item mnuCONTENTSitem mnuPERIitem "
            "mnuSIMP_KOMBitem mnuSIMP_STOIXitem mnuEIKONA_SVG_PDF_item mnuEIKONA_arxeio_bmp_item "
            "mnuEIKONA_Clipboard_item mnuAPOTHIKEFSIitem mnuNEOitem")
        .split(' ');
constexpr int opening = 17;

/// In each round, between the analysis and that.
constexpr const char *pictures[] = {"M", "Q", "N", "Deform", "ZoomBestFit", "Foreas"};

class Session : public QObject
{
public:
    Session(DrivenWindow &window, int rounds, int samples)
        : window_(window), rounds_(rounds), samples_(samples)
    {
        connect(&closer_, &QTimer::timeout, this, &Session::closeDialog);
        connect(&worker_, &QTimer::timeout, this, &Session::round);
        closer_.start(0);
        worker_.start(0);
    }

private:
    void round()
    {
        if (isBusy_)
            return; // a dialog has a loop of its own
        isBusy_ = true;
        closeWindows();
        opened_ += std::exchange(hasOpened_, false);
        const int cycle = static_cast<int>(turns.size());
        const int perSample = std::max(1, rounds_ / samples_ / cycle) * cycle;
        if (done_ > 0 && done_ % perSample == 0)
            tell();
        if (done_ >= perSample * samples_)
            return QApplication::quit();
        if (Arithmos_Stoixeion == 0)
            window_.trigger("mnuANAGNOSIitem");
        edit();
        analyse();
        for (const char *action : pictures)
            window_.trigger(action);
        const int turn = done_++ % cycle;
        due_ += turn < opening;
        window_.trigger(turns[turn]);
        isBusy_ = false;
    }

    void analyse()
    {
        hasResults = false; // those of the round before
        window_.trigger("Epilisi");
        analysed_ += hasResults;
    }

    /// An element drawn, taken back, and drawn again; then none is left of it.
    void edit()
    {
        window_.drawElement();
        for (const char *action : {"mnuUNDOitem", "mnuREDOitem", "mnuUNDOitem"})
            window_.trigger(action);
    }

    void closeDialog()
    {
        if (QWidget *dialog = QApplication::activeModalWidget())
            close(*dialog);
    }

    void closeWindows()
    {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->windowType() != Qt::ToolTip
                && qobject_cast<frmMain *>(window) == nullptr)
                close(*window);
    }

    void close(QWidget &window)
    {
        hasOpened_ = true;
        window.close();
    }

    static std::size_t heapInUse()
    {
        const struct mallinfo2 heap = mallinfo2();
        return heap.uordblks + heap.hblkhd;
    }

    /// The log has no limit: what it has taken since it was told last is told by itself, and freed.
    void tell()
    {
        window_.find<JournalKeeper>()->waitForWriting();
        QPixmapCache::clear(); // its limit takes long to reach
        auto &log = *window_.find<QTextEdit>("RichTextBox1");
        const int lines = log.document()->blockCount();
        const std::size_t withLog = heapInUse();
        log.clear();
        const std::size_t heap = heapInUse();
        const auto entries = [](const char *folder) {
            return QDir(folder)
                .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                .size();
        };
        QFile status("/proc/self/status");
        (void)status.open(QIODevice::ReadOnly);
        const QByteArray text = status.readAll();
        const QByteArray resident = text.mid(text.indexOf("VmRSS:") + 6).trimmed();
        qsizetype objects = 0;
        for (const QWidget *window : QApplication::topLevelWidgets())
            objects += window->findChildren<QObject *>().size();
        std::cout << done_ << ' ' << heap << ' ' << resident.left(resident.indexOf(' ')).constData()
                  << ' ' << entries("/proc/self/fd") << ' ' << entries("/proc/self/task") << ' '
                  << QApplication::allWidgets().size() << ' ' << objects << ' ' << lines << ' '
                  << withLog - heap << ' ' << analysed_ << ' ' << due_ << ' ' << opened_
                  << std::endl;
    }

    DrivenWindow &window_;
    const int rounds_, samples_;
    int done_ = 0;
    int analysed_ = 0;       ///< analyses that gave results
    int due_ = 0;            ///< rounds that are to open something
    int opened_ = 0;         ///< rounds that did
    bool hasOpened_ = false; ///< in this round
    bool isBusy_ = false;
    QTimer closer_, worker_;
};

} // namespace
} // namespace veskora

int main(int argc, char **argv)
{
    const veskora::Application application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 5)
        return 2;
    const QString model = arguments[1] + "/model.vsk";
    veskora::resetStore();
    veskora::LongDesktop desktop(model, arguments[4].toUInt());
    veskora::setDesktop(&desktop);
    veskora::DrivenWindow window(desktop, model);
    const veskora::Session session(window, arguments[2].toInt(), arguments[3].toInt());
    return QApplication::exec();
}
