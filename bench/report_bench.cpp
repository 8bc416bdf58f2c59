// The calculation report as PDF, with the check, of a frame at the limit.

#include "BenchDesktop.h"
#include "CalculationReport.h"
#include "epilisi.h"
#include "Files.h"

#include <benchmark/benchmark.h>

namespace veskora {
namespace {

void pdfReport(benchmark::State &state)
{
    const BenchDesktop desktop;
    std::string model = EXAMPLES "/limit.vsk";
    if (!Anagnosi_Arxeiou(model))
        return state.SkipWithError("the example cannot be read");
    Epilisi();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            pdfOf(calculationDocument({.withCheck = true}), Paper::A4, [](int, int) {
                return true;
            }).data());
}

BENCHMARK(pdfReport)->Name("pdf_report/limit")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
