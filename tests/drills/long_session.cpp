// A long day at the window: analyses, pictures, windows opened and closed, edits taken back, files.
//   veskora_long_session FOLDER ROUNDS SAMPLES SEED    the model is FOLDER/model.vsk
// Prints so many lines of what the process holds, each when every window was closed equally often:
// rounds, bytes in use of the heap, KiB resident, files, threads, widgets, objects, lines of the
// log.

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
#include <iterator>
#include <malloc.h>

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
    std::string programFolder() override { return UnattendedDesktop::programFolder() + "/../bin"; }
};

/// Windows and dialogs, and what is written into a file: one of them in each round.
constexpr const char *opened[] = {
    "mnuOMADESitem",
    "mnuKOMBOIitem",
    "mnuSTOIXEIAitem",
    "mnuSIGKENTROMENAitem",
    "mnuOMOIOMORFAitem",
    "mnuMETAKINISIKOMBONitem",
    "mnuSIGXONEFSIitem",
    "mnuDIAIRESIitem",
    "mnuKYKLIKOitem",
    "mnuSIMP_KOMBitem",
    "mnuSIMP_STOIXitem",
    "mnuRITHMISEISitem",
    "Apotelesmata",
    "mnuELEGXOS_ANALYSIS_item",
    "mnuTIMES_STOIXEIOU_item",
    "mnuCALCULATION_item",
    "mnuVIMATA_ANALYSIS_item",
    "mnuCONTENTSitem",
    "mnuPERIitem",
    "mnuEIKONA_SVG_PDF_item",
    "mnuEIKONA_arxeio_bmp_item",
    "mnuEIKONA_Clipboard_item",
    "mnuAPOTHIKEFSIitem",
    "mnuNEOitem",
};

/// In each round, before that.
constexpr const char *pictures[] = {"Epilisi", "M", "Q", "N", "Deform", "ZoomBestFit", "Foreas"};

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
        if (done_ > 0)
            closeWindows();
        const int perSample = std::max(1, rounds_ / samples_ / cycle) * cycle;
        if (done_ > 0 && done_ % perSample == 0)
            tell();
        if (done_ >= perSample * samples_)
            return QApplication::quit();
        if (Arithmos_Stoixeion == 0)
            window_.trigger("mnuANAGNOSIitem");
        edit();
        for (const char *action : pictures)
            window_.trigger(action);
        window_.trigger(opened[done_++ % cycle]);
        isBusy_ = false;
    }

    /// An element drawn, taken back, and drawn again; then none is left of it.
    void edit()
    {
        const QPointF end = window_.anywhere();
        window_.mouse(QEvent::MouseButtonPress, window_.anywhere());
        window_.mouse(QEvent::MouseMove, end);
        window_.mouse(QEvent::MouseButtonRelease, end);
        for (const char *action : {"mnuUNDOitem", "mnuREDOitem", "mnuUNDOitem"})
            window_.trigger(action);
    }

    static void closeDialog()
    {
        if (QWidget *dialog = QApplication::activeModalWidget())
            dialog->close();
    }

    static void closeWindows()
    {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->windowType() != Qt::ToolTip
                && qobject_cast<frmMain *>(window) == nullptr)
                window->close();
    }

    void tell()
    {
        window_.find<JournalKeeper>()->waitForWriting();
        // The log has no limit, and the toolkit's cache of pixmaps one that takes long to reach.
        window_.find<QTextEdit>("RichTextBox1")->clear();
        QPixmapCache::clear();
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
        const struct mallinfo2 heap = mallinfo2();
        std::cout << done_ << ' ' << heap.uordblks + heap.hblkhd << ' '
                  << resident.left(resident.indexOf(' ')).constData() << ' '
                  << entries("/proc/self/fd") << ' ' << entries("/proc/self/task") << ' '
                  << QApplication::allWidgets().size() << ' ' << objects << ' '
                  << window_.find<QTextEdit>("RichTextBox1")->document()->blockCount() << std::endl;
    }

    static constexpr int cycle = std::size(opened);

    DrivenWindow &window_;
    const int rounds_, samples_;
    int done_ = 0;
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
