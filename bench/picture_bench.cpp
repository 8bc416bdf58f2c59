// The pictures, and undo with its picture, of a frame at the limit, all loads and labels on, on a
// canvas of 1600 by 900 pixels; the same pictures painted plainly, and the least that their lines
// and glyphs take.

#include "BenchDesktop.h"
#include "epilisi.h"
#include "FloorKanvas.h"
#include "History.h"
#include "ImageKanvas.h"
#include "ModelEdits.h"
#include "Models.h"
#include "PlainKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <benchmark/benchmark.h>

#include <string>
#include <utility>

namespace veskora {
namespace {

template <typename Surface>
class LoadedFrame
{
public:
    explicit LoadedFrame(int levels = 25) : kanvas_(QSize(1600, 900))
    {
        setPicture1(&kanvas_);
        buildStoreys(levels);
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

    Surface &kanvas() { return kanvas_; }

private:
    BenchDesktop desktop_;
    Surface kanvas_;
};

void sketch(benchmark::State &state)
{
    const LoadedFrame<ImageKanvas> frame;
    for (auto _ : state)
        Sxedio_Grigoro();
}

template <typename Surface>
void picture(benchmark::State &state, std::int16_t mode, int levels)
{
    const LoadedFrame<Surface> frame(levels);
    Katastasi_Provolis = mode;
    Ananeosi_Sxediou(); // what is kept from picture to picture is there
    for (auto _ : state)
        Ananeosi_Sxediou();
}

/// On a new canvas: nothing is kept from a picture before.
void firstPicture(benchmark::State &state, std::int16_t mode)
{
    LoadedFrame<ImageKanvas> frame;
    Katastasi_Provolis = mode;
    for (auto _ : state) {
        ImageKanvas kanvas(frame.kanvas().size());
        const CanvasInUse inUse(kanvas);
        Ananeosi_Sxediou();
    }
}

void floorOf(benchmark::State &state, std::int16_t mode)
{
    LoadedFrame<FloorKanvas> frame;
    Katastasi_Provolis = mode;
    Ananeosi_Sxediou();
    for (auto _ : state)
        frame.kanvas().paint();
    const auto [lines, curves, texts] = frame.kanvas().count();
    state.counters["lines"] = static_cast<double>(lines);
    state.counters["curves"] = static_cast<double>(curves);
    state.counters["texts"] = static_cast<double>(texts);
}

void undo(benchmark::State &state)
{
    const LoadedFrame<ImageKanvas> frame;
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
    const LoadedFrame<ImageKanvas> frame;
    History history;
    for (auto _ : state)
        history.takeStep();
}

BENCHMARK(sketch)->Name("sketch/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(undo)->Name("undo/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(findNoStep)->Name("undo_no_step/limit")->Unit(benchmark::kMicrosecond);

template <typename... Arguments>
void add(const std::string &name, Arguments... run)
{
    benchmark::RegisterBenchmark(name.c_str(), run...)->Unit(benchmark::kMicrosecond);
}

const bool areAdded = [] {
    const std::pair<std::string, std::int16_t> views[] = {{"model", view::model},
                                                          {"M", view::M},
                                                          {"Q", view::Q},
                                                          {"N", view::N},
                                                          {"D", view::deformed}};
    for (const auto &[name, mode] : views) {
        for (const int levels : {7, 13})
            add("picture_" + name + "/" + std::to_string(8 * levels) + "_nodes",
                picture<ImageKanvas>, mode, levels);
        add("picture_" + name + "/limit", picture<ImageKanvas>, mode, 25);
        add("picture_" + name + "_first/limit", firstPicture, mode);
        add("picture_" + name + "_plain/limit", picture<PlainKanvas>, mode, 25);
        add("picture_" + name + "_floor/limit", floorOf, mode);
    }
    return true;
}();

} // namespace
} // namespace veskora
