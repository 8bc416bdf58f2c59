#include "Languages.h"

#include "Desktop.h"
#include "Fault.h"
#include "FileSystem.h"
#include "ItemReader.h"
#include "Metablites.h"
#include "PrintableText.h"
#include "Registry.h"
#include "usedSlots.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace veskora {

namespace {

constexpr const char *english = "English";
constexpr const char *languageKey = "Language";

fs::path packFolder()
{
    return fs::path(suppliedFilesFolder(desktop().programFolder())) / "Languages";
}

void readPack(const std::string &path)
{
    ItemReader file(path);
    const auto item = [&file] {
        std::string text = file.quotableItem();
        if (!isUtf8(text))
            file.fail("text in UTF-8", text);
        return text;
    };
    file.skipByteOrderMark();
    (void)item(); // the heading
    (void)item();
    for (std::string number = item(); number != "END"; number = item()) {
        const int slot = file.asInteger(number, "a slot number or END", 1, languageSlots);
        Pinakas_Glossas(slot) = item();
    }
}

// What is said of packs is English in every language: the pack is what it is about.

const std::string howToChoose =
    "To choose another language, open the last entry of the last menu (Help, About Kalvorn Veskora "
    "ML) and tick its box: the welcome form then comes at the next start.";

void tellUnreadable(const std::string &path, const Fault &fault)
{
    desktop().message("The language pack " + Glossa
                          + " could not be read. The program speaks English now.\r\n\r\n" + path
                          + "\r\n" + fault.facts() + "\r\n\r\n" + howToChoose,
                      Icon::exclamation);
}

void tellMissingTexts()
{
    const auto missing =
        std::ranges::count_if(usedSlots, [](int slot) { return Pinakas_Glossas(slot).empty(); });
    if (missing == 0)
        return;
    desktop().message("The language pack " + Glossa + " lacks " + std::to_string(missing)
                          + " of the " + std::to_string(std::size(usedSlots))
                          + " texts of this program; they show as empty.\r\n\r\n" + howToChoose,
                      Icon::information);
}

} // namespace

std::string storedLanguage()
{
    const std::string language = desktop().setting(settingsSection, languageKey, english);
    return language.empty() ? english : language;
}

void storeLanguage(const std::string &language)
{
    desktop().storeSetting(settingsSection, languageKey, language);
}

void Fortosi_Glossas()
{
    Glossa = storedLanguage();
    Nai_Agglika = Glossa == english;
    Pinakas_Glossas.clear();
    if (Nai_Agglika)
        return;
    const std::string path = (packFolder() / (Glossa + ".lng")).string();
    try {
        readPack(path);
        tellMissingTexts();
    } catch (const Fault &fault) {
        Pinakas_Glossas.clear();
        Nai_Agglika = true; // before the message, which has a button to be captioned
        tellUnreadable(path, fault);
        Glossa = english;
    }
}

std::vector<std::string> languagePacks()
{
    std::vector<std::string> names;
    std::error_code unreadable; // what cannot be listed is not offered
    for (fs::directory_iterator file(packFolder(), unreadable), end; file != end;
         file.increment(unreadable))
        if (file->path().extension() == ".lng")
            names.push_back(file->path().stem().string());
    std::ranges::sort(names);
    return names;
}

} // namespace veskora
