#include "RecentFiles.h"

#include "Desktop.h"

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

void store(const std::vector<std::string> &files)
{
    for (std::size_t i = 0; i < mostFiles; ++i)
        desktop().storeSetting(section, std::to_string(i + 1), i < files.size() ? files[i] : "");
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
    std::vector<std::string> files = recentFiles();
    std::erase(files, wholePath(path));
    files.insert(files.begin(), wholePath(path));
    store(files);
}

void forgetFile(const std::string &path)
{
    std::vector<std::string> files = recentFiles();
    std::erase(files, path);
    store(files);
}

} // namespace veskora
