#include "Recovery.h"

#include "Desktop.h"
#include "Fault.h"
#include "Files.h"
#include "FileSystem.h"
#include "Metablites.h"

#include <array>
#include <ctime>
#include <filesystem>

namespace fs = std::filesystem;

namespace veskora {

std::string writeRecoveryFile()
try {
    const fs::path folder = fs::path(desktop().dataFolder()) / "Recovery";
    fs::create_directories(folder);
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    (void)::localtime_r(&now, &local);
    std::array<char, 32> stamp;
    (void)std::strftime(stamp.data(), stamp.size(), "%Y-%m-%d_%H-%M-%S", &local);
    fs::path path = folder / (std::string(stamp.data()) + ".vsk");
    for (int number = 2; fs::exists(path); ++number)
        path = folder / (std::string(stamp.data()) + "_" + std::to_string(number) + ".vsk");
    writeModelFile(path.string());
    return path.string();
} catch (const std::exception &) {
    return {}; // this is the last resort: there is nowhere else to go
}

bool isModelEmpty()
{
    return Arithmos_Kombon == 0 && Arithmos_Omadon == 0 && Arithmos_Stoixeion == 0;
}

} // namespace veskora
