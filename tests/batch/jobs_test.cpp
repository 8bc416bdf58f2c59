// Runs in several processes, and the two programs of the batch runner.

#include "Batch.h"
#include "Metablites.h"
#include "ScriptedDesktop.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <regex>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

using testing::HasSubstr;

/// What a run has left.
struct Result
{
    int status;
    std::string out, err; ///< without the times of day
    std::map<std::string, std::string> files;
    bool operator==(const Result &) const = default;
};

class Jobs : public StoreTest
{
protected:
    Result run(std::vector<std::string> arguments, const char *jobs, const Drawings &drawings = {},
               bool isClosed = false)
    {
        fs::remove_all(path("out"));
        fs::create_directory(path("out"));
        write(path("out/missing.txt"), "old");
        arguments.insert(arguments.begin(), {"--jobs", jobs});
        std::ostringstream out, err;
        out.setstate(isClosed ? std::ios::badbit : std::ios::goodbit);
        Result result{runBatch(arguments, out, err, drawings), out.str(), {}, {}};
        result.err =
            std::regex_replace(err.str(), std::regex(" (Start|Finish|Total time):[^\n]*\n"), "");
        for (const auto &entry : fs::directory_iterator(path("out")))
            result.files[entry.path().filename()] = contentOf(entry.path());
        return result;
    }

    /// Models that end in different ways, and one whose files another has taken.
    std::vector<std::string> models()
    {
        const std::string small = contentOf(TEST_DATA "/small.vsk");
        std::string loose = small;
        loose.replace(loose.find("0\r\n0\r\n1\r\n1\r\n1\r\n"), 15, "0\r\n0\r\n0\r\n0\r\n0\r\n");
        fs::create_directory(path("again"));
        const std::vector<std::pair<const char *, std::string>> all = {
            {"a.vsk", small}, {"loose.vsk", loose}, {"b.vsk", small},      {"broken.vsk", "VESK?"},
            {"c.vsk", small}, {"d.vsk", small},     {"again/a.vsk", small}};
        std::vector<std::string> names;
        for (const auto &[name, content] : all)
            write(names.emplace_back(path(name)), content);
        names.push_back(path("missing.vsk"));
        return names;
    }
};

TEST_F(Jobs, LeaveWhatOneProcessLeaves)
{
    const std::vector<std::string> given = models();
    for (std::vector<std::string> arguments :
         {std::vector<std::string>{"--check", "--csv", "--out", path("out"), "--summary", "-"},
          {"-", "--check", "--summary", path("out/summary.csv")}})
        for (const bool isClosed : {false, true}) {
            arguments.insert(arguments.end(), given.begin(), given.end());
            const Result one = run(arguments, "1", {}, isClosed);
            EXPECT_EQ(one.status, batchStatus::someFailed);
            EXPECT_EQ(one.out.empty(), isClosed);
            for (const char *jobs : {"2", "256"})
                EXPECT_TRUE(run(arguments, jobs, {}, isClosed) == one) << jobs << isClosed;
        }
    const std::string temporary = path("no such folder");
    ::setenv("TMPDIR", temporary.c_str(), 1);
    std::vector<std::string> printed = {"-"};
    printed.insert(printed.end(), given.begin(), given.end());
    EXPECT_TRUE(run(printed, "2") == run(printed, "1"));
    ::unsetenv("TMPDIR");
}

pid_t mother;
std::string mark;

/// Ends the process that runs b.vsk by @p end, at the first time or always; never the test's own.
template <void (*end)(), bool always>
Made ending(const Order &)
{
    if (::getpid() != mother && Onoma_Arxeiou.ends_with("b.vsk") && (always || !fs::exists(mark))) {
        fs::create_directory(mark);
        end();
    }
    return {"whole", {}, {}};
}
void beKilled()
{
    ::raise(SIGKILL);
}
void fail()
{
    throw std::runtime_error("no memory");
}

TEST_F(Jobs, OutliveTheEndOfAProcess)
{
    mother = ::getpid();
    mark = path("mark");
    std::vector<std::string> arguments = {"--out", path("out"), "--summary", path("out/s.csv")};
    std::ranges::copy(models(), std::back_inserter(arguments));
    using Make = Made (*)(const Order &);
    for (const auto &[make, isLost] : {std::pair<Make, bool>{ending<beKilled, false>, false},
                                       {ending<fail, true>, false},
                                       {ending<beKilled, true>, true}})
        for (const char *jobs : {"2", "256"}) {
            const std::array outputs = {Output{"_end.txt", nullptr, true, false, make}};
            fs::remove(mark);
            const Result result = run(arguments, jobs, {.outputs = outputs});
            Result whole = run(arguments, "1", {.outputs = outputs});
            EXPECT_EQ(result == whole, !isLost) << jobs;
            EXPECT_EQ(result.files.contains("b_end.txt"), !isLost);
            EXPECT_EQ(result.files.at("d_end.txt"), "whole");
            if (isLost) {
                EXPECT_THAT(result.err,
                            HasSubstr("b.vsk: its process was killed twice, by signal 9\n"));
                EXPECT_THAT(result.files.at("s.csv"), HasSubstr("/b.vsk,killed,,"));
            }
        }
}

TEST_F(Jobs, OnlyDrawingsNeedTheProgramThatDraws)
{
    fs::create_directory(path("bin"));
    fs::copy_file(BATCH_PROGRAM, path("bin/Veskora_batch"));
    fs::create_symlink(BATCH_PROGRAM, path("link"));
    for (const auto &[line, status, told, file] :
         {std::tuple{"bin/Veskora_batch --csv", 0, "Total time", "small_ends.csv"},
          {"bin/Veskora_batch --version", 0, "No drawings: they are made by", nullptr},
          {"$(dirname " BATCH_PROGRAM ")/../libexec/veskora-ml/Veskora_draw --pdf", 1,
           "works only for a Veskora_batch of the same version", nullptr},
          {"bin/Veskora_batch --pdf", 1,
           "/libexec/veskora-ml/Veskora_draw, which cannot be started: No such file", nullptr},
          {"./link --size=200x200 --jobs=2 --pictures", 0, "", "small_N.png"}}) {
        const std::string command =
            "cd " + path("") + " && " + line + " " + TEST_DATA + "/small.vsk >told 2>&1";
        EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), status) << line;
        EXPECT_THAT(contentOf(path("told")), HasSubstr(told));
        EXPECT_TRUE(file == nullptr || fs::exists(path(file))) << line;
    }
}

TEST_F(Jobs, StandWhatTheCallerLeavesThem)
{
    std::string given;
    for (int i = 0; i < 9; ++i) {
        write(path("m" + std::to_string(i) + ".vsk"), contentOf(TEST_DATA "/small.vsk"));
        given += " m" + std::to_string(i) + ".vsk";
    }
    std::map<std::string, std::string> one;
    for (const auto &[before, behind] : {std::pair{"", "--jobs 1"},
                                         {"", "--jobs 2 <&- >&- 2>&-"},
                                         {"env --ignore-signal=CHLD ", "--jobs 3"},
                                         {"ulimit -n 12; ", "--jobs 200"},
                                         {"ulimit -f 24; ", "--jobs 2"}}) { // less than a record
        const std::string command = "cd " + path("") + " && rm -rf o && " + before + BATCH_PROGRAM
                                    + " --values 100 --out o --summary o/s.csv" + given + " 2>told "
                                    + behind;
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        std::map<std::string, std::string> files;
        for (const auto &entry : fs::directory_iterator(path("o")))
            files[entry.path().filename()] = contentOf(entry.path());
        one = one.empty() ? files : one;
        EXPECT_TRUE(files.size() == 19 && files == one) << command;
    }
}

} // namespace
} // namespace veskora
