#pragma once
/// @file
/// Freedoms and the forces on an element's ends as arrows, in their positive directions.

#include <span>
#include <string>

namespace veskora {

/// Draws the freedoms of every node over the picture that there is, each with its number; those
/// beyond @p free are held and grey.
/// @param numbers  at `freedomOf(n, k) - 1`; 0 leaves one out
void drawFreedoms(std::span<const int> numbers, int free);

/// Draws element @p e alone across the canvas, at the angle that it has, with its local axes and
/// the six @p forces on its ends, axial, transverse, moment at i, then at j.
/// Fault: no length, or a node that does not exist.
void drawEndForces(int e, std::span<const std::string> forces);

} // namespace veskora
