// Model files: all stages, every quirk of the format, every way to fail.

#include "DataCases.h"
#include "Files.h"
#include "FileSystem.h"
#include "Metablites.h"
#include "Models.h"
#include "ModelText.h"
#include "NamedVariables.h"
#include "Refusals.h"
#include "ScriptedDesktop.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <sstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

constexpr std::uint32_t blackLine = 0, redLine = 255;
const std::string wrongBanner = "There was an error opening the file. The file could not be read.";
const std::string notOpened = "There was an error opening the file:";
const std::string title = "Kalvorn Veskora ML";

class ModelFile : public StoreTest
{
protected:
    const std::string small = contentOf(TEST_DATA "/small.vsk");
    std::vector<std::string> lines; ///< its own

    ModelFile()
    {
        std::istringstream in(small);
        for (std::string line; std::getline(in, line); lines.push_back(line))
            line.pop_back();
    }
    static std::string joined(const std::vector<std::string> &lines, const char *end = "\r\n")
    {
        std::string text;
        for (const std::string &line : lines)
            text += line + end;
        return text;
    }

    /// The small file with @p text in place of line @p number.
    std::string withLine(int number, const std::string &text) const
    {
        std::vector<std::string> changed = lines;
        changed.at(static_cast<std::size_t>(number - 1)) = text;
        return joined(changed);
    }

    /// The small file of the stage whose Rithmiseis section ends with @p line.
    std::string ofStage(int line) const
    {
        std::vector<std::string> kept = lines;
        if (line < 48)
            kept.erase(std::ranges::find(kept, "Rithmiseis") + 1 + line, kept.end() - 1);
        return joined(kept);
    }

    void read(const std::string &content)
    {
        write(path("m.vsk"), content);
        std::string name = path("m.vsk");
        Anagnosi_Arxeiou(name);
    }

    /// Reads what must be refused with the second failure path.
    void refuse(const std::string &content, const std::string &description)
    {
        buildModel("N 1 2");
        Onoma_Arxeiou = "old.vsk";
        Allagi_Montelou = false;
        Klimaka = 77;
        nai_grid = false;
        desktop.log.clear();
        const std::string text = notOpened + " " + path("m.vsk") + ": " + description;
        desktop.expectMessage(text, Icon::critical);
        read(content);
        EXPECT_EQ(desktop.log, (std::vector<LogLine>{{text, redLine}}));
        EXPECT_EQ(desktop.caption, title + " - Untitled.vsk");
        EXPECT_EQ(Arithmos_Kombon + Arithmos_Omadon + Arithmos_Stoixeion, 0);
        EXPECT_EQ(Komboi(1, 1), 0);
        EXPECT_EQ(Onoma_Arxeiou, "");
        EXPECT_TRUE(Allagi_Montelou);
        EXPECT_EQ(Klimaka, 77); // view and settings stay
        EXPECT_FALSE(nai_grid);
    }
};

TEST_F(ModelFile, TheSmallFileIsReadAndWrittenBackToTheByte)
{
    Thesi_Istorikou = 5;
    Allagi_Montelou = false;
    read(small);
    EXPECT_EQ(desktop.log,
              (std::vector<LogLine>{{"Open file: " + path("m.vsk"), blackLine, true}}));
    EXPECT_EQ(desktop.caption, path("m.vsk") + " - " + title);
    EXPECT_EQ(Onoma_Arxeiou, path("m.vsk"));
    EXPECT_TRUE(Allagi_Montelou);
    EXPECT_EQ(Thesi_Istorikou, 0);
    EXPECT_THAT(Istoriko_Zoom.row(0), testing::ElementsAre(100, 2, -2));

    std::string name = path("again.vsk");
    EXPECT_TRUE(Apothikefsi_Arxeiou(name, true));
    EXPECT_EQ(contentOf(name), small);
    EXPECT_EQ(Onoma_Arxeiou, path("m.vsk")); // quiet
}

// Each line of the section alone gets another value, which must show in its own variable.
TEST_F(ModelFile, EverySettingHasALineOfItsOwn)
{
    auto variables = namedVariables();
    for (const auto &[number, name] : dataCases("setting_lines.txt")) {
        const int line = std::stoi(number);
        const StoreVariable &variable = variables.at(name);
        const bool isSwitch = std::holds_alternative<bool *>(variable);
        const bool isOn = lines.at(static_cast<std::size_t>(line - 1)) == "1";
        const std::string content = withLine(line, !isSwitch ? "7" : isOn ? "0" : "1");
        read(content);
        SCOPED_TRACE(name);
        EXPECT_EQ(valueOf(variable), isSwitch ? !isOn : 7);
        EXPECT_EQ(modelText(), content);
        variables.erase(name);
    }
    variables.erase("smallHeldRotation"); // behind the springs, where it is on
    const std::string section = "Small symbol of held rotation\r\n";
    const std::string before = small.substr(0, small.find(modelEndLine));
    const std::string end = std::string(modelEndLine) + "\r\n";
    for (const auto &[behind, isOn] : {std::pair{section + "1\r\n" + end, true},
                                       {end, false},
                                       {section, true}, // is refused, and all settings stay
                                       {section + "0\r\n", false},
                                       {std::string(5000, 'S'), false}}) {
        smallHeldRotation = !isOn || behind == section;
        if (behind == section)
            desktop.answerAnything = [] { return Answer::ok; };
        read(before + behind);
        EXPECT_EQ(smallHeldRotation, isOn) << behind;
        EXPECT_EQ(modelText() == before + behind, behind.ends_with(end)) << behind;
    }
    EXPECT_TRUE(variables.empty()) << variables.begin()->first << " is saved with no model";
}

TEST_F(ModelFile, EarlierStagesSetTheirOwnSubstitutesAndNoOthers)
{
    const auto variables = namedVariables();
    std::string before;
    for (const auto &[stage, values] : dataCases("stages.txt")) {
        SCOPED_TRACE(stage);
        const auto each = [&](const std::string &row, const auto &act) {
            std::istringstream items(row);
            for (std::string name, value;
                 std::getline(items, name, '=') && items >> value >> std::ws;)
                act(variables.at(name), std::stod(value), name);
        };
        if (before.empty()) {
            before = values;
            continue;
        }
        resetStore();
        each(before, [](auto variable, double value, auto &) { setValue(variable, value); });
        read(ofStage(std::stoi(stage)));
        each(values, [](auto variable, double value, auto &name) {
            EXPECT_EQ(valueOf(variable), value) << name;
        });
        EXPECT_EQ(Elatiria(2, 2), stage == "48" ? 5000 : 0);
        EXPECT_EQ(Onoma_Arxeiou, path("m.vsk"));
        EXPECT_EQ(Idio_Me_To_Arxeio(), stage == "48"); // an earlier stage always differs
    }
}

TEST_F(ModelFile, WhatTheProgramCannotHaveWrittenIsRefused)
{
    auto cases = dataCases("refused_lines.txt");
    cases.emplace_back("102: \x1B[2Jé\xE9\xC2\x9B\xE2\x80\xAE",
                       "a spring constant expected, found "
                       "'\\x1B[2Jé\\xE9\\xC2\\x9B\\xE2\\x80\\xAE'");
    cases.emplace_back("102: \u200B\u200F\uFEFF\u00AD",
                       "a spring constant expected, found "
                       "'\\xE2\\x80\\x8B\\xE2\\x80\\x8F\\xEF\\xBB\\xBF\\xC2\\xAD'");
    // A row number, which nobody looks at.
    cases.emplace_back("10: " + std::string(5000, 'x'), "an item longer than 4096 bytes");
    for (const auto &[given, says] : cases) {
        SCOPED_TRACE(says);
        const auto colon = given.find(':');
        const std::string text = given.substr(std::min(given.size(), colon + 2));
        refuse(withLine(std::stoi(given), text), "Line " + given.substr(0, colon) + ": " + says);
    }
    refuse(withLine(12, "0,01"),
           "Line 15: the number of nodes expected, found 'Komboi' (the comma in line 12 ended an "
           "item: the decimal separator is the point)");
}

TEST_F(ModelFile, EveryCutOfAFileIsRefusedOrReadWhole)
{
    for (std::size_t kept = 0; kept + 1 < lines.size(); ++kept)
        refuse(joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept)}),
               "Input past end of file in line " + std::to_string(kept + 1));
    read(joined({lines.begin(), lines.end() - 1})); // the end line itself is not read
    EXPECT_EQ(Onoma_Arxeiou, path("m.vsk"));
}

TEST_F(ModelFile, OddButHarmlessFilesAreRead)
{
    const auto set = [&](int line, const char *text) {
        lines[static_cast<std::size_t>(line - 1)] = text;
    };
    set(7, "any title");
    set(10, "row numbers are not looked at");
    set(11, "0"); // E of 0
    set(28, " 1E-3 ");
    set(42, "2");        // both ends at one node
    set(51, "2");        // a switch is on at 1 only
    set(52, "anything"); // the retired line
    set(88, "0");        // a scale of 0
    set(102, "-5");      // a negative spring
    for (const char *end : {"\n", "\r", ",", "\r\n"}) {
        resetStore();
        read(joined(lines, end));
        EXPECT_EQ(Onoma_Arxeiou, path("m.vsk"));
        EXPECT_EQ(Omades(1, group::E), 0);
        EXPECT_EQ(Stoixeia(1, element::nodeI), 2);
        EXPECT_EQ(Elatiria(2, 1), -5);
        EXPECT_FALSE(nai_aksones);
        EXPECT_EQ(Klimaka, 0);
    }
}

TEST_F(ModelFile, AWrongBannerChangesNothing)
{
    const std::string endless(5000, 'x');
    for (const auto &[from, to] : {std::pair{"VESK!", "Vesk!"},
                                   {"Modify !!!", "Modify !!"},
                                   {"VESK!", endless.c_str()},
                                   {"*****\r\n*", "*****\r\n *"}}) {
        std::string content = small;
        content.replace(content.find(from), std::string(from).size(), to);
        buildModel("N 1 2");
        Klimaka = 77;
        const std::string before = modelText();
        Allagi_Montelou = false;
        Onoma_Arxeiou = "old.vsk";
        desktop.caption = "old";
        desktop.expectMessage(wrongBanner, Icon::critical);
        read(content);
        EXPECT_EQ(desktop.log.back(), (LogLine{wrongBanner, redLine, true}));
        EXPECT_FALSE(Allagi_Montelou);
        EXPECT_EQ(modelText(), before);
        EXPECT_EQ(Onoma_Arxeiou, "old.vsk");
        EXPECT_EQ(desktop.caption, "old");
    }
}

TEST_F(ModelFile, WhatIsNoFileIsNeitherReadNorWrittenAndNeverWaitedFor)
{
    fs::create_directory(path("folder.vsk"));
    ASSERT_EQ(::mkfifo(path("pipe.vsk").c_str(), 0600), 0);
    for (const auto &[name, says] : {std::pair{"none/m.vsk", "No such file or directory"},
                                     {"folder.vsk", "Is a directory"},
                                     {"pipe.vsk", "It is not a regular file"}}) {
        std::string file = path(name);
        Onoma_Arxeiou = "old.vsk";
        const std::string text = "There was an error saving the file: " + file + ": " + says;
        desktop.expectMessage(text, Icon::critical);
        EXPECT_FALSE(Apothikefsi_Arxeiou(file, false));
        EXPECT_EQ(desktop.log.back(), (LogLine{text, redLine}));
        EXPECT_EQ(Onoma_Arxeiou, "old.vsk");
        desktop.expectMessage(notOpened + " " + file + ": " + says, Icon::critical);
        Anagnosi_Arxeiou(file);
        EXPECT_EQ(Onoma_Arxeiou, "");
    }
    EXPECT_TRUE(fs::is_fifo(path("pipe.vsk")));
}

TEST_F(ModelFile, OpenAsksWhereNoPathIsGivenAndCancelChangesNothing)
{
    currentFolder = path("");
    Onoma_Arxeiou = "old.vsk";
    desktop.expectFileDialog(std::nullopt);
    std::string name;
    Anagnosi_Arxeiou(name);
    EXPECT_EQ(Onoma_Arxeiou, "old.vsk");
    EXPECT_EQ(desktop.fileQuestions[0].filter, "Kalvorn Veskora Input files (*.vsk)|*.vsk");
    EXPECT_EQ(desktop.fileQuestions[0].folder, path(""));
    fs::create_directory(path("sub"));
    write(path("sub/a.vsk"), small);
    desktop.expectFileDialog(path("sub/a.vsk"));
    Anagnosi_Arxeiou(name);
    EXPECT_EQ(name, path("sub/a.vsk"));
    EXPECT_EQ(currentFolder, path("sub"));
}

TEST_F(ModelFile, SaveAsksForANameAndMindsItsExtension)
{
    for (const auto &[old, proposed, chosen, written] :
         {std::tuple{"", "Untitled", "a", "a.vsk"},
          {"model.vsk", "model", "b.vsk", "b.vsk"},
          {"model.vsk", "model", "c.VSK", "c.VSK.vsk"}}) {
        Onoma_Arxeiou = old;
        desktop.expectFileDialog(path(chosen));
        std::string name;
        EXPECT_TRUE(Apothikefsi_Arxeiou(name, false));
        EXPECT_EQ(desktop.fileQuestions.back().proposed, proposed);
        EXPECT_EQ(desktop.fileQuestions.back().filter, "Kalvorn Veskora files (*.vsk)|*.vsk");
        EXPECT_EQ(Onoma_Arxeiou, path(written));
        EXPECT_EQ(desktop.caption, path(written) + " - " + title);
        EXPECT_EQ(desktop.log.back(), (LogLine{"Save file: " + path(written), blackLine, true}));
        EXPECT_TRUE(fs::exists(path(written)));
        EXPECT_EQ(currentFolder + "/", path(""));
    }
    // The dialog asked about "a", which is not there; "a.vsk" is.
    desktop.expectFileDialog(path("a"));
    desktop.expectMessage(path("a.vsk") + " already exists. Do you want to replace it?",
                          Icon::exclamation, Answer::no);
    desktop.expectFileDialog(std::nullopt);
    Onoma_Arxeiou.clear();
    EXPECT_FALSE(Apothikefsi_Arxeiou(Onoma_Arxeiou, false));
    EXPECT_EQ(Onoma_Arxeiou, "");
}

TEST_F(ModelFile, NodesWithoutAPositiveSpringLoseTheirRecord)
{
    buildModel("N 0 0; N 1 0; N 2 0; S 1 -5 0 0; S 2 -5 0 3; S 3 0 0 0");
    EXPECT_THAT(modelText(), testing::HasSubstr("Elatiria\r\n1\r\n2\r\n-5\r\n0\r\n3\r\nEND of"));
}

TEST_F(ModelFile, AModelAtTheLimitReadsBackAsTheSameText)
{
    std::mt19937 random(3);
    buildRandomFrame(random, 200);
    while (Arithmos_Stoixeion < maxElements)
        putElement(1, 2);
    while (Arithmos_Omadon < maxGroups)
        putGroup(1.0 / Arithmos_Omadon, 1e-300, 1e300);
    const std::string text = modelText();
    read(text);
    EXPECT_EQ(Arithmos_Omadon, 300);
    EXPECT_EQ(modelText(), text);
}

// What becomes of the file behind the program's back, and whether a save would lose it.
TEST_F(ModelFile, AnotherProgramsChangeIsKnownByTheContent)
{
    const std::string file = path("m.vsk");
    std::string other = small;
    other.replace(other.find("0.01"), 4, "0.02");                       // of the same length
    using Case = std::tuple<const char *, std::function<void()>, bool>; // whether it is foreign
    for (const int stage : {46, 48}) // what the program would write differs from the first
        for (const bool isSaved : {false, true})
            for (const auto &[name, act, isForeign] : {
                     Case{"nothing", [] {}, false},
                     {"edited here", [] { Klimaka = 77; }, false},
                     {"written again", [&] { write(file, contentOf(file)); }, false},
                     {"changed", [&] { write(file, other); }, true},
                     {"changed, with the old time",
                      [&] {
                          const auto time = fs::last_write_time(file);
                          write(file, other);
                          fs::last_write_time(file, time);
                      },
                      true},
                     {"replaced",
                      [&] {
                          write(file + "~", other);
                          fs::rename(file + "~", file);
                      },
                      true},
                     {"saved with the same model", [&] { write(file, modelText()); }, false},
                     {"gone", [&] { fs::remove(file); }, false},
                 }) {
                read(ofStage(stage));
                if (isSaved)
                    Apothikefsi_Arxeiou(Onoma_Arxeiou, false);
                act();
                EXPECT_EQ(sumOfForeignChange().has_value(), isForeign) << name;
                Apothikefsi_Arxeiou(Onoma_Arxeiou, false);
                EXPECT_EQ(sumOfForeignChange(), std::nullopt) << name;
            }
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_TRUE(sumOfForeignChange()) << "what cannot be read may be anything";
}

using ChangeTest = ModelFile;

TEST_F(ChangeTest, AnswersByTheWholeFile)
{
    const std::string scratch = path("z_vk~vpl.vsk");
    read(small);
    EXPECT_TRUE(Idio_Me_To_Arxeio());
    EXPECT_TRUE(Idio_Me_To_Arxeio());
    EXPECT_FALSE(fs::exists(scratch));
    Arxi_X += 1; // a pan is a change
    EXPECT_FALSE(Idio_Me_To_Arxeio());
    EXPECT_FALSE(fs::exists(scratch));
    Arxi_X -= 1;
    fs::resize_file(path("m.vsk"), fs::file_size(path("m.vsk")) - 30);
    EXPECT_FALSE(Idio_Me_To_Arxeio());
    fs::remove(path("m.vsk"));
    EXPECT_FALSE(Idio_Me_To_Arxeio());
    EXPECT_TRUE(fs::exists(scratch)); // an error leaves it

    // Where the scratch file cannot be in the program's folder it is in the private one; where it
    // can be nowhere, the answer is no, without a word.
    read(small);
    fs::remove(scratch);
    fs::create_directory(scratch);
    EXPECT_TRUE(Idio_Me_To_Arxeio());
    refusals = {{"write", ENOSPC}};
    EXPECT_FALSE(Idio_Me_To_Arxeio());
    refusals.clear();

    fs::remove(scratch); // a model of that very name is not compared with itself
    write(scratch, small);
    Onoma_Arxeiou = scratch;
    EXPECT_TRUE(Idio_Me_To_Arxeio());
    Klimaka = 77;
    EXPECT_FALSE(Idio_Me_To_Arxeio());
    EXPECT_EQ(contentOf(scratch), small);
}

} // namespace
} // namespace veskora
