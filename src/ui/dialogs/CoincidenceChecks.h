#pragma once
/// @file
/// The searches of the menu Tools, Check. They report and change nothing; the model has the rows
/// that they look at.

namespace veskora {

/// Asks for a tolerance (a distance, 0 to 0.001) and tells each pair of nodes that are no farther
/// apart.
void findCoincidentNodes();

/// Tells each pair of elements between the same two nodes, until the user has had enough.
void findCoincidentElements();

} // namespace veskora
