// The steps of the analysis of a frame at the limit: three elements, the pattern, all drawings.

#include "BenchDesktop.h"
#include "epilisi.h"
#include "Models.h"
#include "StepsFile.h"

#include <benchmark/benchmark.h>

namespace veskora {
namespace {

void stepsAtTheLimit(benchmark::State &state)
{
    const BenchDesktop desktop;
    buildStoreyFrame();
    Epilisi();
    for (auto _ : state)
        benchmark::DoNotOptimize(stepsFile(steps::stepsOfAnalysis({{1, 150, 300}, {}})).data());
}

BENCHMARK(stepsAtTheLimit)->Name("steps/limit")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
