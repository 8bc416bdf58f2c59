// Language packs: what is read, what is damage, and what the user is told.

#include "Functions.h"
#include "Languages.h"
#include "Metablites.h"
#include "ScriptedDesktop.h"

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
    // Three of the four slots are in use.
    EXPECT_THAT(said, testing::ContainsRegex("The language pack X lacks [1-9][0-9][0-9] of the "
                                             "[1-9][0-9][0-9] texts of this program"));
    const auto number = [this](const char *before) {
        return std::stoi(said.substr(said.find(before) + std::string(before).size()));
    };
    EXPECT_EQ(number("of the ") - number("lacks "), 3);

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
    struct Case
    {
        const char *content, *facts;
    };
    for (const Case &c : {
             Case{"", "Line 1: the file ends too early, without END"},
             Case{"a,b\n1,\"one\"\n", "Line 3: the file ends too early, without END"},
             Case{"a,b\n1,\"one\"\nEnd\n", "Line 3: a slot number or END expected, found 'End'"},
             Case{"a,b\n\n1,\"one\"\nEND", "Line 2: a slot number or END expected, found ''"},
             Case{"a,b\n0,\"\"\nEND", "Line 2: a slot number or END expected, found '0'"},
             Case{"a,b\n2501,\"x\"\nEND", "Line 2: a slot number or END expected, found '2501'"},
             Case{"a,b\n1.5,\"x\"\nEND", "Line 2: a slot number or END expected, found '1.5'"},
             Case{"a,b\n1,\"one\n2,\"two\"\nEND",
                  "Line 2: a closing quotation mark expected, found 'one'"},
             Case{"a,b\n1,\"one\"two\nEND",
                  "Line 2: a comma or the line's end behind a quoted text expected, found 't'"},
             Case{"a,b\n1,\"one\"\n2,\"\xE9t\xE9\"\nEND",
                  "Line 3: text in UTF-8 expected, found '\\xE9t\\xE9'"},
             Case{"a,b\n1,\"\xC0\xAF\"\nEND", "Line 2: text in UTF-8 expected, found '\\xC0\\xAF'"},
             Case{"a,b\n1,\"\xED\xA0\x80\"\nEND",
                  "Line 2: text in UTF-8 expected, found '\\xED\\xA0\\x80'"},
         }) {
        read(c.content);
        EXPECT_THAT(said, testing::StartsWith("The language pack X could not be read. The program "
                                              "speaks English now.\r\n\r\n"
                                              + pack("X") + "\r\n" + c.facts + "\r\n\r\n"));
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
