#include "start_bench.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdlib>
#include <string_view>

int main(int argc, char **argv)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0); // windows and fonts without a display
    if (argc > 1 && std::string_view(argv[1]) == veskora::windowSessionOption)
        return veskora::windowSession(argc, argv);
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
