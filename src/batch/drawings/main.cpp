// The batch runner with a toolkit. Veskora_batch puts it in its own place when it is asked for
// drawings, so that all other runs are spared the start of one.

#include "QtDrawings.h"

#include <QGuiApplication>

#include <clocale>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>

int main(int argc, char **argv)
try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    std::optional<QGuiApplication> application;
    veskora::Drawings drawings = veskora::qtDrawings();
    drawings.start = [&] {
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // no display is needed
        application.emplace(argc, argv);
        std::setlocale(LC_ALL, "C"); // Qt has taken over the user's; only the separator is wanted
    };
    return veskora::runBatch(arguments, std::cout, std::cerr, drawings);
} catch (const std::exception &error) {
    std::cerr << "Veskora_batch: " << error.what() << "\n";
    return veskora::batchStatus::someFailed;
}
