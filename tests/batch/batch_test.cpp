#include "Files.h"
#include "Metablites.h"
#include "Models.h"
#include "ModelText.h"
#include "QtDrawings.h"
#include "Registry.h"
#include "ScriptedDesktop.h"
#include "Settings.h"
#include "Version.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <map>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace veskora {
namespace {

using testing::HasSubstr;

class Batch : public StoreTest
{
protected:
    int run(const std::vector<std::string> &arguments)
    {
        out.str("");
        err.str("");
        return runBatch(arguments, out, err, qtDrawings());
    }
    std::ostringstream out, err;
    const std::string small = TEST_DATA "/small.vsk";
};

TEST_F(Batch, EveryExampleIsAnalysedAndWrittenAsTheProgramWritesIt)
{
    const std::set<fs::path> faulty = {"empty", "unstable_portal"};
    std::vector<std::string> arguments = {"--check", "--out", path("reports/new")};
    for (const auto &entry : fs::directory_iterator(EXAMPLES))
        if (entry.path().extension() == ".vsk" && !faulty.contains(entry.path().stem()))
            arguments.push_back(entry.path());
    ASSERT_GE(arguments.size(), 10U);
    EXPECT_EQ(run(arguments), batchStatus::allAnalysed) << err.str();
    EXPECT_THAT(err.str(), testing::Not(HasSubstr("mechanism")));
    EXPECT_THAT(err.str(), testing::Not(HasSubstr("not connected")));
    setDesktop(&desktop);
    for (auto model = arguments.begin() + 3; model != arguments.end(); ++model) {
        EXPECT_GT(fs::file_size(path("reports/new/" + fs::path(*model).stem().string() + ".txt")),
                  1000U);
        std::string name = *model, copy = path("copy.vsk");
        Anagnosi_Arxeiou(name);
        Apothikefsi_Arxeiou(copy, true);
        EXPECT_EQ(contentOf(copy), contentOf(*model)) << *model;
    }
}

// Models are written into it by hand, and by scripts.
TEST_F(Batch, TheEmptyExampleIsANewModelAsTheProgramSavesIt)
{
    Fortosi_Rithmiseon();
    EXPECT_EQ(contentOf(EXAMPLES "/empty.vsk"), modelText());
}

TEST_F(Batch, AFailureOfOneModelDoesNotKeepTheNextFromItsTurn)
{
    const std::string content = contentOf(small);
    const auto changed = [&](const char *name, const char *from, const char *to) {
        std::string text = content;
        text.replace(text.find(from), std::string(from).size(), to);
        write(path(name), text);
        return path(name);
    };
    const std::vector<std::string> arguments = {
        "-",
        "--check",
        "--summary",
        path("summary.csv"),
        path("missing.vsk"),
        changed("banner.vsk", "VESK!", "VESK?"),
        changed("length.vsk", "\r\n4\r\n", "\r\n0\r\n"), // both nodes at one place
        changed("free.vsk", "0\r\n0\r\n1\r\n1\r\n1\r\n", "0\r\n0\r\n0\r\n0\r\n0\r\n"),
        small};
    EXPECT_EQ(run(arguments), batchStatus::someFailed);
    EXPECT_THAT(out.str(), testing::StartsWith("Check of the analysis\r\nlength.vsk\r\n"));
    EXPECT_THAT(out.str(), HasSubstr("\r\nCheck of the analysis\r\nfree.vsk\r\n"));
    EXPECT_THAT(out.str(), HasSubstr("\r\nData\r\n"));
    EXPECT_THAT(out.str(), HasSubstr("\r\n\r\nCheck of the analysis\r\nsmall.vsk\r\n"));
    EXPECT_THAT(out.str(), HasSubstr("\r\n2        0                       -.0016710182767624      "
                                     " -.000626631853785901     \r\n"));
    for (const char *says :
         {"missing.vsk: not read", "banner.vsk: not read", "free.vsk: not analysed",
          "length.vsk: Division by zero: element 1 has no length", "Total time:"})
        EXPECT_THAT(err.str(), HasSubstr(says));
    EXPECT_THAT(contentOf(path("summary.csv")),
                testing::ContainsRegex("/missing.vsk,unreadable,+\n.*/banner.vsk,unreadable,+\n"
                                       ".*/length.vsk,singular,+\n.*/free.vsk,singular,+\n"
                                       ".*/small.vsk,ok,.*[^,]\n$"));
}

TEST_F(Batch, AFreeMotionThatNoLoadStirsFailsTheCheckAndNotTheAnalysis)
{
    buildModel("G 2e8 .01 1e-4; N 0 0 xxo; N 3 4; N 8 5; E 1 2 1; E 2 3 1");
    std::string model = path("turns.vsk");
    ASSERT_TRUE(Apothikefsi_Arxeiou(model, true));
    EXPECT_EQ(run({"--out", path(""), "--summary", path("s.csv"), model}),
              batchStatus::allAnalysed);
    EXPECT_THAT(contentOf(path("s.csv")), HasSubstr("turns.vsk,mechanism,"));
    EXPECT_EQ(run({"--out", path(""), "--strict", model}), batchStatus::someFailed);
    EXPECT_EQ(run({"--out", path(""), "--check", model}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), testing::EndsWith("turns.vsk: the structure can move freely\n"));
    EXPECT_THAT(contentOf(path("turns.txt")),
                testing::StartsWith("The structure is probably a mechanism.\r\n\r\nData\r\n"));
    EXPECT_THAT(contentOf(path("turns_check.txt")),
                testing::StartsWith("Check of the analysis\r\nturns.vsk\r\n\r\n"
                                    "Fault: Nodes 2 and 3 turn together round node 1\r\n"));
}

/// The table @p file as Python's csv module reads it; numbers come as their exact bits.
std::vector<std::vector<std::string>> readByPython(const std::string &file)
{
    const std::string command = PYTHON R"( -c '
import csv, sys
def exact(cell):
    try: return float(cell).hex()
    except ValueError: return cell
for row in csv.reader(open(sys.argv[1], newline="")):
    print("\x1f".join(map(exact, row)), end="\x1e")' )"
                                + file;
    std::string text;
    FILE *pipe = popen(command.c_str(), "r");
    for (int c = 0; pipe != nullptr && (c = std::fgetc(pipe)) != EOF;)
        text += static_cast<char>(c);
    EXPECT_EQ(pipe == nullptr ? -1 : pclose(pipe), 0);
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line, '\x1e');) {
        std::istringstream cells(line + '\x1f');
        rows.emplace_back();
        for (std::string cell; std::getline(cells, cell, '\x1f');)
            rows.back().push_back(cell);
    }
    return rows;
}

// A beam of 6 with a cantilever of 2 behind it, 10 per length, from an upright held at its foot.
// Over the support M = -20; the span's reaction at its hinge is 30 - 20/6 and its largest M half
// its square over 10.
TEST_F(Batch, TablesReadBackInPythonToTheVeryDoubles)
{
    buildModel("G 2e8 .01 1e-4; N 0 -3 xxx; N 0 0; N 6 0; N 8 0; S 3 0 12345 0;"
               "E 1 2 1; E 2 3 1 1 0 0 -10; E 3 4 1 0 0 0 -10");
    std::string model = path("a, \"b\"\n.vsk");
    ASSERT_TRUE(Apothikefsi_Arxeiou(model, true));
    ASSERT_EQ(
        run({"--csv", "--values", "2", "--summary", path("summary.csv"), "--out", path(""), model}),
        batchStatus::allAnalysed)
        << err.str();
    std::map<std::string, std::vector<std::vector<std::string>>> tables;
    for (const char *ending : {"_ends", "_spans", "_nodes", "_values"}) {
        fs::rename(path("a, \"b\"\n") + ending + ".csv", path("table.csv"));
        EXPECT_EQ(contentOf(path("table.csv")).find('\r') != std::string::npos,
                  std::string(ending) == "_values");
        tables[ending] = readByPython(path("table.csv"));
    }
    tables["summary"] = readByPython(path("summary.csv"));
    EXPECT_EQ(tables["summary"].at(1).at(0), model);
    EXPECT_EQ(tables["_nodes"].at(4).at(5), ""); // free
    EXPECT_EQ(tables["_ends"].at(4).at(1), "j");

    struct Case
    {
        const char *table;
        std::size_t row; ///< the first is that of the names
        const char *column;
        double value;
        double tolerance = 0; ///< 0: to the bit
    };
    constexpr double closedForm = 1e-9;
    const double support = 30 - 20.0 / 6;
    for (const Case &c : {
             Case{"_ends", 1, "N", -Entasi_Topiki(1, 1)},
             {"_ends", 3, "axial_force", Entasi_Topiki(2, 1)},
             {"_ends", 3, "Q", support, closedForm},
             {"_ends", 4, "node", 3},
             {"_ends", 4, "M", -20, closedForm},
             {"_ends", 4, "shear_force", Entasi_Topiki(2, 5)},
             {"_ends", 5, "M", -20, closedForm},
             {"_ends", 5, "moment", 20, closedForm},
             {"_spans", 1, "element", 2},
             {"_spans", 1, "x", support / 10, closedForm},
             {"_spans", 1, "M", support * support / 20, closedForm},
             {"_nodes", 4, "uy", Metatopiseis(11)},
             {"_nodes", 4, "rotation", Metatopiseis(12)},
             {"_nodes", 1, "Ry", Antidraseis(1, 2)},
             {"_nodes", 3, "Ry", 80 - support, closedForm},
             {"_values", 5, "x", support / 10, closedForm},
             {"_values", 5, "M", support * support / 20, closedForm},
             {"_values", 5, "Q", 0},
             {"_values", 9, "x/L", 1},
             {"_values", 9, "dx", Metatopiseis(7)},
             {"_values", 12, "dy", Metatopiseis(11), 1e-15},
             {"summary", 1, "max_M", support * support / 20, closedForm},
             {"summary", 1, "max_M_element", 2},
             {"summary", 1, "min_M", -20, closedForm},
             {"summary", 1, "max_displacement", Akrotata(7)},
             {"summary", 1, "max_displacement_node", 3},
             {"summary", 1, "loads_y", -80, closedForm},
             {"summary", 1, "reactions_y", 80, closedForm},
         }) {
        const auto &table = tables.at(c.table);
        const auto column = std::ranges::find(table.at(0), c.column) - table.at(0).begin();
        const std::string cell = table.at(c.row).at(static_cast<std::size_t>(column));
        EXPECT_NEAR(std::strtod(cell.c_str(), nullptr), c.value, c.tolerance)
            << c.table << ' ' << c.column << ' ' << c.row;
    }
    EXPECT_EQ(tables["_spans"].size(), 2U); // that of the cantilever is at its free end
}

TEST_F(Batch, AnUnconnectedNodeIsReportedAndKeptAndSettingsDoNotLeakIntoTheNextModel)
{
    std::string name = path("loose.vsk");
    std::string text = contentOf(small);
    text.replace(text.find("Komboi\r\n2"), 9, "Komboi\r\n3");
    text.replace(text.find("Stoixeia"), 0, "3\r\n9\r\n9\r\n1\r\n1\r\n1\r\n0\r\n0\r\n0\r\n\r\n");
    write(name, text);
    Nai_Agglika = false;
    Klimaka = 7;
    nai_grid = false;
    EXPECT_EQ(run({"--out", path(""), "--", name, path("missing.vsk")}), batchStatus::someFailed);
    EXPECT_EQ(Klimaka, 100);
    EXPECT_TRUE(nai_grid);
    EXPECT_THAT(err.str(), HasSubstr("Node #3 is not connected"));
    EXPECT_THAT(contentOf(path("loose.txt")), HasSubstr("Nodes:                      3\r\n"));
    EXPECT_THAT(contentOf(path("loose.txt")), testing::EndsWith("\r\n\r\n"));
}

TEST_F(Batch, WrongUsageIsToldApartFromFailure)
{
    for (const std::vector<std::string> &arguments : {std::vector<std::string>{},
                                                      {"--pix", small},
                                                      {"--out"},
                                                      {"--out", path("x")},
                                                      {"--csv", "-", small},
                                                      {"--summary", small, small},
                                                      {"--summary", "--csv", small},
                                                      {"--summary", path("new.VSK"), small},
                                                      {"--summary", path(".vsk"), small},
                                                      {"--out", "--check", small},
                                                      {"--summary", "-", "-", small},
                                                      {"--values", "-", small},
                                                      {"--values", "101", small},
                                                      {"--values=", small},
                                                      {"--values=2.5", small},
                                                      {"--regional", small},
                                                      {"--jobs", "0", small},
                                                      {"--jobs", "257", small},
                                                      {"--jobs", "2.5", small},
                                                      {"--jobs", "--check", small},
                                                      {"--fit", small},
                                                      {"--label-scale", "2", small},
                                                      {"--pictures=", small},
                                                      {"--pictures=svg,gif", small},
                                                      {"--pictures=svg,", small},
                                                      {"--steps-digits", "4", small},
                                                      {"--steps-elements", "1", small},
                                                      {"--steps", "--steps-digits", "2.5", small},
                                                      {"--steps", "--steps-elements", "3-1", small},
                                                      {"--steps", "--steps-elements", "1,", small},
                                                      {"--steps", "--steps-elements", "0", small},
                                                      {"--steps", "--steps-elements", "2-", small},
                                                      {"--pictures", "--label-scale", "9", small},
                                                      {"--pictures", "--size", "1920", small},
                                                      {"--pictures", "--size", "1920x", small},
                                                      {"--pictures", "--size", "1920x1080p", small},
                                                      {"--pictures", "--size", "100x9000", small}})
        EXPECT_EQ(run(arguments), batchStatus::wrongUsage) << testing::PrintToString(arguments);
    EXPECT_EQ(run({"--help"}), batchStatus::allAnalysed);
    EXPECT_THAT(out.str(), testing::StartsWith("Usage: Veskora_batch"));
    out.str("");
    EXPECT_EQ(run({"--version"}), batchStatus::allAnalysed);
    EXPECT_THAT(out.str(),
                testing::StartsWith(std::string("Veskora_batch ") + programVersion + "\n"));

    EXPECT_EQ(run({"-", "--out", path("x"), small}), batchStatus::wrongUsage);
    EXPECT_EQ(run({"-", ""}), batchStatus::wrongUsage);
    EXPECT_FALSE(fs::exists(path("x")));
}

TEST_F(Batch, NoStepsAreMadeOfElementsThatTheModelLacks)
{
    EXPECT_EQ(run({"--steps", "--steps-elements", "200-202", "--out", path(""), small}),
              batchStatus::someFailed);
    EXPECT_THAT(err.str(),
                HasSubstr("the model has no elements 200 to 202, none of those to show"));
    EXPECT_FALSE(fs::exists(path("small_steps.html")));
}

TEST_F(Batch, AReportReplacesNoModelAndNoOtherReportOfTheRun)
{
    fs::create_directory(path("a"));
    fs::copy_file(small, path("a/small.vsk"));
    EXPECT_EQ(run({"--out", path(""), small, path("a/small.vsk")}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("small.txt was written in this run already"));

    fs::copy_file(small, path("b.csv")); // no model of the run, as its name has gone astray
    EXPECT_EQ(run({"--out", path(""), "--summary", path("b.csv"), small}), batchStatus::wrongUsage);
    EXPECT_EQ(contentOf(path("b.csv")), contentOf(small));

    fs::copy_file(small, path("mod.txt"));
    EXPECT_EQ(run({"--out", path(""), path("mod.txt")}), batchStatus::someFailed);
    fs::create_symlink("a/small.vsk", path("a/link.txt"));
    fs::create_symlink("small.vsk", path("a/link.vsk"));
    EXPECT_EQ(run({"--out", path("a"), path("a/link.vsk")}), batchStatus::someFailed);
    fs::copy_file(small, path("small_check.txt"));
    EXPECT_EQ(run({"--check", "--out", path(""), small, path("small_check.txt")}),
              batchStatus::someFailed);
    fs::copy_file(small, path("small_nodes.csv"));
    EXPECT_EQ(run({"--csv", "--out", path(""), small, path("small_nodes.csv")}),
              batchStatus::someFailed);
    EXPECT_EQ(run({"--summary", path("mod.txt"), "--out", path("b"), path("mod.txt")}),
              batchStatus::wrongUsage);
    EXPECT_EQ(run({"--summary", path("b/./small.txt"), "--out", path("b"), small}),
              batchStatus::someFailed);
    EXPECT_THAT(contentOf(path("b/small.txt")), testing::StartsWith("Data"));
    EXPECT_EQ(contentOf(path("small_nodes.csv")), contentOf(small));
    EXPECT_EQ(contentOf(path("mod.txt")), contentOf(small));
    EXPECT_EQ(contentOf(path("small_check.txt")), contentOf(small));
    EXPECT_EQ(contentOf(path("a/small.vsk")), contentOf(small));

    write(path("a/small.vsk"), "broken");
    EXPECT_EQ(run({"--out", path(""), path("a/small.vsk")}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("small.txt is from an earlier run"));
    write(path("small_check.txt"), "Check of the analysis");
    EXPECT_EQ(run({"--check", "--out", path(""), path("a/small.vsk")}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("small_check.txt is from an earlier run"));
    EXPECT_EQ(run({"--csv", "--out", path(""), path("a/small.vsk")}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("small_ends.csv is from an earlier run"));
    EXPECT_EQ(run({"--out", path("mod.txt"), small}), batchStatus::someFailed);
}

} // namespace
} // namespace veskora
