// The batch runner with a toolkit. Veskora_batch puts it in its own place when it is asked for
// drawings, so that all other runs are spared the start of one.

#include "QtDrawings.h"
#include "Startup.h"
#include "Version.h"

#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <clocale>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>

namespace {

/// Starts Qt. It asks the folder of the session for a display; without a session it would complain
/// and leave a folder, so it is given one of its own meanwhile.
void start(std::optional<QGuiApplication> &application, int &argc, char **argv)
{
    const QTemporaryDir session(QDir::tempPath() + "/veskora-XXXXXX");
    if (session.isValid())
        ::setenv("XDG_RUNTIME_DIR", session.path().toLocal8Bit().constData(), 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // no display is needed
    application.emplace(argc, argv);
    std::setlocale(LC_ALL, "C"); // Qt has taken over the user's; only the separator is wanted
}

} // namespace

int main(int argc, char **argv)
try {
    veskora::prepareProcess();
    if (argc < 2 || argv[1] != veskora::callerArgument()) {
        std::cerr << "Veskora_batch: its program for drawings is of version "
                  << veskora::programVersion
                  << " and works only for a Veskora_batch of the same version; install the "
                     "program again.\n";
        return veskora::batchStatus::someFailed;
    }
    --argc;
    argv[1] = argv[0];
    ++argv;
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    std::optional<QGuiApplication> application;
    veskora::Drawings drawings = veskora::qtDrawings();
    drawings.start = [&] { start(application, argc, argv); };
    return veskora::runBatch(arguments, std::cout, std::cerr, drawings);
} catch (const std::exception &error) {
    std::cerr << "Veskora_batch: " << error.what() << "\n";
    return veskora::batchStatus::someFailed;
}
