// The results window of a frame at the limit, from its making to its first picture.

#include "BenchDesktop.h"
#include "epilisi.h"
#include "frmApotelesmata.h"
#include "Models.h"
#include "PaintedOnce.h"

#include <benchmark/benchmark.h>

namespace veskora {
namespace {

void resultsWindow(benchmark::State &state)
{
    const BenchDesktop desktop;
    buildStoreyFrame();
    Epilisi();
    for (auto _ : state) {
        ResultsPlace place;
        frmApotelesmata window(place);
        PaintedOnce painted(window);
        window.show();
        painted.wait();
    }
}

BENCHMARK(resultsWindow)->Name("results_window/limit")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
