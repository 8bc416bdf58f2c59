#include "JournalKeeper.h"

#include "Desktop.h"
#include "FileCommands.h"
#include "Functions.h"
#include "Metablites.h"
#include "ModelText.h"

#include <QEvent>
#include <QWidget>

#include <filesystem>
#include <utility>

namespace veskora {

JournalKeeper::JournalKeeper(QWidget *window, FileCommands &files)
    : QObject(window), window_(window), files_(files)
{
    using namespace std::chrono_literals;
    timer_.setObjectName("JournalTimer");
    connect(&timer_, &QTimer::timeout, this, &JournalKeeper::look);
    connect(&files, &FileCommands::modelSettled, this, [this] {
        journal_.settle();
        marked_.clear();
        markUnsaved();
    });
    window->installEventFilter(this);
    timer_.start(1s);
}

/// Who comes back may have changed the file elsewhere.
bool JournalKeeper::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) {
        marked_.clear();
        files_.tellForeignChange();
    }
    return QObject::eventFilter(watched, event);
}

/// The save question reads the file, which may lie far away: it is asked only where the model is
/// what it was when it and the file were the same.
void JournalKeeper::markUnsaved()
{
    const std::string text = modelText();
    std::string present = Onoma_Arxeiou + '\n' + text;
    if (present == marked_)
        return;
    marked_ = std::move(present);
    const bool differs = !Onoma_Arxeiou.empty() && text != journal_.settledText();
    window_->setWindowModified(differs || !FileCommands::isSaved());
}

void JournalKeeper::look()
{
    std::string refusal;
    try {
        markUnsaved();
        journal_.look();
    } catch (const std::exception &error) {
        refusal = error.what();
    }
    if (refusal.empty() && journal_.isWriting())
        return; // it may be refused again, which is told once
    if (!refusal.empty() && refusal != refusal_)
        Grammi_Log(Metafrasi(1847, "The journal cannot be written:") + " " + refusal,
                   logColour::red);
    refusal_ = std::move(refusal);
}

void JournalKeeper::offerLost()
{
    enum { openIt, keepIt, deleteIt };
    bool isOpened = false; // the others wait: it is to be seen and saved first
    for (LostJournal &lost : lostJournals()) {
        const std::string model = Metafrasi(1840, "The program ended before this model was saved:")
                                  + " "
                                  + (lost.model.path.empty() ? "Untitled.vsk" : lost.model.path);
        const std::string journal =
            Metafrasi(1841, "The journal has it as it was a moment before:") + " " + lost.file.path;
        Grammi_Log(model, logColour::red);
        Grammi_Log(journal, logColour::red);
        if (isOpened)
            continue;
        switch (desktop().choose(
            model + "\r\n\r\n" + journal,
            {Metafrasi(1842, "Open it"), Metafrasi(1843, "Keep it"), Metafrasi(1844, "Delete it")},
            keepIt)) {
        case openIt:
            if (isOpened = files_.openJournal(lost); isOpened)
                journal_.takeOver(lost);
            break;
        case deleteIt:
            lost.file.remove();
            if (std::error_code ignored; !std::filesystem::exists(lost.file.path, ignored))
                Grammi_Log(Metafrasi(1848, "The journal was deleted:") + " " + lost.file.path,
                           logColour::black);
            break;
        default:
            break; // it is offered again at the next start
        }
    }
}

} // namespace veskora

#include "moc_JournalKeeper.cpp"
