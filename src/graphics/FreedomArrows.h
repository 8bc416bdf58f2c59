#pragma once
/// @file
/// Freedoms and the forces on an element's ends as arrows, in their positive directions.

#include <span>
#include <string>

namespace veskora {

/// Draws the freedoms of every node over the picture that there is, each with its number; those
/// beyond @p free are held and grey.
/// @param numbers  at `freedomOf(n, k) - 1`; 0 leaves one out, as does what stands there no more
void drawFreedoms(std::span<const int> numbers, int free);

/// Draws an element alone across the canvas, at an angle to global x with the cosine @p c and the
/// sine @p s, with its local axes and the six @p forces on its ends, axial, transverse, moment at
/// i, then at j.
void drawEndForces(double c, double s, std::span<const std::string> forces);

} // namespace veskora
