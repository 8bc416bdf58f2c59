#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include <cstdlib>

int main(int argc, char **argv)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // fonts are Qt's, a display is not needed
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
