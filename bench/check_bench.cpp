// The check of the analysis, and the quick test after each analysis, on a frame at the limit.

#include "BenchDesktop.h"
#include "epilisi.h"
#include "FreeMotions.h"
#include "Metablites.h"
#include "ModelCheck.h"
#include "Models.h"

#include <benchmark/benchmark.h>

namespace veskora {
namespace {

void test(benchmark::State &state)
{
    const BenchDesktop desktop;
    buildStoreyFrame();
    for (auto _ : state)
        benchmark::DoNotOptimize(quickTest());
}

void check(benchmark::State &state)
{
    const BenchDesktop desktop;
    buildStoreyFrame();
    Epilisi();
    for (auto _ : state)
        benchmark::DoNotOptimize(checkModel().data());
}

/// Without a support each motion has to be found and told.
void checkOfMechanism(benchmark::State &state)
{
    const BenchDesktop desktop;
    buildStoreyFrame();
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        Komboi(n, node::fixedX) = Komboi(n, node::fixedY) = Komboi(n, node::fixedRotation) = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(checkModel().data());
}

BENCHMARK(test)->Name("quick_test/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(check)->Name("check/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(checkOfMechanism)->Name("check/limit_without_supports")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
