#include "RecentFiles.h"

#include "Desktop.h"
#include "FileSystem.h"

#include <filesystem>

namespace veskora {

namespace {

constexpr std::size_t mostFiles = 10;
constexpr const char *section = "Recent";

std::string wholePath(const std::string &path)
{
    std::error_code ignored;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(path, ignored), ignored)
        .string();
}

/// Gives the list to @p change, and stores it before another copy of the program reads it.
template <typename Change>
void edit(Change change)
{
    const Turn turn(desktop().dataFolder() + "/Turns/Recent");
    std::vector<std::string> files = recentFiles();
    change(files);
    for (std::size_t i = 0; i < mostFiles; ++i)
        desktop().storeSetting(section, std::to_string(i + 1), i < files.size() ? files[i] : "");
    (void)desktop().writeSettings(); // whoever is refused has no list
}

} // namespace

std::vector<std::string> recentFiles()
{
    std::vector<std::string> files;
    for (std::size_t i = 0; i < mostFiles; ++i)
        if (std::string file = desktop().setting(section, std::to_string(i + 1), ""); !file.empty())
            files.push_back(std::move(file));
    return files;
}

void rememberFile(const std::string &path)
{
    edit([&path](std::vector<std::string> &files) {
        std::erase(files, wholePath(path));
        files.insert(files.begin(), wholePath(path));
    });
}

void forgetFile(const std::string &path)
{
    edit([&path](std::vector<std::string> &files) { std::erase(files, path); });
}

} // namespace veskora
