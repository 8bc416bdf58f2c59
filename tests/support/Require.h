#pragma once
/// @file
/// What drills and fuzz targets hold the program against.

#include <cstdio>
#include <cstdlib>

namespace veskora {

/// Ends the process where @p holds is false, so that whoever started it keeps what led here.
inline void require(bool holds, const char *what)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

} // namespace veskora
