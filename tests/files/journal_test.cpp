// The journal: when it is written and when it goes, and what a later process finds of it.

#include "Fault.h"
#include "Files.h"
#include "Journal.h"
#include "Metablites.h"
#include "Models.h"
#include "RecentFiles.h"
#include "ScriptedDesktop.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

class JournalTest : public StoreTest
{
protected:
    const fs::path folder = path("data/Recovery");

    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        std::error_code none;
        for (const auto &entry : fs::directory_iterator(folder, none))
            names.push_back(entry.path().string());
        std::ranges::sort(names);
        return names;
    }
    static void look(Journal &journal, int times)
    {
        for (int i = 0; i < times; ++i) {
            journal.look();
            journal.waitForWriting();
        }
    }
};

// c a change, b back to what the file has, d all deleted, s saved, l a look a second later; and the
// number of the change that the journal has, 0 for no journal.
TEST_F(JournalTest, IsThereWhileTheModelDiffersFromItsFile)
{
    for (const auto &[steps, kept] : {std::pair{"lcl", 0},
                                      {"cll", 1},
                                      {"cllcl", 1}, // the one before stays until the next
                                      {"clclclclcl", 0},
                                      {"clclclclclcl", 6},
                                      {"cllclclclclclcl", 7},
                                      {"clls", 0},
                                      {"cllsll", 0},
                                      {"cllbl", 0},
                                      {"cllscllbl", 0},
                                      {"clldlcll", 2}}) {
        SCOPED_TRACE(steps);
        Journal journal;
        journal.settle();
        int changes = 0, saved = 0;
        for (const char step : std::string(steps)) {
            if (step == 'l')
                look(journal, 1);
            else if (step == 's')
                journal.settle();
            else if (step == 'd')
                Katharismos_Montelou();
            else
                buildModel("G 1 1 1; N " + std::to_string(step == 'c' ? ++changes : saved) + " 0");
            if (step == 's')
                saved = changes;
            if (step == 'b' && saved == 0)
                Katharismos_Montelou();
        }
        Katharismos_Montelou();
        ASSERT_EQ(files().size(), kept == 0 ? 0 : 2) << "the journal and its lock";
        if (kept != 0) {
            EXPECT_TRUE(openJournal(files()[1], ""));
            EXPECT_EQ(Komboi(1, node::x), kept);
            Katharismos_Montelou();
        }
    }
    EXPECT_THAT(files(), testing::IsEmpty()); // the process has ended in order
}

TEST_F(JournalTest, IsFoundWhenItsProcessIsGone)
{
    Journal own;
    buildModel("G 1 1 1; N 7 8");
    look(own, 2);
    for (const char *cutOff : {"/Veskora_journal_a.lock", "/Veskora_journal_a.vsk.part"})
        write(folder.string() + cutOff, "");
    EXPECT_THAT(lostJournals(), testing::IsEmpty()) << "this process lives";
    EXPECT_EQ(files().size(), 2) << "what a killed writing left is gone";

    for (const std::string &model : {std::string(), path("a \"name\",\nwith all.vsk")}) {
        SCOPED_TRACE(model);
        if (std::string name = model; !model.empty())
            Apothikefsi_Arxeiou(name, true);
        const pid_t child = ::fork();
        if (child == 0) {
            Journal journal;
            if (std::string name = model; !model.empty())
                Anagnosi_Arxeiou(name);
            putNode(1, 2);
            look(journal, 2);
            ::raise(SIGKILL);
        }
        ::waitpid(child, nullptr, 0);
        std::vector<LostJournal> lost = lostJournals();
        ASSERT_EQ(lost.size(), 1);
        EXPECT_EQ(lost[0].model.path, model);
        EXPECT_EQ(fs::status(lost[0].file.path).permissions(),
                  fs::perms::owner_read | fs::perms::owner_write);
        EXPECT_THAT(lostJournals(), testing::IsEmpty()) << "it is offered once at a time";
        for (const bool savedLater : {false, true}) { // then the older must not go over the newer
            const auto open = [&lost] {
                return openJournal(lost[0].file.path, lost[0].model.path, lost[0].model.sum);
            };
            if (!model.empty()) { // the ended process never saw this
                EXPECT_TRUE(open());
                EXPECT_EQ(sumOfForeignChange().has_value(), savedLater);
                write(model, "");
                fs::last_write_time(model, fs::last_write_time(lost[0].file.path)
                                               + std::chrono::seconds(savedLater ? 1 : -1));
            }
            EXPECT_TRUE(open());
            EXPECT_EQ(Onoma_Arxeiou, savedLater ? "" : model);
            EXPECT_EQ(sumOfForeignChange().has_value(), !Onoma_Arxeiou.empty());
        }
        const std::string path = lost[0].file.path;
        write(path, contentOf(path).substr(0, 500));
        EXPECT_EQ(modelOfJournal(path), std::nullopt) << "it is not whole";
        lost[0].file.remove();
    }
}

TEST_F(JournalTest, ARefusedWritingIsToldAndTriedAgain)
{
    Journal journal;
    buildModel("G 1 1 1");
    look(journal, 2);
    fs::create_directory(files()[1] + ".part"); // in the way
    Omades(1, group::I) = 5;
    look(journal, 2);
    EXPECT_THROW(journal.look(), Fault);
    EXPECT_EQ(files().size(), 3) << "what was written before stays";
    fs::remove_all(folder); // as a user cleans up
    look(journal, 1);
    ASSERT_EQ(files().size(), 2);
    EXPECT_THAT(contentOf(files()[1]), testing::HasSubstr("\r\n1\r\n1\r\n5\r\n"));
}

TEST_F(JournalTest, RecentFilesAreTenAndTheLastOneIsTheFirst)
{
    for (int i = 1; i <= 12; ++i)
        rememberFile("/f/" + std::to_string(i));
    rememberFile("/f/./5");
    forgetFile("/f/12");
    EXPECT_THAT(recentFiles(), testing::ElementsAre("/f/5", "/f/11", "/f/10", "/f/9", "/f/8",
                                                    "/f/7", "/f/6", "/f/4", "/f/3"));
}

} // namespace
} // namespace veskora
