#pragma once
/// @file
/// What rows of the model are: loaded, constrained, held by springs. Rows count from 1.

#include <string>

namespace veskora {

bool isLoadedNode(int n);
/// Whether a freedom of node @p n is restrained; springs do not count.
bool isConstrainedNode(int n);
bool hasSpring(int n);
bool isLoadedElement(int e);

/// How many of the rows 1 to @p rows are so.
int countRows(int rows, bool (*holds)(int));

/// "xxo" and its like; nothing for a free node.
std::string constraintCode(int n);

/// The force of the spring of node @p n in direction @p k (1 x, 2 y, 3 rotation) on the frame:
/// minus its stiffness times the displacement.
double springForce(int n, int k);

} // namespace veskora
