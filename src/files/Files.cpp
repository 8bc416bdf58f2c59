#include "Files.h"

#include "Anafora.h"
#include "Desktop.h"
#include "Examples.h"
#include "Fault.h"
#include "FileSystem.h"
#include "Functions.h"
#include "ItemReader.h"
#include "Metablites.h"
#include "ModelText.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

namespace veskora {

namespace {

constexpr const char *reportExtension = ".txt";
constexpr const char *tableExtension = ".csv";

/// The folder of the last file used is where dialogs start.
std::string dialogFolder()
{
    return currentFolder.empty() ? startFolder(desktop().documentsFolder()) : currentFolder;
}

std::string filterFor(const std::string &files, const std::string &pattern)
{
    return files + " (*" + pattern + ")|*" + pattern;
}

void reportWrongBanner()
{
    const std::string text =
        Metafrasi(148, "There was an error opening the file. The file could not be read.");
    desktop().message(text, Icon::critical);
    Grammi_Log(text, logColour::red, true);
}

void reportFault(const std::string &sentence, const std::string &path, const Fault &fault)
{
    const std::string text = sentence + " " + path + ": " + fault.facts();
    desktop().message(text, Icon::critical);
    Grammi_Log(text, logColour::red);
}

std::string withoutExtension(const std::string &path)
{
    return path.empty() ? "Untitled"
                        : path.substr(0, path.size() - std::min<std::size_t>(4, path.size()));
}

/// @p name with one of @p extensions: that of the filter chosen, unless the user typed another than
/// the first, which was proposed.
std::string withExtension(const std::string &name, const std::vector<std::string> &extensions,
                          const std::string &filter)
{
    const bool isOurs = std::find(extensions.begin(), extensions.end(), filter) != extensions.end();
    const std::string &wanted = isOurs ? filter : extensions.front();
    const auto typed = std::find_if(extensions.begin(), extensions.end(),
                                    [&](const std::string &one) { return name.ends_with(one); });
    if (typed == extensions.end())
        return name + wanted;
    return typed == extensions.begin() ? name.substr(0, name.size() - typed->size()) + wanted
                                       : name;
}

bool exists(const std::string &path)
{
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

bool holdSameItems(const std::string &path, const std::string &scratch)
{
    ItemReader saved(path);
    ItemReader present(scratch);
    for (;;) {
        const std::string item = saved.item();
        if (item != present.item())
            return false;
        if (item == modelEndLine)
            return true;
    }
}

/// @return its path; Fault: it can be written nowhere
std::string writeScratchFile()
{
    constexpr const char *name = "/z_vk~vpl.vsk";
    const auto write = [](const std::string &path) {
        writeWholeFile(path, modelText(), Durability::untilPowerFails);
        return path;
    };
    std::error_code ignored;
    const std::string path = scratchFolder(desktop().programFolder()) + name;
    // A model that was opened there must not be compared with itself, and then deleted.
    if (!std::filesystem::equivalent(path, Onoma_Arxeiou, ignored))
        try {
            return write(path);
        } catch (const Fault &) {
            // The private folder may take it.
        }
    return write(privateFolder() + name);
}

/// @return empty when cancelled
std::string askOpenPath()
{
    const std::string files = Metafrasi(1770, "Kalvorn Veskora Input files");
    return desktop()
        .askOpenFile({filterFor(files, modelExtension), dialogFolder()})
        .value_or(std::string());
}

/// The model has its file at @p path now, which this process knows with the sum @p known.
void nameModel(const std::string &path, std::optional<std::uint64_t> known)
{
    showModelCaption(path);
    Onoma_Arxeiou = path;
    knownFileSum = known;
    currentFolder = folderOf(path);
}

} // namespace

std::string askSavePath(const std::string &filter, const std::string &proposed,
                        const std::string &extension)
{
    return askSavePath(filter, proposed, std::vector{extension});
}

std::string askSavePath(const std::string &filter, const std::string &proposed,
                        const std::vector<std::string> &extensions)
{
    std::string name =
        isExample(proposed) ? std::filesystem::path(proposed).filename().string() : proposed;
    for (;;) {
        std::string pattern = "*" + extensions.front();
        const std::optional<std::string> chosen =
            desktop().askSaveFile({filter, userFolder(dialogFolder()), name, &pattern});
        if (!chosen)
            return {};
        name = withExtension(*chosen, extensions, pattern.substr(1));
        // The dialog asked about the name that was typed.
        if (name == *chosen || !exists(name)
            || desktop().message(
                   name + Metafrasi(147, " already exists. Do you want to replace it?"),
                   Icon::exclamation, Buttons::noYes)
                   == Answer::yes)
            return name;
    }
}

std::string askModelPath()
{
    return askSavePath(filterFor(Metafrasi(1771, "Kalvorn Veskora files"), modelExtension),
                       withoutExtension(Onoma_Arxeiou), modelExtension);
}

void startEmptyModel()
{
    Katharismos_Montelou();
    Allagi_Montelou = true;
    forgetModelName();
}

void forgetModelName()
{
    Onoma_Arxeiou.clear();
    knownFileSum.reset();
    showModelCaption({});
}

namespace {

/// @return whether it was read; else the user has been told, and a damaged file leaves no model
bool readModel(const std::string &path)
try {
    ItemReader reader(path);
    if (readModelText(reader))
        return true;
    reportWrongBanner();
    return false;
} catch (const Fault &fault) {
    reportFault(Metafrasi(150, "There was an error opening the file:"), path, fault);
    startEmptyModel();
    return false;
}

/// Whether @p path was written after @p other.
bool isNewer(const std::string &path, const std::string &other)
{
    std::error_code gone;
    const auto time = std::filesystem::last_write_time(path, gone);
    return !gone && time > std::filesystem::last_write_time(other, gone) && !gone;
}

} // namespace

bool Anagnosi_Arxeiou(std::string &path)
{
    if (path.empty())
        path = askOpenPath();
    // Before the reading: what comes between the two is a change.
    const std::optional<std::uint64_t> sum = holdsModel(path) ? sumOfFile(path) : std::nullopt;
    if (path.empty() || !readModel(path))
        return false;
    nameModel(path, sum);
    Allagi_Montelou = true;
    Grammi_Log(Metafrasi(149, "Open file:") + " " + path, logColour::black, true);
    resetZoomHistory();
    return true;
}

bool openJournal(const std::string &journal, const std::string &model,
                 std::optional<std::uint64_t> known)
{
    const bool isOutdated = isNewer(model, journal);
    if (!readModel(journal))
        return false;
    forgetModelName();
    if (!model.empty() && !isOutdated)
        nameModel(model, known);
    Allagi_Montelou = true;
    Grammi_Log(Metafrasi(1845, "Open from the journal:") + " " + journal, logColour::black, true);
    if (isOutdated)
        Grammi_Log(Metafrasi(1846, "The file was saved after the journal was written; the next "
                                   "save asks for another name:")
                       + " " + model,
                   logColour::red);
    resetZoomHistory();
    return true;
}

std::optional<std::uint64_t> sumOfForeignChange()
{
    if (!knownFileSum)
        return {};
    if (const auto sum = sumOfFile(Onoma_Arxeiou))
        return sum == knownFileSum || isModelFile(Onoma_Arxeiou) ? std::nullopt : sum;
    std::error_code ignored;
    const auto type = std::filesystem::status(Onoma_Arxeiou, ignored).type();
    return type == std::filesystem::file_type::not_found ? std::nullopt
                                                         : std::optional<std::uint64_t>(0);
}

bool holdsModel(const std::string &path)
try {
    ItemReader reader(path);
    return hasBanner(reader);
} catch (const Fault &) {
    return false;
}

bool isModelFile(const std::string &path)
try {
    InputFile file(path);
    std::string content(modelText().size() + 1, '\0'); // one more, to notice a longer file
    std::size_t filled = 0;
    while (const std::size_t count = file.read(content.data() + filled, content.size() - filled))
        filled += count;
    content.resize(filled);
    return content == modelText();
} catch (const Fault &) {
    return false;
}

bool Apothikefsi_Arxeiou(std::string &path, bool quiet)
{
    const std::string target = path.empty() ? askModelPath() : path;
    if (target.empty())
        return false;
    std::string text;
    try {
        text = modelText();
        writeWholeFile(target, text, Durability::onDisk);
    } catch (const Fault &fault) {
        if (!quiet)
            reportFault(Metafrasi(152, "There was an error saving the file:"), target, fault);
        return false;
    }
    path = target;
    if (!quiet) {
        nameModel(target, sumOf(text));
        Grammi_Log(Metafrasi(151, "Save file:") + " " + target, logColour::black, true);
    }
    return true;
}

std::string writeAskedFile(const std::function<std::string()> &make, const std::string &filter,
                           const std::string &path, const std::string &suffix,
                           const std::string &extension)
{
    const std::string target =
        askSavePath(filter, withoutExtension(path) + suffix + extension, extension);
    const std::string content = target.empty() ? "" : make();
    return !content.empty() && writeFileOrTell(target, content) ? target : std::string();
}

bool writeFileOrTell(const std::string &path, const std::string &content)
{
    try {
        writeWholeFile(path, content, Durability::onDisk);
    } catch (const Fault &fault) {
        reportFault(Metafrasi(152, "There was an error saving the file:"), path, fault);
        return false;
    }
    currentFolder = folderOf(path);
    return true;
}

std::string writeAskedFile(const std::string &content, const std::string &filter,
                           const std::string &path, const std::string &extension)
{
    return writeAskedFile([&] { return content; }, filter, path, "", extension);
}

void Apothikefsi_Anaforas(const std::string &path)
{
    (void)saveReport(Anafora, path, "");
}

std::string saveReport(const std::string &report, const std::string &path,
                       const std::string &suffix)
{
    return writeAskedFile([&] { return reportFileText(report); },
                          filterFor(Metafrasi(1772, "Text files"), reportExtension) + "|"
                              + filterFor(Metafrasi(1773, "All files"), ".*"),
                          path, suffix, reportExtension);
}

std::string saveTable(const std::string &table, const std::string &path, const std::string &suffix)
{
    return writeAskedFile(table,
                          filterFor(Metafrasi(1855, "Comma-separated values"), tableExtension) + "|"
                              + filterFor(Metafrasi(1773, "All files"), ".*"),
                          withoutExtension(path) + suffix + tableExtension, tableExtension);
}

bool Idio_Me_To_Arxeio()
try {
    std::error_code ignored;
    const std::string scratch = writeScratchFile();
    const bool same = holdSameItems(Onoma_Arxeiou, scratch);
    std::filesystem::remove(scratch, ignored);
    return same;
} catch (const Fault &) {
    return false; // the saved file is gone, one of the two ran out, or none could be written
}

} // namespace veskora
