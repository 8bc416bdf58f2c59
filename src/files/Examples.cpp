#include "Examples.h"

#include "Desktop.h"
#include "FileSystem.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace veskora {

std::string examplesFolder()
{
    return suppliedFilesFolder(desktop().programFolder()) + "/examples";
}

bool isExample(const std::string &path)
{
    if (path.empty())
        return false;
    std::error_code ignored;
    const auto whole = [&ignored](const fs::path &some) {
        return fs::weakly_canonical(fs::absolute(some, ignored), ignored);
    };
    const fs::path folder = whole(examplesFolder());
    const fs::path file = whole(path);
    return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first
           == folder.end();
}

std::string userFolder(const std::string &folder)
{
    return isExample(folder) ? desktop().documentsFolder() : folder;
}

} // namespace veskora
