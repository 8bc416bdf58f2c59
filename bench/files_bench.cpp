// Model file and report of a frame at the limit.

#include "Anafora.h"
#include "BenchDesktop.h"
#include "Files.h"
#include "FileSystem.h"
#include "Journal.h"
#include "Metablites.h"
#include "Models.h"
#include "ModelText.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace veskora {
namespace {

/// The frame at the limit with springs at every tenth node, saved to a file of its own.
class SavedFrame
{
public:
    SavedFrame()
    {
        buildStoreyFrame();
        for (int n = 10; n <= Arithmos_Kombon; n += 10)
            Elatiria(n, 2) = 5000;
        Apothikefsi_Arxeiou(path, false);
    }
    ~SavedFrame() { std::filesystem::remove(path); }
    SavedFrame(const SavedFrame &) = delete;
    SavedFrame &operator=(const SavedFrame &) = delete;

private:
    BenchDesktop desktop_;

public:
    std::string path = (std::filesystem::temp_directory_path() / "veskora_bench.vsk").string();
};

void fileRead(benchmark::State &state)
{
    SavedFrame frame;
    for (auto _ : state)
        Anagnosi_Arxeiou(frame.path);
    if (Arithmos_Kombon != maxNodes)
        state.SkipWithError("the file was not read");
}

void fileWrite(benchmark::State &state)
{
    SavedFrame frame;
    for (auto _ : state)
        writeWholeFile(frame.path, modelText(), Durability::untilPowerFails);
}

/// What the event loop pays for it; the disk is waited for elsewhere.
void journalWrite(benchmark::State &state)
{
    const SavedFrame frame;
    Journal journal;
    journal.settle();
    for (auto _ : state) {
        Komboi(1, node::Fx) += 1;
        journal.look(); // changed
        journal.look(); // rests
        state.PauseTiming();
        journal.waitForWriting();
        state.ResumeTiming();
    }
}

void changeTest(benchmark::State &state)
{
    const SavedFrame frame;
    for (auto _ : state)
        if (!Idio_Me_To_Arxeio())
            state.SkipWithError("the file differs");
}

void report(benchmark::State &state)
{
    const SavedFrame frame;
    for (auto _ : state)
        for (const ReportSection &section : reportSections)
            benchmark::DoNotOptimize(section.text());
}

BENCHMARK(fileRead)->Name("file_read/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(fileWrite)->Name("file_write/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(journalWrite)->Name("journal_write/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(changeTest)->Name("change_test/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(report)->Name("report/limit")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
