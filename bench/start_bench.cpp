// The program's process from nothing to a window that is painted, and from a double click on the
// file of a model at the limit to its M diagram: real time of processes of their own, in a home of
// their own, started once before they are measured.

#include "start_bench.h"

#include "Application.h"
#include "frmMain.h"
#include "Metablites.h"
#include "PaintedOnce.h"
#include "QtDesktop.h"

#include <benchmark/benchmark.h>

#include <QAction>
#include <QProcess>
#include <QTemporaryDir>

#include <clocale>
#include <cstdlib>

namespace veskora {
namespace {

void startOf(benchmark::State &state, const QString &model)
{
    const QTemporaryDir home;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        environment.insert(folder, home.path());
    process.setProcessEnvironment(environment);
    process.setProgram(QCoreApplication::applicationFilePath());
    process.setArguments({windowSessionOption, model});
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const auto run = [&] {
        process.start();
        return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit
               && process.exitCode() == EXIT_SUCCESS;
    };
    if (!run()) // the first one writes its settings
        return state.SkipWithError("no window");
    for (auto _ : state)
        if (!run())
            return state.SkipWithError("no window");
}

BENCHMARK_CAPTURE(startOf, window, QString())
    ->Name("start/window")
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(startOf, limit, QString(EXAMPLES "/limit.vsk"))
    ->Name("start/file_analysis_M/limit")
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

} // namespace

int windowSession(int argc, char **argv)
{
    Application application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    resetStore();
    QtDesktop desktop;
    setDesktop(&desktop);
    desktop.storeSetting("Startup", "ShowForm", "0");
    frmMain window;
    desktop.attach(&window);
    const QString model = Application::arguments().value(2);
    auto *canvas = window.findChild<QWidget *>("Picture1");
    PaintedOnce start(*canvas);
    window.start(model);
    start.wait();
    if (!model.isEmpty()) {
        PaintedOnce diagram(*canvas);
        for (const char *name : {"Epilisi", "M"}) {
            auto *action = window.findChild<QAction *>(name);
            if (action == nullptr)
                return EXIT_FAILURE;
            action->trigger();
        }
        diagram.wait();
        if (Arithmos_Stoixeion == 0 || Katastasi_Provolis != view::M)
            return EXIT_FAILURE;
    }
    std::_Exit(EXIT_SUCCESS); // what comes after the picture is not measured
}

} // namespace veskora
