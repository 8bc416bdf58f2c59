#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdlib>

int main(int argc, char **argv)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // windows and fonts without a display
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
