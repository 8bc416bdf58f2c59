// The batch runner with models at the limit: one more model of a run, a process for one alone,
// and a run in one process and in two.

#include "Batch.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace veskora {
namespace {

constexpr const char *limitModel = EXAMPLES "/limit.vsk";

void runModels(benchmark::State &state, const std::vector<std::string> &arguments)
{
    std::ofstream nowhere("/dev/null");
    for (auto _ : state)
        benchmark::DoNotOptimize(runBatch(arguments, nowhere, nowhere));
}

void printed(benchmark::State &state)
{
    runModels(state, {"-", limitModel});
}

/// Waits until the disk has the report.
void written(benchmark::State &state)
{
    const std::string folder = std::filesystem::temp_directory_path() / "veskora-bench";
    runModels(state, {"--out", folder, limitModel});
    std::filesystem::remove_all(folder);
}

struct Usage
{
    double processor, clock; ///< seconds
};

Usage runProgram(const std::vector<std::string> &arguments)
{
    std::vector<char *> argv = {const_cast<char *>(BATCH_PROGRAM)};
    for (const std::string &argument : arguments)
        argv.push_back(const_cast<char *>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    for (const int output : {STDOUT_FILENO, STDERR_FILENO})
        ::posix_spawn_file_actions_addopen(&actions, output, "/dev/null", O_WRONLY, 0);
    const auto begin = std::chrono::steady_clock::now();
    pid_t process = 0;
    int ending = -1;
    rusage used{};
    if (::posix_spawn(&process, BATCH_PROGRAM, &actions, nullptr, argv.data(), environ) == 0)
        ::wait4(process, &ending, 0, &used);
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    ::posix_spawn_file_actions_destroy(&actions);
    if (ending != 0)
        throw std::runtime_error("the batch runner failed");
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return {seconds(used.ru_utime) + seconds(used.ru_stime), passed.count()};
}

/// Processor time, that of the start included.
void process(benchmark::State &state)
{
    for (auto _ : state)
        state.SetIterationTime(runProgram({"-", limitModel}).processor);
}

template <int processes>
void jobs(benchmark::State &state)
{
    constexpr int models = 64;
    std::vector<std::string> arguments = {"--jobs", std::to_string(processes), "-"};
    arguments.insert(arguments.end(), models, limitModel);
    for (auto _ : state)
        state.SetIterationTime(runProgram(arguments).clock);
}

BENCHMARK(printed)->Name("batch_model/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(written)->Name("batch_files/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(process)->Name("batch_process/limit")->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(jobs<1>)->Name("batch_jobs_1/limit")->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(jobs<2>)->Name("batch_jobs_2/limit")->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
