#pragma once
/// @file
/// What lies under the pointer. Canvas coordinates, centimetres; row numbers, 0 for nothing.

namespace veskora {

/// The lowest-numbered node at canvas point (x, y). With the grid on, the pointer counts as at the
/// nearest grid point and only a node exactly there is found; else within 0.15 cm in both
/// directions.
int nodeUnderPointer(double x, double y);

/// The element whose line passes nearest to canvas point (x, y), within 0.2 cm, and whose extent
/// holds the point; of equally near ones the lowest-numbered.
int elementUnderPointer(double x, double y);

/// The node nearest to canvas point (x, y) by Euclidean distance.
/// @param within  centimetres; none nearer than this gives 0
int nearestNode(double x, double y, double within);

} // namespace veskora
