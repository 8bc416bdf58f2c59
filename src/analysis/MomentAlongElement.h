#pragma once
/// @file
/// The bending moment between the ends of an element, in closed form: with the moment M and the
/// shear force Q at end i and the load q across the element, it is M + Q x + q x^2 / 2 at the
/// distance x from end i. Signs are those of the diagrams.

#include <optional>

namespace veskora {

struct PlacedMoment
{
    int element;
    double x; ///< along the element's axis, from end i
    double value;
};

/// Where the moment of element @p e has its extreme, if that lies between the ends, by more than
/// rounding makes of one that lies at an end.
std::optional<PlacedMoment> momentBetweenEnds(int e);

/// The largest and the smallest moment of the structure, ends and spans; the first of equal ones.
struct MomentRange
{
    PlacedMoment largest, smallest;
};
/// None where there is no element.
std::optional<MomentRange> momentRange();

} // namespace veskora
