#pragma once
/// @file
/// The largest and the smallest results with where they are. Of equal ones the first is told.

#include "Functions_Bres_Megista.h"

#include <optional>

namespace veskora {

/// A stress resultant in the signs of the diagrams.
struct PlacedForce
{
    int e;
    double x, value; ///< x along the element, from end i
};

struct ForceRange
{
    PlacedForce largest, smallest;
};

/// Of @p resultant at the ends of all elements, and of M between them too where the loads are those
/// of the results. None without an element that can be computed.
std::optional<ForceRange> forceRange(const StressResultant &resultant);

/// A displacement across an element, in the sign of the deformed shape.
struct PlacedDeflection
{
    int e;
    double x, v; ///< x along the element, from end i
};

/// The largest one of all elements, in magnitude, at their ends and at the extremes between them.
/// None without an element that can be computed, or where the loads are not those of the results.
std::optional<PlacedDeflection> largestDeflection();

/// Nodes with the largest and the smallest displacement in direction @p k (1 x, 2 y, 3 rotation).
/// There is a node.
struct NodeRange
{
    int largest, smallest;
};
NodeRange displacementRange(int k);

/// Of x and y together.
double displacementOf(int n);
int nodeOfLargestDisplacement();

} // namespace veskora
