// The values along all elements of a frame at the limit, as the batch runner writes them.

#include "AlongElement.h"
#include "BenchDesktop.h"
#include "epilisi.h"
#include "Models.h"
#include "ResultTables.h"

#include <benchmark/benchmark.h>

namespace veskora {
namespace {

void values(benchmark::State &state)
{
    const BenchDesktop desktop;
    buildStoreyFrame();
    Epilisi();
    for (auto _ : state)
        benchmark::DoNotOptimize(csvText(valuesTable(usualParts)).data());
}

BENCHMARK(values)->Name("values/limit")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
