#pragma once
/// @file
/// Differences beside what they are differences of.

#include "DoubleDouble.h"
#include "Member.h"

#include <algorithm>
#include <vector>

namespace veskora {

/// @p difference relative to @p whole, the largest of its kind. Where that is next to nothing
/// beside @p rest, as the moments of a bar that is pulled, it ought to be 0 and rounding is all
/// there is: then relative to @p rest.
inline double relative(Extended difference, Extended whole, Extended rest)
{
    using std::abs;
    constexpr double negligible = 1e-6;
    const Extended scale = whole < negligible * rest ? rest : whole;
    return scale == Extended(0) ? 0 : static_cast<double>(Extended(abs(difference)) / scale);
}

/// The length that makes what goes about an axis comparable with what goes along one; 1 without
/// members.
inline Extended longest(const std::vector<Member<Extended>> &all)
{
    Extended length = all.empty() ? 1 : 0;
    for (const Member<Extended> &m : all)
        length = std::max(length, m.length);
    return length;
}

} // namespace veskora
