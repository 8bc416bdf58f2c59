// The results window of a frame at the limit, from its making to its first picture.

#include "BenchDesktop.h"
#include "epilisi.h"
#include "frmApotelesmata.h"
#include "Models.h"
#include "PaintedOnce.h"

#include <benchmark/benchmark.h>

namespace veskora {
namespace {

void resultsWindow(benchmark::State &state, int levels)
{
    const BenchDesktop desktop;
    buildStoreys(levels);
    Epilisi();
    for (auto _ : state) {
        ResultsPlace place;
        frmApotelesmata window(place);
        PaintedOnce painted(window);
        window.show();
        painted.wait();
    }
}

BENCHMARK_CAPTURE(resultsWindow, small, 7)
    ->Name("results_window/56_nodes")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(resultsWindow, medium, 13)
    ->Name("results_window/104_nodes")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(resultsWindow, limit, 25)
    ->Name("results_window/limit")
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
