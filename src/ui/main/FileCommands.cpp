#include "FileCommands.h"

#include "Desktop.h"
#include "Files.h"
#include "FileSystem.h"
#include "Functions.h"
#include "Metablites.h"
#include "Recovery.h"
#include "Registry.h"

#include <QWidget>

namespace veskora {

bool FileCommands::mayLeave(bool closing)
{
    if (!Onoma_Arxeiou.empty() ? Idio_Me_To_Arxeio() : isModelEmpty())
        return true;
    const std::string name = Onoma_Arxeiou.empty() ? "Untitled.vsk" : Onoma_Arxeiou;
    const Answer answer = desktop().message(
        Metafrasi(95, "Do you want to save the changes you made to file:") + " '" + name + "'?",
        closing ? Icon::exclamation : Icon::none, Buttons::yesNoCancel);
    if (answer == Answer::yes)
        return saveBeforeLeaving(closing);
    return answer != Answer::cancel;
}

bool FileCommands::saveBeforeLeaving(bool closing)
{
    std::string path = Onoma_Arxeiou;
    if (Apothikefsi_Arxeiou(path, false))
        return true;
    // The command goes on all the same, and the user meant to keep the model.
    const std::string recovery = writeRecoveryFile();
    if (recovery.empty()) {
        showRefusal(Metafrasi(117, "The model could not be kept."));
        return false; // leaving it would be to lose it
    }
    const std::string text =
        Metafrasi(116, "The model is kept in the recovery file:") + " " + recovery;
    Grammi_Log(text, logColour::red);
    if (closing || log_->isHidden())
        desktop().message(text, Icon::exclamation);
    return true;
}

void FileCommands::start(const std::string &commandLine)
{
    resetView();
    Fortosi_Rithmiseon();
    showModelCaption({});
    if (!commandLine.empty()) {
        currentFolder = folderOf(commandLine);
        std::string path = commandLine;
        Anagnosi_Arxeiou(path);
    }
    resetZoomHistory();
}

void FileCommands::Button_Neo_arxeio()
{
    if (!mayLeave(false))
        return;
    startEmptyModel();
    resetView();
    Fortosi_Rithmiseon();
    emit modelReplaced();
    Grammi_Log(Metafrasi(55, "New file"), logColour::black, true);
    resetZoomHistory();
}

void FileCommands::Button_Anagnosi_Arxeiou()
{
    if (!mayLeave(false))
        return;
    std::string path;
    Anagnosi_Arxeiou(path);
    Allagi_Montelou = true;
    emit modelReplaced();
}

void FileCommands::Button_Apothikefsi_Arxeiou()
{
    Apothikefsi_Arxeiou(Onoma_Arxeiou, false);
}

void FileCommands::saveAs()
{
    std::string path;
    Apothikefsi_Arxeiou(path, false);
}

} // namespace veskora
