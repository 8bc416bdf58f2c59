// A move of the mouse over a frame at the limit: hit tests and overlays, no redraw.

#include "frmMain.h"
#include "Metablites.h"
#include "Models.h"
#include "QtDesktop.h"
#include "Settings.h"

#include <benchmark/benchmark.h>

#include <QAction>
#include <QCoreApplication>
#include <QMouseEvent>

namespace veskora {
namespace {

void mouseMove(benchmark::State &state)
{
    resetStore();
    QtDesktop desktop;
    setDesktop(&desktop);
    frmMain window;
    desktop.attach(&window);
    window.resize(1600, 900);
    window.show();
    buildStoreyFrame();
    window.findChild<QAction *>("ZoomBestFit")->trigger();
    nai_grid = false; // the distance to every node
    auto *canvas = window.findChild<CanvasWidget *>("Picture1");
    double x = 0;
    for (auto _ : state) {
        x = x < canvas->width() ? x + 3 : 0; // over nodes, elements and empty places in turn
        const QPointF place(x, canvas->height() / 2.0 + x / 5);
        QMouseEvent event(QEvent::MouseMove, place, canvas->mapToGlobal(place), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(canvas, &event);
    }
    setDesktop(nullptr);
}

BENCHMARK(mouseMove)->Name("mouse_move/limit")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veskora
