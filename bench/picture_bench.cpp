// The pictures, and undo with its picture, of a frame at the limit, all loads and labels on, on a
// canvas of 1600 by 900 pixels.

#include "BenchDesktop.h"
#include "epilisi.h"
#include "History.h"
#include "ImageKanvas.h"
#include "ModelEdits.h"
#include "Models.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace veskora {
namespace {

class LoadedFrame
{
public:
    LoadedFrame() : kanvas_(std::make_unique<ImageKanvas>(QSize(1600, 900)))
    {
        setPicture1(kanvas_.get());
        buildStoreyFrame();
        for (int n = 1; n <= Arithmos_Kombon; ++n)
            for (int column = node::Fx; column <= node::M; ++column)
                Komboi(n, column) = static_cast<float>(n % 3 == 0 ? -5 : 7);
        for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
            Stoixeia(e, element::wx) = 2;
            Stoixeia(e, element::wy) = -9;
        }
        for (int n = 10; n <= Arithmos_Kombon; n += 10)
            for (int k = 1; k <= 3; ++k)
                Elatiria(n, k) = 5000;
        nai_sint_kombon = nai_omades = nai_miki = true;
        Epilisi();
        Zoom_Best_Fit();
    }
    ~LoadedFrame() { setPicture1(nullptr); }
    LoadedFrame(const LoadedFrame &) = delete;
    LoadedFrame &operator=(const LoadedFrame &) = delete;

private:
    BenchDesktop desktop_;
    std::unique_ptr<ImageKanvas> kanvas_;
};

void sketch(benchmark::State &state)
{
    const LoadedFrame frame;
    for (auto _ : state)
        Sxedio_Grigoro();
}

void picture(benchmark::State &state, std::int16_t mode)
{
    const LoadedFrame frame;
    Katastasi_Provolis = mode;
    for (auto _ : state)
        Ananeosi_Sxediou();
}

void undo(benchmark::State &state)
{
    const LoadedFrame frame;
    History history;
    stepSupport(1);
    history.takeStep();
    bool back = false;
    for (auto _ : state) {
        back = !back;
        benchmark::DoNotOptimize(back ? history.undo() : history.redo());
        Ananeosi_Sxediou();
    }
}

void findNoStep(benchmark::State &state)
{
    const LoadedFrame frame;
    History history;
    for (auto _ : state)
        history.takeStep();
}

BENCHMARK(sketch)->Name("sketch/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(picture, model, view::model)
    ->Name("picture_model/limit")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(undo)->Name("undo/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(findNoStep)->Name("undo_no_step/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(picture, M, view::M)->Name("picture_M/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(picture, Q, view::Q)->Name("picture_Q/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(picture, N, view::N)->Name("picture_N/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(picture, D, view::deformed)
    ->Name("picture_D/limit")
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
