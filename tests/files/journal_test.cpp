// The journal: when it is written and when it goes, and what a later process finds of it.

#include "Fault.h"
#include "Files.h"
#include "Journal.h"
#include "Metablites.h"
#include "Models.h"
#include "ModelText.h"
#include "RecentFiles.h"
#include "ScriptedDesktop.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

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
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }
    /// @p work ends by a kill.
    template <typename Work>
    static void inAProcess(Work work)
    {
        const pid_t child = ::fork();
        if (child == 0)
            work();
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    }
};

// c a change, b the change back to the file, d all deleted, s saved, l a look a second later.
TEST_F(JournalTest, IsThereWhileTheModelDiffersFromItsFile)
{
    for (const auto &[steps, load] : {std::pair{"l", 0},
                                      {"cl", 0},
                                      {"cll", 1},
                                      {"clcll", 2},
                                      {"cllcl", 1}, // the one before stays until the next
                                      {"clclclclcl", 0},
                                      {"clclclclclcl", 6},
                                      {"cllclclclclcl", 1},
                                      {"cllclclclclclcl", 7},
                                      {"clls", 0},
                                      {"cllsll", 0},
                                      {"cllsclbll", 0},
                                      {"cllbl", 0},
                                      {"clldl", 0},
                                      {"clldlcll", 2}}) {
        SCOPED_TRACE(steps);
        buildModel("G 1 1 1; N 0 0 xxx");
        Journal journal;
        journal.settle();
        int changes = 0;
        for (const char step : std::string(steps)) {
            switch (step) {
            case 'c':
                if (Arithmos_Kombon == 0)
                    buildModel("G 1 1 1; N 0 0 xxx");
                Komboi(1, node::Fx) = static_cast<float>(++changes);
                break;
            case 'b':
                Komboi(1, node::Fx) = static_cast<float>(std::string(steps).find('s') < 9 ? 1 : 0);
                break;
            case 'd':
                Katharismos_Montelou();
                break;
            case 's':
                journal.settle();
                break;
            default:
                journal.look();
                journal.waitForWriting();
            }
        }
        const std::vector<std::string> names = files();
        ASSERT_EQ(names.size(), load == 0 ? 0 : 2) << "the journal and its lock";
        if (load == 0)
            continue;
        Katharismos_Montelou();
        std::string file = (folder / names[1]).string();
        EXPECT_TRUE(Anagnosi_Arxeiou(file));
        EXPECT_EQ(Komboi(1, node::Fx), load);
        Onoma_Arxeiou.clear();
    }
    EXPECT_THAT(files(), testing::IsEmpty()); // the process has ended in order
}

TEST_F(JournalTest, IsFoundWhenItsProcessIsGone)
{
    Journal own;
    own.settle();
    buildModel("G 1 1 1; N 7 8 xxx");
    own.look();
    own.look();
    own.waitForWriting();
    EXPECT_THAT(lostJournals(), testing::IsEmpty()) << "this process lives";

    for (const char *name : {"", "a \"name\",\nwith all.vsk"}) {
        SCOPED_TRACE(name);
        const std::string model = *name == '\0' ? "" : path(name);
        inAProcess([&] {
            Journal journal;
            Onoma_Arxeiou = model;
            journal.look();
            journal.look();
            journal.waitForWriting();
            ::raise(SIGKILL);
        });
        std::vector<LostJournal> lost = lostJournals();
        ASSERT_EQ(lost.size(), 1);
        EXPECT_EQ(lost[0].model, model);
        EXPECT_EQ(fs::status(lost[0].file.path).permissions(),
                  fs::perms::owner_read | fs::perms::owner_write);
        EXPECT_THAT(lostJournals(), testing::IsEmpty()) << "it is offered once at a time";
        // Saved meanwhile, the file is not what the journal is to be saved over.
        for (const bool savedLater : {false, true}) {
            if (savedLater && !model.empty()) {
                write(model, "");
                fs::last_write_time(model, fs::last_write_time(lost[0].file.path)
                                               + std::chrono::seconds(1));
            }
            Katharismos_Montelou();
            EXPECT_TRUE(openJournal(lost[0].file.path, lost[0].model));
            EXPECT_EQ(Komboi(1, node::x), 7);
            EXPECT_EQ(Onoma_Arxeiou, savedLater ? "" : model);
        }
        lost[0].file.remove();
    }
    EXPECT_EQ(files().size(), 2);
}

TEST_F(JournalTest, WhatAKilledWritingLeavesGoes)
{
    fs::create_directories(folder);
    for (const char *name : {"Veskora_journal_a.lock", "Veskora_journal_a.vsk.part",
                             "Veskora_journal_b.vsk", "other.lock"})
        write((folder / name).string(), "");
    EXPECT_THAT(lostJournals(), testing::IsEmpty());
    EXPECT_THAT(files(), testing::ElementsAre("Veskora_journal_b.vsk", "other.lock"));
}

// A refusal is told, and the journal is written once the reason has gone.
TEST_F(JournalTest, TriesAgain)
{
    Journal journal;
    journal.settle();
    putGroup(1, 2, 3);
    journal.look();
    const double good = std::exchange(Omades(1, 1), 1e308 * 10);
    EXPECT_THROW(journal.look(), Fault);
    Omades(1, 1) = good;
    journal.look();
    journal.waitForWriting();
    ASSERT_EQ(files().size(), 2);
    const fs::path inTheWay = folder / (files()[1] + ".part");
    fs::create_directory(inTheWay);
    Omades(1, 1) = 5;
    journal.look();
    journal.look();
    journal.waitForWriting();
    EXPECT_THROW(journal.look(), Fault);
    EXPECT_EQ(files().size(), 3) << "what was written before stays";
    fs::remove_all(folder); // as a user cleans up
    journal.look();
    journal.waitForWriting();
    ASSERT_EQ(files().size(), 2);
    EXPECT_THAT(contentOf((folder / files()[1]).string()), testing::HasSubstr("\r\n5\r\n2\r\n3"));
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
