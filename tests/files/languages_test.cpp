// Language packs: what is read, what is damage, and what the user is told.

#include "DataCases.h"
#include "Functions.h"
#include "Languages.h"
#include "Metablites.h"
#include "ScriptedDesktop.h"

#include <algorithm>
#include <cstdio>
#include <gmock/gmock.h>

namespace veskora {
namespace {

class Languages : public StoreTest
{
protected:
    Languages() { std::filesystem::create_directory(path("Languages")); }

    std::string pack(const std::string &name) const { return path("Languages/" + name + ".lng"); }

    /// Starts with the pack X, which is @p content; what is told goes to `said`.
    void read(const std::string &content)
    {
        write(pack("X"), content);
        desktop.storeSetting("Rithmiseis", "Language", "X");
        desktop.expectAnyMessage(said);
        Fortosi_Glossas();
    }
    std::string said;
};

TEST_F(Languages, APackIsReadItemByItem)
{
    read("\xEF\xBB\xBF\"A heading, with a comma\",second\r\n"
         "2500, \"letzter\" \r\n"
         "1,\"Datei, neu\"\n"
         "3,Öffnen\r"
         "2\n\"erst\"\n"
         "2,\"dann & so\"\n"
         "END\n99999,\"ignored");
    EXPECT_EQ(Glossa, "X");
    EXPECT_FALSE(Nai_Agglika);
    EXPECT_EQ(Metafrasi(1, "File"), "Datei, neu");
    EXPECT_EQ(Metafrasi(2, "New"), "dann & so");
    EXPECT_EQ(Metafrasi(3, "Open"), "Öffnen");
    EXPECT_EQ(Metafrasi(2500, ""), "letzter");
    EXPECT_EQ(Metafrasi(4, "Save"), "");
    int lacks = 0, all = 0;
    ASSERT_EQ(std::sscanf(said.c_str(),
                          "The language pack X lacks %d of the %d texts of this program;", &lacks,
                          &all),
              2);
    EXPECT_EQ(all - lacks, 3); // of the four slots three are in use
    EXPECT_GT(lacks, 100);
    // Another pack leaves nothing of the one before.
    read("h,h\n4,\"Sichern\"\nEND");
    EXPECT_EQ(Metafrasi(4, "Save"), "Sichern");
    EXPECT_EQ(Metafrasi(1, "File"), "");
}

TEST_F(Languages, TheTemplateHasEveryTextOfTheProgram)
{
    std::filesystem::copy_file(LANGUAGES "/English.lng", pack("english"));
    desktop.storeSetting("Rithmiseis", "Language", "english"); // a pack like any other
    Fortosi_Glossas();                                         // tells of no missing text
    EXPECT_FALSE(Nai_Agglika);
    EXPECT_EQ(Metafrasi(2003, ""), "Cancel");
    EXPECT_EQ(Metafrasi(1101, ""), "Language Pack activated: ");
}

TEST_F(Languages, DamageIsToldWithItsLineAndTheProgramGoesOnInEnglish)
{
    auto cases = dataCases("damaged_packs.txt");
    for (const auto &[text, shown] : {std::pair{"\xE9t\xE9", "\\xE9t\\xE9"},
                                      {"\xC0\xAF", "\\xC0\\xAF"},
                                      {"\xED\xA0\x80", "\\xED\\xA0\\x80"}})
        cases.emplace_back(std::string("a,b|1,\"") + text + "\"|END",
                           std::string("Line 2: text in UTF-8 expected, found '") + shown + "'");
    for (auto &[content, facts] : cases) {
        std::ranges::replace(content, '|', '\n');
        read(content);
        EXPECT_THAT(said, testing::StartsWith("The language pack X could not be read. The program "
                                              "speaks English now.\r\n\r\n"
                                              + pack("X") + "\r\n" + facts + "\r\n\r\n"));
        EXPECT_TRUE(Nai_Agglika);
        EXPECT_EQ(Glossa, "English");
        EXPECT_EQ(Metafrasi(1, "File"), "File");
        EXPECT_EQ(Pinakas_Glossas(1), ""); // dropped whole
        EXPECT_EQ(storedLanguage(), "X");
    }
    std::filesystem::remove(pack("X"));
    desktop.expectAnyMessage(said);
    Fortosi_Glossas();
    EXPECT_THAT(said, testing::HasSubstr("X.lng\r\nNo such file or directory\r\n"));
    EXPECT_TRUE(Nai_Agglika);
}

TEST_F(Languages, EnglishNeedsNoFile)
{
    std::filesystem::remove(path("Languages"));
    EXPECT_TRUE(languagePacks().empty());
    for (const char *stored : {"(nothing)", "", "English"}) {
        if (*stored != '(')
            desktop.storeSetting("Rithmiseis", "Language", stored);
        Fortosi_Glossas();
        EXPECT_TRUE(Nai_Agglika) << stored;
        EXPECT_EQ(Glossa, "English") << stored;
    }
}

TEST_F(Languages, PacksAreListedInOrder)
{
    for (const char *name :
         {"Ελληνικά.lng", "Français.lng", "Deutsch.lng", "notes.txt", "x.LNG", ".lng"})
        write(path("Languages/") + name, "");
    EXPECT_THAT(languagePacks(), testing::ElementsAre("Deutsch", "Français", "Ελληνικά"));
}

} // namespace
} // namespace veskora
