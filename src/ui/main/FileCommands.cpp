#include "FileCommands.h"

#include "Desktop.h"
#include "Examples.h"
#include "Files.h"
#include "FileSystem.h"
#include "Functions.h"
#include "Journal.h"
#include "Metablites.h"
#include "RecentFiles.h"
#include "Recovery.h"
#include "Registry.h"
#include "Text.h"

#include <QWidget>

#include <filesystem>

namespace veskora {

bool FileCommands::isSaved()
{
    return Onoma_Arxeiou.empty() ? isModelEmpty() : Idio_Me_To_Arxeio();
}

bool FileCommands::mayLeave(bool closing)
{
    if (isSaved())
        return true;
    const std::string name = Onoma_Arxeiou.empty() ? "Untitled.vsk" : Onoma_Arxeiou;
    const Answer answer = desktop().message(
        Metafrasi(95, "Do you want to save the changes you made to file:") + " '" + name + "'?",
        closing ? Icon::exclamation : Icon::none, Buttons::yesNoCancel);
    if (answer == Answer::yes)
        return saveBeforeLeaving(closing);
    return answer != Answer::cancel;
}

namespace {

/// Whether the model may go into its own file @p path, which may have what another program put
/// there. Where it is empty a name is asked for.
bool mayReplaceFile(const std::string &path, ReplacementLock &lock)
{
    if (path.empty() || (lock.isHeld() && !sumOfForeignChange()))
        return true;
    lock.release(); // the answer takes its time
    return desktop().message(Metafrasi(2140, "The file was changed by another program since it was "
                                             "opened. Replace it?"),
                             Icon::exclamation, Buttons::noYes)
           == Answer::yes;
}

/// The file that Save writes, empty where it asks for one.
std::string fileOfSave()
{
    if (!isExample(Onoma_Arxeiou))
        return Onoma_Arxeiou;
    Grammi_Log(Metafrasi(2127, "The examples stay as they are; save this one under another name."),
               logColour::black);
    return {};
}

} // namespace

bool FileCommands::saveBeforeLeaving(bool closing)
{
    std::string path = fileOfSave();
    ReplacementLock lock(path);
    if (!mayReplaceFile(path, lock))
        path.clear(); // another name is asked for
    if (Apothikefsi_Arxeiou(path, false)) {
        settle(path);
        return true;
    }
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
        if (std::string path = commandLine; read(path))
            rememberFile(path);
    }
    resetZoomHistory();
    emit modelSettled();
}

void FileCommands::Button_Neo_arxeio()
{
    if (!mayLeave(false))
        return;
    startEmptyModel();
    resetView();
    const float step = kannab;
    Fortosi_Rithmiseon();
    if (step == chosenGridStep)
        kannab = step;
    emit modelReplaced();
    emit modelSettled();
    Grammi_Log(Metafrasi(55, "New file"), logColour::black, true);
    resetZoomHistory();
}

/// @return whether the model stands in the file @p path now
bool FileCommands::read(std::string &path)
{
    if (!Anagnosi_Arxeiou(path))
        return false;
    if (!modelOfJournal(path))
        return true;
    Onoma_Arxeiou.clear(); // a save must not go into a journal
    showModelCaption({});
    return false;
}

/// The model stands in the file @p path.
void FileCommands::settle(const std::string &path)
{
    rememberFile(path);
    emit modelSettled();
}

// ------------------------------------------------------------------------------------------- open

/// @param path  empty where the user is to be asked
void FileCommands::open(std::string path)
{
    if (!mayLeave(false))
        return;
    if (read(path))
        settle(path);
    Allagi_Montelou = true;
    emit modelReplaced();
}

void FileCommands::Button_Anagnosi_Arxeiou()
{
    open({});
}

namespace {

/// Asked before the model that is open is left; what cannot be reached now may be there all the
/// same.
bool isThere(const std::string &path)
{
    using std::filesystem::file_type;
    std::error_code ignored;
    const file_type type = std::filesystem::status(path, ignored).type();
    if (type != file_type::not_found && type != file_type::directory)
        return true;
    showRefusal(Metafrasi(1850, "The file is not there any more:") + " " + path);
    return false;
}

} // namespace

void FileCommands::openRecent(const std::string &path)
{
    if (isThere(path))
        open(path);
    else
        forgetFile(path);
}

void FileCommands::openExample(const std::string &name)
{
    if (const std::string path = examplesFolder() + "/" + name; isThere(path))
        open(path);
}

void FileCommands::sayNoneRecent()
{
    showRefusal(Metafrasi(1849, "No file has been opened or saved yet."));
}

void FileCommands::openDropped(const QStringList &paths)
{
    if (paths.size() == 1 && paths[0].endsWith(modelExtension, Qt::CaseInsensitive)) {
        if (isThere(plainText(paths[0])))
            open(plainText(paths[0]));
        return;
    }
    showRefusal(Metafrasi(1851, "Drop one model file (*.vsk) of this computer here to open it."));
}

bool FileCommands::openJournal(const LostJournal &lost)
{
    if (!modelOfJournal(lost.file.path)) { // the model that is open would go for nothing
        showRefusal(Metafrasi(150, "There was an error opening the file:") + " " + lost.file.path);
        return false;
    }
    if (!mayLeave(false))
        return false;
    const bool isOpen = veskora::openJournal(lost.file.path, lost.model.path, lost.model.sum);
    emit modelReplaced();
    return isOpen;
}

// ------------------------------------------------------------------------------------------- save

void FileCommands::Button_Apothikefsi_Arxeiou()
{
    std::string path = fileOfSave();
    ReplacementLock lock(path);
    if (mayReplaceFile(path, lock) && Apothikefsi_Arxeiou(path, false))
        settle(path);
}

void FileCommands::saveAs()
{
    tellForeignChange(); // the dialog only asks whether an old file is to go
    std::string path;
    if (Apothikefsi_Arxeiou(path, false))
        settle(path);
}

void FileCommands::tellForeignChange()
{
    const std::optional<std::uint64_t> sum = sumOfForeignChange();
    if (!sum || sum == told_)
        return;
    told_ = sum;
    Grammi_Log(Metafrasi(2141, "The file was changed by another program since it was opened:") + " "
                   + Onoma_Arxeiou,
               logColour::red);
}

} // namespace veskora
