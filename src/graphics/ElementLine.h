#pragma once
/// @file
/// Where nodes and elements lie, for the drawing routines.

#include "element.h"
#include "Kanvas.h"
#include "Zoom.h"

#include <cmath>

namespace veskora {

inline Point toCanvas(Point world)
{
    return {Kosmos_X(world.x), Kosmos_Y(world.y)};
}

/// Upright canvas coordinates, y measured upward from the canvas's bottom edge.
inline Point toUprightCanvas(Point world)
{
    return {Kosmos_X(world.x), Kosmos_Y_Orthio(world.y)};
}

/// The axis of an element in world units. Its length may be 0.
struct ElementLine
{
    Point i, j;
    double dx, dy, length;
};

inline Point nodePlace(int n)
{
    return {Komboi(n, node::x), Komboi(n, node::y)};
}

/// Fault: a node that does not exist.
inline ElementLine elementLine(int e)
{
    const auto [ni, nj] = elementNodes(e);
    const Point i = nodePlace(ni);
    const Point j = nodePlace(nj);
    const double dx = j.x - i.x;
    const double dy = j.y - i.y;
    return {i, j, dx, dy, std::sqrt(dx * dx + dy * dy)};
}

} // namespace veskora
