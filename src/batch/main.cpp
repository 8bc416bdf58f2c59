#include "Batch.h"

#include <QGuiApplication>

#include <clocale>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>

int main(int argc, char **argv)
try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    std::optional<QGuiApplication> fonts;
    if (veskora::needsFonts(arguments)) {
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // no display is needed
        fonts.emplace(argc, argv);
        std::setlocale(LC_ALL, "C"); // Qt has taken over the user's; only the separator is wanted
    }
    return veskora::runBatch(arguments, std::cout, std::cerr);
} catch (const std::exception &error) {
    std::cerr << "Veskora_batch: " << error.what() << "\n";
    return veskora::batchStatus::someFailed;
}
