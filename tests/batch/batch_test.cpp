#include "DataCases.h"
#include "Files.h"
#include "Metablites.h"
#include "Models.h"
#include "ModelText.h"
#include "QtDrawings.h"
#include "Registry.h"
#include "ScriptedDesktop.h"
#include "Settings.h"
#include "Version.h"

#include <cstdlib>
#include <fstream>
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
    /// Runs with the words of @p line: "small" is the model, "@" stands for the test's folder.
    int runLine(const std::string &line)
    {
        std::vector<std::string> arguments;
        std::istringstream words(line);
        for (std::string word; words >> word;)
            arguments.push_back(word == "small"         ? small
                                : word.starts_with('@') ? path(word.substr(1))
                                                        : word);
        return run(arguments);
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

/// The cells of the table @p file by row and column's name ("1 M"), as Python's csv module reads
/// them; numbers come as their exact bits.
std::map<std::string, std::string> readByPython(const std::string &file)
{
    const std::string program = R"(
import csv, sys
def exact(cell):
    try: return float(cell).hex()
    except ValueError: return cell
for n, row in enumerate(csv.DictReader(open(sys.argv[1], newline="")), 1):
    for name, cell in row.items(): print(f"{n} {name}\x1f{exact(cell)}", end="\x1e"))";
    const std::string command =
        PYTHON " -c '" + program + "' '" + file + "' > '" + file + "_cells'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    std::ifstream text(file + "_cells");
    std::map<std::string, std::string> cells;
    for (std::string cell; std::getline(text, cell, '\x1e');)
        cells[cell.substr(0, cell.find('\x1f'))] = cell.substr(cell.find('\x1f') + 1);
    return cells;
}

TEST_F(Batch, TablesReadBackInPythonToTheVeryDoubles)
{
    buildModel("G 2e8 .01 1e-4; N 0 -3 xxx; N 0 0; N 6 0; N 8 0; S 3 0 12345 0;"
               "E 1 2 1; E 2 3 1 1 0 0 -10; E 3 4 1 0 0 0 -10");
    std::string model = path("a, \"b\"\n.vsk");
    ASSERT_TRUE(Apothikefsi_Arxeiou(model, true));
    ASSERT_EQ(
        run({"--csv", "--values", "2", "--summary", path("summary"), "--out", path(""), model}),
        batchStatus::allAnalysed)
        << err.str();
    std::map<std::string, std::map<std::string, std::string>> tables;
    for (const char *table : {"ends", "spans", "nodes", "values"}) {
        fs::rename(path("a, \"b\"\n_") + table + ".csv", path(table));
        EXPECT_EQ(contentOf(path(table)).find('\r') != std::string::npos,
                  std::string(table) == "values");
        tables[table] = readByPython(path(table));
    }
    tables["summary"] = readByPython(path("summary"));
    EXPECT_EQ(tables["summary"].at("1 model"), model);
    EXPECT_EQ(tables["nodes"].at("4 Rx"), ""); // free
    EXPECT_EQ(tables["ends"].at("4 end"), "j");
    EXPECT_FALSE(tables["spans"].contains("2 M")); // that of the cantilever is at its free end

    const auto expectCell = [&](const std::string &at, double value, double tolerance) {
        const std::string &cell =
            tables.at(at.substr(0, at.find(' '))).at(at.substr(at.find(' ') + 1));
        EXPECT_NEAR(std::strtod(cell.c_str(), nullptr), value, tolerance) << at;
    };
    for (const auto &[at, value] : dataCases("table_cells.txt"))
        expectCell(at, std::stod(value), 1e-9);
    for (const auto &[at, value] : {std::pair{"ends 1 N", -Entasi_Topiki(1, 1)},
                                    {"ends 3 axial_force", Entasi_Topiki(2, 1)},
                                    {"ends 4 shear_force", Entasi_Topiki(2, 5)},
                                    {"nodes 4 uy", Metatopiseis(11)},
                                    {"nodes 4 rotation", Metatopiseis(12)},
                                    {"nodes 1 Ry", Antidraseis(1, 2)},
                                    {"values 9 dx", Metatopiseis(7)},
                                    {"summary 1 max_displacement", Akrotata(7)}})
        expectCell(at, value, 0);
    expectCell("values 12 dy", Metatopiseis(11), 1e-15);
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
    auto cases = dataCases("wrong_usage.txt");
    cases.emplace_back("--title " + std::string(201, 'x'), "--title needs a text of at most 200");
    for (const auto &[line, says] : cases) {
        EXPECT_EQ(runLine(line + " small"), batchStatus::wrongUsage) << line;
        EXPECT_THAT(err.str(), testing::StartsWith("Veskora_batch: " + says)) << line;
    }
    for (const std::vector<std::string> &noModel : {std::vector<std::string>{}, {"-", ""}})
        EXPECT_EQ(run(noModel), batchStatus::wrongUsage);
    EXPECT_FALSE(fs::exists(path("x")));
    EXPECT_EQ(runLine("--help"), batchStatus::allAnalysed);
    EXPECT_THAT(out.str(), testing::StartsWith("Usage: Veskora_batch"));
    EXPECT_EQ(runLine("--version"), batchStatus::allAnalysed);
    EXPECT_THAT(out.str(),
                testing::StartsWith(std::string("Veskora_batch ") + programVersion + "\n"));
}

TEST_F(Batch, NoStepsAreMadeOfElementsThatTheModelLacks)
{
    EXPECT_EQ(runLine("--steps --steps-elements 200-202 --out @ small"), batchStatus::someFailed);
    EXPECT_THAT(err.str(),
                HasSubstr("the model has no elements 200 to 202, none of those to show"));
    EXPECT_FALSE(fs::exists(path("small_steps.html")));
}

TEST_F(Batch, AReportReplacesNoModelAndNoOtherReportOfTheRun)
{
    fs::create_directory(path("a"));
    fs::create_symlink("small.vsk", path("a/link.vsk"));
    fs::create_symlink("small.vsk", path("a/link.txt"));
    const std::vector<std::string> models = {"a/small.vsk", "b.csv", "mod.txt", "small_check.txt",
                                             "small_nodes.csv"};
    for (const std::string &model : models)
        fs::copy_file(small, path(model));
    const auto expectRefusals = [&](const char *file) {
        for (const auto &[line, says] : dataCases(file)) {
            EXPECT_EQ(runLine(line), std::stoi(says)) << line;
            EXPECT_THAT(err.str(), HasSubstr(says.substr(2))) << line;
        }
    };
    expectRefusals("taken_places.txt");
    EXPECT_THAT(contentOf(path("b/small.txt")), testing::StartsWith("Data"));
    for (const std::string &model : models)
        EXPECT_EQ(contentOf(path(model)), contentOf(small)) << model;

    write(path("a/small.vsk"), "broken");
    write(path("small_check.txt"), "Check of the analysis");
    expectRefusals("old_reports.txt");
}

} // namespace
} // namespace veskora
