// Model files: all stages, every quirk of the format, every way to fail.

#include "Fault.h"
#include "Files.h"
#include "FileSystem.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Models.h"
#include "ScriptedDesktop.h"
#include "Settings.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// A system call that answers an error instead, from its @p first call to its @p last.
struct Refusal
{
    std::string call;
    int error;
    int first = 1, last = 1000;
};
std::vector<Refusal> refusals;

bool isRefused(const char *call)
{
    for (Refusal &refusal : refusals)
        if (refusal.call == call && --refusal.last >= 0 && --refusal.first <= 0) {
            errno = refusal.error;
            return true;
        }
    return false;
}

/// Makes a call of the system, or where it is refused does nothing.
template <typename... Argument>
long call(const char *name, long number, Argument... arguments)
{
    return isRefused(name) ? -1 : ::syscall(number, arguments...);
}

} // namespace

// In place of the C library's.
extern "C" int fsync(int file)
{
    return static_cast<int>(call("fsync", SYS_fsync, file));
}
extern "C" int fchmod(int file, mode_t mode) noexcept
{
    return static_cast<int>(call("fchmod", SYS_fchmod, file, mode));
}
extern "C" int fchown(int file, uid_t owner, gid_t group) noexcept
{
    return static_cast<int>(call("fchown", SYS_fchown, file, owner, group));
}
extern "C" ssize_t read(int file, void *buffer, size_t size)
{
    return call("read", SYS_read, file, buffer, size);
}
extern "C" ssize_t write(int file, const void *buffer, size_t size)
{
    const bool fails = isRefused("write");
    const int error = errno;
    const long written = ::syscall(SYS_write, file, buffer, fails ? size / 2 : size);
    errno = fails ? error : errno;
    return fails ? -1 : written; // it stops half way
}

namespace veskora {
namespace {

constexpr std::uint32_t black = 0, red = 255;
const std::string wrongBanner = "There was an error opening the file. The file could not be read.";
const std::string notOpened = "There was an error opening the file:";
const std::string title = "Kalvorn Veskora ML";

class ModelFile : public StoreTest
{
protected:
    const std::string small = contentOf(TEST_DATA "/small.vsk");

    static std::vector<std::string> linesOf(const std::string &text)
    {
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find("\r\n", at);
            lines.push_back(text.substr(at, end - at));
            at = end == std::string::npos ? text.size() : end + 2;
        }
        return lines;
    }
    static std::string joined(const std::vector<std::string> &lines, const char *end = "\r\n")
    {
        std::string text;
        for (const std::string &line : lines)
            text += line + end;
        return text;
    }

    /// The small file of the stage whose Rithmiseis section ends with @p line.
    std::string ofStage(int line) const
    {
        std::vector<std::string> lines = linesOf(small);
        const auto first = std::ranges::find(lines, "Rithmiseis") + 1;
        lines.erase(first + line, lines.end() - (line == 48 ? 0 : 1));
        if (line == 48)
            lines = linesOf(small);
        return joined(lines);
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
        EXPECT_EQ(desktop.log, (std::vector<LogLine>{{text, red}}));
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
    EXPECT_EQ(desktop.log, (std::vector<LogLine>{{"Open file: " + path("m.vsk"), black, true}}));
    EXPECT_EQ(desktop.caption, path("m.vsk") + " - " + title);
    EXPECT_EQ(Onoma_Arxeiou, path("m.vsk"));
    EXPECT_TRUE(Allagi_Montelou);
    EXPECT_EQ(Omades(1, group::E), 2.1e8);
    EXPECT_EQ(Komboi(2, node::Fy), -10);
    EXPECT_EQ(Elatiria(2, 2), 5000);
    EXPECT_EQ(Stoixeia(1, element::nodeJ), 2);
    EXPECT_EQ(Thesi_Istorikou, 0);
    EXPECT_EQ(Istoriko_Zoom(0, 1), 100);
    EXPECT_EQ(Istoriko_Zoom(0, 2), 2);
    EXPECT_EQ(Istoriko_Zoom(0, 3), -2);

    std::string name = path("again.vsk");
    EXPECT_TRUE(Apothikefsi_Arxeiou(name, true));
    EXPECT_EQ(contentOf(name), small);
    EXPECT_EQ(Onoma_Arxeiou, path("m.vsk")); // quiet
}

// Each line of the section alone gets another value, which must show in its own variable.
TEST_F(ModelFile, EverySettingHasALineOfItsOwn)
{
    const std::vector<StoreVariable> variables = {&nai_aksones,
                                                  &nai_grid,
                                                  &nai_komboi,
                                                  &nai_arithmisi_kombon,
                                                  &nai_desmefseis,
                                                  &nai_sint_kombon,
                                                  &nai_stoixeia,
                                                  &nai_arithmisi_stoixeion,
                                                  &nai_eleftheroseis,
                                                  &nai_omades,
                                                  &nai_miki,
                                                  &nai_fortiseis_si,
                                                  &nai_times_fortiseon_si,
                                                  &nai_fortiseis_om,
                                                  &nai_times_fortiseon_om,
                                                  &nai_times_M,
                                                  &nai_times_Q,
                                                  &nai_times_N,
                                                  &Q_sin_Ina,
                                                  &N_sin_Ina,
                                                  &xroma_background,
                                                  &xroma_aksonon,
                                                  &xroma_grid,
                                                  &xroma_stoixeion,
                                                  &xroma_kombon,
                                                  &xroma_sigkentromenon,
                                                  &xroma_omoiomorfon,
                                                  &xroma_M,
                                                  &xroma_Q,
                                                  &xroma_N,
                                                  &dekadika_M,
                                                  &dekadika_Q,
                                                  &dekadika_N,
                                                  &Ena_cm_posa_KNm_M,
                                                  &Ena_cm_posa_KN_Q,
                                                  &Ena_cm_posa_KN_N,
                                                  &Klimaka,
                                                  &Arxi_X,
                                                  &Arxi_Y,
                                                  &kannab,
                                                  &nai_graf_stir,
                                                  &Nai_Apolites_Sint,
                                                  &Nai_Sxetikes_Sint,
                                                  &xroma_paramorfosis,
                                                  &Ena_cm_posa_m_epi_1000,
                                                  &M_sin_Tension,
                                                  &nai_springs};
    ASSERT_EQ(variables.size(), 47U); // and the retired line, the second
    constexpr std::size_t firstLine = 50;
    for (std::size_t i = 0; i < variables.size(); ++i) {
        std::vector<std::string> lines = linesOf(small);
        std::string &text = lines[firstLine + i + (i == 0 ? 0 : 1)];
        const bool isSwitch = std::holds_alternative<bool *>(variables[i]);
        text = isSwitch ? text == "1" ? "0" : "1" : "7";
        read(joined(lines));
        std::visit(
            [&](const auto *variable) { EXPECT_EQ(*variable, isSwitch ? text == "1" : 7) << i; },
            variables[i]);
        std::string name = path("again.vsk");
        Apothikefsi_Arxeiou(name, true);
        EXPECT_EQ(contentOf(name), joined(lines)) << i;
    }
}

TEST_F(ModelFile, EarlierStagesSetTheirOwnSubstitutesAndNoOthers)
{
    struct Case
    {
        int lastLine;
        std::vector<double> view;
    };
    for (const Case &c : {
             // Arxi_X, Arxi_Y, kannab, nai_graf_stir, Apolites, Sxetikes, paramorfosis, D scale,
             // Tension, springs
             Case{38, {-2, 2, 1, 1, 1, 0, 5, 6, 0, 0}},
             Case{42, {-2, 2, 1, 1, 0, 1, 5, 6, 0, 0}},
             Case{44, {-2, 2, 1, 1, 0, 1, 16711680, 100, 0, 0}},
             Case{46, {-2, 2, 1, 1, 0, 1, 16711680, 100, 1, 1}},
             Case{48, {-2, 2, 1, 1, 0, 1, 16711680, 100, 1, 1}},
         }) {
        resetStore();
        Arxi_X = 8;
        Arxi_Y = 9;
        kannab = 7;
        nai_graf_stir = Nai_Sxetikes_Sint = M_sin_Tension = nai_springs = false;
        Nai_Apolites_Sint = true;
        xroma_paramorfosis = 5;
        Ena_cm_posa_m_epi_1000 = 6;
        read(ofStage(c.lastLine));
        EXPECT_THAT((std::vector<double>{Arxi_X, Arxi_Y, kannab, nai_graf_stir ? 1. : 0.,
                                         Nai_Apolites_Sint ? 1. : 0., Nai_Sxetikes_Sint ? 1. : 0.,
                                         xroma_paramorfosis, Ena_cm_posa_m_epi_1000,
                                         M_sin_Tension ? 1. : 0., nai_springs ? 1. : 0.}),
                    testing::ElementsAreArray(c.view))
            << c.lastLine;
        EXPECT_EQ(Elatiria(2, 2), c.lastLine == 48 ? 5000 : 0);
        EXPECT_EQ(Onoma_Arxeiou, path("m.vsk"));
        EXPECT_EQ(Idio_Me_To_Arxeio(), c.lastLine == 48); // an earlier stage always differs
    }
}

TEST_F(ModelFile, WhatTheProgramCannotHaveWrittenIsRefused)
{
    struct Case
    {
        int line;
        const char *text;
        const char *says;
    };
    for (const Case &c : {
             Case{8, "301", "at most 300 groups, found '301'"},
             Case{8, "-1", "the number of groups expected, found '-1'"},
             Case{8, "1.5", "the number of groups expected, found '1.5'"},
             Case{11, "abc", "Young's modulus E expected, found 'abc'"},
             Case{12, "", "a section area A expected, found ''"},
             Case{12, "1e999", "a section area A expected, found '1e999'"},
             Case{13, "nan", "a section moment of inertia I expected, found 'nan'"},
             Case{16, "201", "at most 200 nodes, found '201'"},
             Case{19, "1e39", "an x coordinate expected, found '1e39'"},
             Case{21, "2", "a restraint (0 or 1) expected, found '2'"},
             Case{39, "1e300", "at most 300 elements, found '1e300'"},
             Case{42, "0", "node 0 of 2"},
             Case{43, "3", "node 3 of 2"},
             Case{43, "1.5", "a node of the model expected, found '1.5'"},
             Case{44, "2", "group 2 of 1"},
             Case{45, "-1", "a hinge (0 or 1) expected, found '-1'"},
             Case{48, "inf", "an elemental load wy expected, found 'inf'"},
             Case{51, "on", "a view setting expected, found 'on'"},
             Case{83, "32768", "a view setting expected, found '32768'"},
             Case{83, "2.5", "a view setting expected, found '2.5'"},
             Case{88, "1e39", "a view setting expected, found '1e39'"},
             Case{89, "END of vesk Input File",
                  "a view setting expected, found 'END of vesk Input File'"},
             Case{100, "201", "at most 200 springs, found '201'"},
             Case{101, "3", "node 3 of 2"},
             Case{102, "\x1B[2Jé\xE9\xC2\x9B\xE2\x80\xAE",
                  "a spring constant expected, found '\\x1B[2Jé\\xE9\\xC2\\x9B\\xE2\\x80\\xAE'"},
             Case{102, "\u200B\u200F\uFEFF\u00AD",
                  "a spring constant expected, found "
                  "'\\xE2\\x80\\x8B\\xE2\\x80\\x8F\\xEF\\xBB\\xBF\\xC2\\xAD'"},
             Case{103, "39 bytes and then a letter of two bytesäb",
                  "a spring constant expected, found '39 bytes and then a letter of two bytes...'"},
         }) {
        SCOPED_TRACE(c.says);
        std::vector<std::string> lines = linesOf(small);
        lines[static_cast<std::size_t>(c.line - 1)] = c.text;
        refuse(joined(lines), "Line " + std::to_string(c.line) + ": " + c.says);
    }
    std::string comma = small;
    comma.replace(comma.find("0.01"), 4, "0,01");
    refuse(comma,
           "Line 15: the number of nodes expected, found 'Komboi' (the comma in line 12 ended an "
           "item: the decimal separator is the point)");
    std::vector<std::string> lines = linesOf(small);
    lines[9] = std::string(5000, 'x'); // a row number, which nobody looks at
    refuse(joined(lines), "Line 10: an item longer than 4096 bytes");
}

TEST_F(ModelFile, EveryCutOfAFileIsRefusedOrReadWhole)
{
    const std::vector<std::string> lines = linesOf(small);
    for (std::size_t kept = 0; kept + 1 < lines.size(); ++kept)
        refuse(joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept)}),
               "Input past end of file in line " + std::to_string(kept + 1));
    read(joined({lines.begin(), lines.end() - 1})); // the end line itself is not read
    EXPECT_EQ(Onoma_Arxeiou, path("m.vsk"));
}

TEST_F(ModelFile, OddButHarmlessFilesAreRead)
{
    std::vector<std::string> lines = linesOf(small);
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
        Allagi_Montelou = false;
        Klimaka = 77;
        Onoma_Arxeiou = "old.vsk";
        desktop.caption = "old";
        desktop.expectMessage(wrongBanner, Icon::critical);
        read(content);
        EXPECT_EQ(desktop.log.back(), (LogLine{wrongBanner, red, true}));
        EXPECT_FALSE(Allagi_Montelou);
        EXPECT_EQ(Klimaka, 77);
        EXPECT_EQ(Arithmos_Kombon, 1);
        EXPECT_EQ(Onoma_Arxeiou, "old.vsk");
        EXPECT_EQ(desktop.caption, "old");
    }
}

TEST_F(ModelFile, WhatIsNoFileIsRefusedAndNeverWaitedFor)
{
    fs::create_directory(path("folder"));
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    for (const auto &[name, says] : {std::pair{"missing", "No such file or directory"},
                                     {"folder", "Is a directory"},
                                     {"pipe", "It is not a regular file"}}) {
        desktop.expectMessage(notOpened + " " + path(name) + ": " + says, Icon::critical);
        std::string file = path(name);
        Anagnosi_Arxeiou(file);
        EXPECT_EQ(Onoma_Arxeiou, "");
    }
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
    struct Case
    {
        const char *old, *proposed, *chosen, *written;
    };
    for (const Case &c : {Case{"", "Untitled", "a", "a.vsk"},
                          {"model.vsk", "model", "b.vsk", "b.vsk"},
                          {"model.vsk", "model", "c.VSK", "c.VSK.vsk"}}) {
        Onoma_Arxeiou = c.old;
        desktop.expectFileDialog(path(c.chosen));
        std::string name;
        EXPECT_TRUE(Apothikefsi_Arxeiou(name, false));
        EXPECT_EQ(desktop.fileQuestions.back().proposed, c.proposed);
        EXPECT_EQ(desktop.fileQuestions.back().filter, "Kalvorn Veskora files (*.vsk)|*.vsk");
        EXPECT_EQ(Onoma_Arxeiou, path(c.written));
        EXPECT_EQ(desktop.caption, path(c.written) + " - " + title);
        EXPECT_EQ(desktop.log.back(), (LogLine{"Save file: " + path(c.written), black, true}));
        EXPECT_TRUE(fs::exists(path(c.written)));
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
    std::string name = path("s.vsk");
    Apothikefsi_Arxeiou(name, false);
    EXPECT_THAT(contentOf(name),
                testing::HasSubstr("Elatiria\r\n1\r\n2\r\n-5\r\n0\r\n3\r\nEND of"));
    Anagnosi_Arxeiou(name);
    EXPECT_EQ(Elatiria(1, 1), 0);
    EXPECT_EQ(Elatiria(2, 1), -5);
}

TEST_F(ModelFile, AModelAtTheLimitReadsBackAsTheSameText)
{
    std::mt19937 random(3);
    buildRandomFrame(random, 200);
    while (Arithmos_Stoixeion < maxElements)
        addElement(1, 2);
    while (Arithmos_Omadon < maxGroups)
        addGroup(1.0 / Arithmos_Omadon, 1e-300, 1e300);
    std::string first = path("1.vsk"), second = path("2.vsk");
    Apothikefsi_Arxeiou(first, true);
    Anagnosi_Arxeiou(first);
    EXPECT_EQ(Arithmos_Omadon, 300);
    Apothikefsi_Arxeiou(second, true);
    EXPECT_EQ(contentOf(first), contentOf(second));
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

TEST_F(ChangeTest, ASecondRunningCopyHasItsScratchFileElsewhere)
{
    fs::create_directory(path("other"));
    const int lock = ::open(path("other").c_str(), O_RDONLY);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const std::string folder = scratchFolder(path("other"));
    ::close(lock);
    EXPECT_NE(folder, path("other"));
    EXPECT_TRUE(isWritableFolder(folder));
    struct stat status = {};
    ::stat(folder.c_str(), &status);
    EXPECT_EQ(status.st_mode & 0077, 0U);
    EXPECT_EQ(scratchFolder(path("")), path(""));
}

using WholeFile = ModelFile;

TEST_F(WholeFile, AFailedSaveLeavesTheOldFileAndTheOldName)
{
    fs::create_directory(path("folder.vsk"));
    ASSERT_EQ(::mkfifo(path("pipe.vsk").c_str(), 0600), 0);
    for (const auto &[name, says] : {std::pair{"folder.vsk", "Is a directory"},
                                     {"pipe.vsk", "It is not a regular file"},
                                     {"none/m.vsk", "No such file or directory"}}) {
        Onoma_Arxeiou = "old.vsk";
        std::string file = path(name);
        const std::string text = "There was an error saving the file: " + file + ": " + says;
        desktop.expectMessage(text, Icon::critical);
        EXPECT_FALSE(Apothikefsi_Arxeiou(file, false));
        EXPECT_EQ(desktop.log.back(), (LogLine{text, red}));
        EXPECT_EQ(Onoma_Arxeiou, "old.vsk");
    }
    EXPECT_TRUE(fs::is_fifo(path("pipe.vsk")));
}

TEST_F(WholeFile, LinksAreFollowedAndModesKept)
{
    fs::create_directory(path("real"));
    write(path("real/m.vsk"), "old");
    ::chmod(path("real/m.vsk").c_str(), 0640);
    fs::create_symlink("real/m.vsk", path("link.vsk"));
    writeWholeFile(path("link.vsk"), "new", Durability::onDisk);
    EXPECT_TRUE(fs::is_symlink(path("link.vsk")));
    EXPECT_EQ(contentOf(path("real/m.vsk")), "new");
    EXPECT_EQ(fs::status(path("real/m.vsk")).permissions(), fs::perms(0640));
    fs::create_symlink("real/new.vsk", path("dangling.vsk"));
    writeWholeFile(path("dangling.vsk"), "new", Durability::onDisk);
    EXPECT_EQ(contentOf(path("real/new.vsk")), "new");
    fs::create_symlink("loop", path("loop"));
    EXPECT_THROW(writeWholeFile(path("loop"), "new", Durability::onDisk), Fault);
}

// Whatever refuses, and whether a new file takes the place of the old one or not: owner, group,
// mode, access list and links stay, and the old content is nowhere lost.
TEST_F(WholeFile, TheOldFileOrTheNewOneIsThereWithAllItHas)
{
    enum Kind { plain, linked, foreign, listed };
    struct Case
    {
        Kind kind;
        std::vector<Refusal> refused;
        bool sameFile;
        std::string fault; ///< none: the new content is there
    };
    const std::string full = "No space left on device", broken = "Input/output error";
    const std::string damaged = full + "; the old file is damaged, ";
    for (const Case &c : {
             Case{plain, {}, false, ""}, Case{plain, {{"fsync", EINVAL}}, false, ""},
             Case{plain, {{"fsync", EOPNOTSUPP}}, false, ""},
             Case{plain, {{"fsync", EIO}}, true, broken},
             Case{plain, {{"write", ENOSPC}}, true, full},
             Case{plain, {{"fchmod", EPERM}}, true, ""}, Case{linked, {}, true, ""},
             Case{foreign, {}, false, ""},
             Case{foreign, {{"fchown", EPERM, 2}}, true, ""}, // the owner, not the group
             Case{listed, {}, true, ""},
             // The first write is that of the copy, the third the writing back.
             Case{linked, {{"read", EIO}}, true, broken},
             Case{linked, {{"write", ENOSPC, 2, 2}}, true, full},
             Case{linked, {{"write", ENOSPC, 2}}, true, damaged + "its content is kept in "},
             Case{linked, {{"write", ENOSPC}}, true, damaged + "and its content could not be kept"},
             Case{linked, {{"write", ENOSPC, 1, 5}}, true, damaged + "its content is kept in "},
             Case{linked, {{"fsync", EIO}}, true, broken}, // but it is written back
         }) {
        SCOPED_TRACE(testing::Message() << c.kind << (c.refused.empty() ? "" : c.refused[0].call));
        const std::string folder = path("folder/"), file = folder + "m.vsk",
                          old = "the old content", content = "a new one, which is longer";
        fs::remove_all(folder);
        fs::create_directory(folder);
        write(file, old);
        ::chmod(file.c_str(), 0640);
        if (c.kind == linked)
            fs::create_hard_link(file, folder + "other name");
        if (c.kind == foreign && ::chown(file.c_str(), 65534, 65533) != 0)
            continue; // only the superuser can
        // Tag, permission and user of each entry: owner rw, user 1234 r, group r, mask r, others -.
        constexpr std::uint16_t any = 0xFFFF;
        constexpr std::uint16_t list[] = {2, 0,   1,   6,  any, any, 2,   4,  1234, 0,   4,
                                          4, any, any, 16, 4,   any, any, 32, 0,    any, any};
        if (c.kind == listed
            && ::setxattr(file.c_str(), "system.posix_acl_access", list, sizeof(list), 0) != 0)
            continue; // the file system has none
        struct stat before = {}, after = {};
        ::stat(file.c_str(), &before);
        std::string fault;
        refusals = c.refused;
        try {
            writeWholeFile(file, content, Durability::onDisk);
        } catch (const Fault &thrown) {
            fault = thrown.facts();
        }
        refusals.clear();
        ::stat(file.c_str(), &after);
        EXPECT_EQ(before.st_ino == after.st_ino, c.sameFile);
        EXPECT_TRUE(before.st_mode == after.st_mode && before.st_uid == after.st_uid
                    && before.st_gid == after.st_gid);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), c.kind == linked ? 2 : 1);
        const fs::path recovery = path("data/Recovery");
        std::string kept;
        std::error_code none;
        for (const auto &copy : fs::directory_iterator(recovery, none))
            kept += copy.path();
        EXPECT_EQ(fault, c.fault + kept);
        EXPECT_EQ(kept.empty(), !c.fault.ends_with("kept in "));
        if (!c.fault.starts_with(damaged)) {
            EXPECT_EQ(contentOf(file), c.fault.empty() ? content : old);
        } else if (!kept.empty()) {
            EXPECT_EQ(contentOf(kept), old);
        }
        fs::remove_all(recovery);
    }
}

// As a user who owns the file but may not make new ones beside it; only the superuser can become
// one.
TEST_F(WholeFile, AFolderThatForbidsNewFilesIsWrittenInPlaceAndAProtectedFileIsNot)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs the superuser to become another user";
    constexpr uid_t nobody = 65534;
    for (const char *name : {"mine.vsk", "protected.vsk"})
        write(path(name), "a longer old content");
    ASSERT_EQ(::chown(path("mine.vsk").c_str(), nobody, nobody), 0);
    ::chmod(path("protected.vsk").c_str(), 0644);
    ::chmod(path("").c_str(), 0755);
    const std::string folder = path("");
    EXPECT_EXIT(
        {
            if (::setuid(nobody) != 0)
                std::exit(1);
            writeWholeFile(folder + "mine.vsk", "new", Durability::onDisk);
            try {
                writeWholeFile(folder + "protected.vsk", "new", Durability::onDisk);
            } catch (const Fault &) {
                std::exit(7);
            }
        },
        testing::ExitedWithCode(7), "");
    EXPECT_EQ(contentOf(path("mine.vsk")), "new");
    EXPECT_EQ(contentOf(path("protected.vsk")), "a longer old content");

    // In a folder of one's own a rename would get past the protection of the file.
    fs::create_directory(path("open"));
    write(path("open/protected.vsk"), "old");
    ::chmod(path("open").c_str(), 0777);
    EXPECT_EXIT(
        {
            if (::setuid(nobody) != 0)
                std::exit(1);
            try {
                writeWholeFile(folder + "open/protected.vsk", "new", Durability::onDisk);
            } catch (const Fault &fault) {
                std::exit(fault.facts() == "Permission denied" ? 7 : 8);
            }
        },
        testing::ExitedWithCode(7), "");
    EXPECT_EQ(contentOf(path("open/protected.vsk")), "old");
}

} // namespace
} // namespace veskora
