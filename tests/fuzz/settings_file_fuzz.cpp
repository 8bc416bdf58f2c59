// What the program makes of an arbitrary settings file, read and written as by the window program.
// Wherever it says that the window was, the window comes on the screen.

#include "FileSystem.h"
#include "QtDesktop.h"
#include "TakenSettings.h"
#include "WindowPlace.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <array>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace veskora {
namespace {

/// The file is read again where it has another time.
void makeNewer(const std::string &path)
{
    static time_t time = 1;
    const std::array<timespec, 2> times = {{{++time, 0}, {time, 0}}};
    require(::utimensat(AT_FDCWD, path.c_str(), times.data(), 0) == 0, "time of the file");
}

void requireWindowOnScreen()
{
    QWidget window;
    window.setMinimumSize(300, 200);
    showAtStoredPlace(&window);
    require(window.screen()->availableGeometry().intersects(window.geometry()),
            "the window is on the screen");
    Apothikefsi_Geometrias(&window);
    QCoreApplication::processEvents();
}

} // namespace
} // namespace veskora

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    for (const char *place : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        ::setenv(place, veskora::privateFolder().c_str(), 1);
    static const auto *application = new QApplication(*argc, *argv); // the fuzzer ends by exit()
    (void)application;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    using namespace veskora;
    static const std::string folder = privateFolder() + "/" + std::string(applicationTitle);
    static const std::string file = folder + "/settings.ini";
    std::filesystem::create_directory(folder);
    std::ofstream(file, std::ios::binary) << bytes(data, size);
    makeNewer(file);

    QtDesktop desktop;
    setDesktop(&desktop);
    const TakenSettings taken;
    requireWithinLimits(taken);
    requireWindowOnScreen();

    const TakenSettings expected = stored(taken);
    require(desktop.writeSettings().empty(), "the file can be written");
    makeNewer(file);
    require(TakenSettings() == expected, "what was stored is read back equal");
    return 0;
}
