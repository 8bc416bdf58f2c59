#include "Batch.h"
#include "Files.h"
#include "Metablites.h"
#include "Models.h"
#include "ModelText.h"
#include "Registry.h"
#include "ScriptedDesktop.h"
#include "Settings.h"

#include <algorithm>
#include <gmock/gmock.h>
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
        return runBatch(arguments, out, err);
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
}

TEST_F(Batch, AFreeMotionThatNoLoadStirsFailsTheCheckAndNotTheAnalysis)
{
    buildModel("G 2e8 .01 1e-4; N 0 0 xxo; N 3 4; N 8 5; E 1 2 1; E 2 3 1");
    std::string model = path("turns.vsk");
    ASSERT_TRUE(Apothikefsi_Arxeiou(model, true));
    EXPECT_EQ(run({"--out", path(""), model}), batchStatus::allAnalysed);
    EXPECT_EQ(run({"--out", path(""), "--check", model}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), testing::EndsWith("turns.vsk: the structure can move freely\n"));
    EXPECT_THAT(contentOf(path("turns.txt")),
                testing::StartsWith("The structure is probably a mechanism.\r\n\r\nData\r\n"));
    EXPECT_THAT(contentOf(path("turns_check.txt")),
                testing::StartsWith("Check of the analysis\r\nturns.vsk\r\n\r\n"
                                    "Fault: Nodes 2 and 3 turn together round node 1\r\n"));
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
    for (const std::vector<std::string> &arguments :
         {std::vector<std::string>{}, {"--pix", small}, {"--out"}, {"--out", path("x")}})
        EXPECT_EQ(run(arguments), batchStatus::wrongUsage);
    EXPECT_EQ(run({"--help"}), batchStatus::allAnalysed);
    EXPECT_THAT(out.str(), testing::StartsWith("Usage: Veskora_batch"));

    EXPECT_EQ(run({"-", "--out", path("x"), small}), batchStatus::wrongUsage);
    EXPECT_EQ(run({"-", ""}), batchStatus::wrongUsage);
    EXPECT_FALSE(fs::exists(path("x")));
}

TEST_F(Batch, AReportReplacesNoModelAndNoOtherReportOfTheRun)
{
    fs::create_directory(path("a"));
    fs::copy_file(small, path("a/small.vsk"));
    EXPECT_EQ(run({"--out", path(""), small, path("a/small.vsk")}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("small.txt was written in this run already"));

    fs::copy_file(small, path("mod.txt"));
    EXPECT_EQ(run({"--out", path(""), path("mod.txt")}), batchStatus::someFailed);
    fs::create_symlink("a/small.vsk", path("a/link.txt"));
    fs::create_symlink("small.vsk", path("a/link.vsk"));
    EXPECT_EQ(run({"--out", path("a"), path("a/link.vsk")}), batchStatus::someFailed);
    fs::copy_file(small, path("small_check.txt"));
    EXPECT_EQ(run({"--check", "--out", path(""), small, path("small_check.txt")}),
              batchStatus::someFailed);
    EXPECT_EQ(contentOf(path("mod.txt")), contentOf(small));
    EXPECT_EQ(contentOf(path("small_check.txt")), contentOf(small));
    EXPECT_EQ(contentOf(path("a/small.vsk")), contentOf(small));

    write(path("a/small.vsk"), "broken");
    EXPECT_EQ(run({"--out", path(""), path("a/small.vsk")}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("small.txt is from an earlier run"));
    EXPECT_EQ(run({"--check", "--out", path(""), path("a/small.vsk")}), batchStatus::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("small_check.txt is from an earlier run"));
    EXPECT_EQ(run({"--out", path("mod.txt"), small}), batchStatus::someFailed);
}

} // namespace
} // namespace veskora
