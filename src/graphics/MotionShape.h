#pragma once
/// @file
/// A motion of the structure, over the picture that there is.

#include <span>

namespace veskora {

/// Draws the shape that the nodes' displacements give the elements, in the colour of the
/// deformation and at a size that can be seen whatever their own. Elements bend by nothing but
/// them: a hinged end turns so that no moment acts there. Arrows show where nodes go while there
/// are few of them, and curved ones the nodes that turn where they stand.
/// @param displacements  at `freedomOf(n, k) - 1`, model axes
void drawMotion(std::span<const double> displacements);

} // namespace veskora
