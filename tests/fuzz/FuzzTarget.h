#pragma once
/// @file
/// What the fuzz targets share.

#include "Require.h"

#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace veskora {

/// A file in memory that has a path.
class MemoryFile
{
public:
    MemoryFile() : descriptor_(::memfd_create("input", 0)) {}
    ~MemoryFile() { ::close(descriptor_); }
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }
    /// Puts @p content into the place of what it held.
    void hold(std::string_view content)
    {
        require(::ftruncate(descriptor_, 0) == 0
                    && ::pwrite(descriptor_, content.data(), content.size(), 0)
                           == static_cast<ssize_t>(content.size()),
                "scratch write");
    }

private:
    int descriptor_;
};

/// The input as the routines that read it know it.
inline std::string_view bytes(const unsigned char *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), size};
}

/// Its lines; an empty text has none.
inline std::vector<std::string> lines(std::string_view text)
{
    std::vector<std::string> all;
    for (bool isLast = text.empty(); !isLast;) {
        const std::size_t end = text.find('\n');
        all.emplace_back(text.substr(0, end));
        isLast = end == std::string_view::npos;
        text.remove_prefix(isLast ? text.size() : end + 1);
    }
    return all;
}

} // namespace veskora
