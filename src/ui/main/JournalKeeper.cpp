#include "JournalKeeper.h"

#include "Desktop.h"
#include "FileCommands.h"
#include "Functions.h"

#include <utility>

namespace veskora {

JournalKeeper::JournalKeeper(QObject *window, FileCommands &files) : QObject(window), files_(files)
{
    using namespace std::chrono_literals;
    timer_.setObjectName("JournalTimer");
    connect(&timer_, &QTimer::timeout, this, &JournalKeeper::look);
    connect(&files, &FileCommands::modelSettled, this, [this] { journal_.settle(); });
    timer_.start(1s);
}

void JournalKeeper::look()
{
    std::string refusal;
    try {
        journal_.look();
    } catch (const std::exception &error) {
        refusal = error.what();
    }
    if (!refusal.empty() && refusal != refusal_)
        Grammi_Log(Metafrasi(1847, "The journal cannot be written:") + " " + refusal,
                   logColour::red);
    refusal_ = std::move(refusal);
}

void JournalKeeper::offerLost()
{
    enum { openIt, keepIt, deleteIt };
    for (LostJournal &lost : lostJournals()) {
        const std::string model = Metafrasi(1840, "The program ended before this model was saved:")
                                  + " " + (lost.model.empty() ? "Untitled.vsk" : lost.model);
        const std::string journal =
            Metafrasi(1841, "The journal has it as it was a moment before:") + " " + lost.file.path;
        Grammi_Log(model, logColour::red);
        Grammi_Log(journal, logColour::red);
        switch (desktop().choose(
            model + "\r\n\r\n" + journal,
            {Metafrasi(1842, "Open it"), Metafrasi(1843, "Keep it"), Metafrasi(1844, "Delete it")},
            keepIt)) {
        case openIt:
            if (files_.openJournal(lost))
                journal_.takeOver(lost);
            break;
        case deleteIt:
            Grammi_Log(Metafrasi(1848, "The journal was deleted:") + " " + lost.file.path,
                       logColour::black);
            lost.file.remove();
            break;
        default:
            break; // it is offered again at the next start
        }
    }
}

} // namespace veskora
