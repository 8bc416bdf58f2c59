#include "RecoveryFolder.h"

#include "Desktop.h"
#include "FileSystem.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace veskora {

namespace {

/// @return the path written, empty when the folder refuses
std::string writeInto(const fs::path &folder, const std::string &name, const std::string &extension,
                      std::string_view content)
try {
    fs::create_directories(folder);
    fs::path path = folder / (name + extension);
    for (int number = 2; fs::exists(fs::symlink_status(path)); ++number) // nor through a link
        path = folder / (name + "_" + std::to_string(number) + extension);
    writePrivateFile(path.string(), content, Durability::onDisk); // as private as any file was
    return path.string();
} catch (const std::exception &) {
    return {};
}

} // namespace

std::vector<std::string> recoveryFolders()
{
    std::error_code ignored;
    return {desktop().dataFolder() + "/Recovery", desktop().documentsFolder(),
            fs::temp_directory_path(ignored).string()};
}

std::string datedName(const std::string &beginning)
{
    const TimeOfDay now = desktop().timeOfDay();
    std::string name = beginning + now.date + "_" + now.text;
    std::ranges::replace(name, ':', '-');
    return name;
}

std::string keepInRecoveryFolder(std::string_view content, const std::string &extension)
{
    const std::string name = datedName("Veskora_");
    for (const std::string &folder : recoveryFolders())
        if (std::string path = writeInto(folder, name, extension, content); !path.empty())
            return path;
    return {};
}

} // namespace veskora
