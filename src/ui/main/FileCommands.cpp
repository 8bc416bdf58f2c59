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

/// Whether @p path is that of the model, by whatever name.
bool isModelsFile(const std::string &path)
{
    std::error_code ignored;
    return path == Onoma_Arxeiou || std::filesystem::equivalent(path, Onoma_Arxeiou, ignored);
}

/// Whether the model may go into the file @p path; its own may have what another program put there.
/// @param turn  taken where it may: other copies of the program wait until it is saved
bool mayReplaceFile(const std::string &path, std::optional<Turn> &turn)
{
    std::optional<std::uint64_t> replaceable;
    for (;;) {
        turn.emplace(desktop().dataFolder() + "/Turns/Save");
        const std::optional<std::uint64_t> sum =
            isModelsFile(path) ? sumOfForeignChange() : std::nullopt;
        if (!sum || sum == replaceable)
            return true;
        turn.reset(); // the answer takes its time, and something else may come there meanwhile
        if (desktop().message(Metafrasi(2140, "The file was changed by another program since it "
                                              "was opened. Replace it?"),
                              Icon::exclamation, Buttons::noYes)
            != Answer::yes)
            return false;
        replaceable = sum;
    }
}

} // namespace

bool FileCommands::saveBeforeLeaving(bool closing)
{
    if (save(Onoma_Arxeiou, true))
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
        if (std::string path = commandLine; read(path))
            rememberFile(path);
    }
    resetZoomHistory();
    if (!Onoma_Arxeiou.empty() || isModelEmpty()) // that of a journal stands in no file
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
    forgetModelName(); // a save must not go into a journal
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

/// Writes the model to @p path, or where that is empty or an example to a file that is asked for.
/// @param insists  whether another one is asked for where the user does not want it replaced
/// @return whether the model was written
bool FileCommands::save(std::string path, bool insists)
{
    std::optional<Turn> turn;
    for (bool isAsked = path.empty();; isAsked = true) {
        if (isExample(path)) {
            tellExamplesStay(isAsked);
            path.clear();
        }
        if (path.empty() && (path = askModelPath()).empty())
            return false;
        if (isExample(path))
            continue;
        if (mayReplaceFile(path, turn))
            break;
        if (!insists)
            return false;
        path.clear();
    }
    if (!Apothikefsi_Arxeiou(path, false))
        return false;
    settle(path);
    return true;
}

/// @param inBox  where the log would be overlooked
void FileCommands::tellExamplesStay(bool inBox)
{
    const std::string text =
        Metafrasi(2127, "The examples stay as they are; save this one under another name.");
    if (inBox || log_->isHidden())
        showRefusal(text);
    else
        Grammi_Log(text, logColour::black);
}

void FileCommands::Button_Apothikefsi_Arxeiou()
{
    save(Onoma_Arxeiou, false);
}

void FileCommands::saveAs()
{
    save({}, false);
}

void FileCommands::tellForeignChange()
{
    const std::optional<std::uint64_t> sum = sumOfForeignChange();
    if (sum && sum != 0 && sum != told_) // what cannot be read just now may be as it was
        Grammi_Log(Metafrasi(2141, "The file was changed by another program since it was opened:")
                       + " " + Onoma_Arxeiou,
                   logColour::red);
    told_ = sum;
}

} // namespace veskora

#include "moc_FileCommands.cpp"
