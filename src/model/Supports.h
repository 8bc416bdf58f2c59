#pragma once
/// @file
/// Support codes: one letter each for x, y and rotation, "x" constrained, "o" free.

#include <array>
#include <string>
#include <string_view>

namespace veskora {

/// The order in which a support steps when it is clicked; "ooo" follows the last.
inline constexpr std::array<std::string_view, 8> supportRing = {"ooo", "xoo", "oxo", "oox",
                                                                "xxo", "xox", "oxx", "xxx"};

std::string supportCode(bool x, bool y, bool rotation);

/// The code behind @p code in the ring.
std::string_view nextSupport(std::string_view code);

} // namespace veskora
