#pragma once
/// @file
/// What rows of the model are: loaded, constrained, held by springs, joined. Rows count from 1.

#include <string>

namespace veskora {

bool isLoadedNode(int n);
/// Whether a freedom of node @p n is restrained; springs do not count.
bool isConstrainedNode(int n);
bool hasSpring(int n);
bool isLoadedElement(int e);
/// Whether node @p n is an end of element @p e.
bool touches(int e, int n);
/// Whether element @p e lies between nodes @p a and @p b, in either direction.
bool joins(int e, int a, int b);

/// The number of a freedom among all of the structure, from 1: component @p k (1 x, 2 y,
/// 3 rotation) of node @p n. Displacements, loads and reactions stand at these places.
constexpr int freedomOf(int n, int k)
{
    return 3 * (n - 1) + k;
}

/// How many of the rows 1 to @p rows are so.
int countRows(int rows, bool (*holds)(int));

/// "xxo" and its like; nothing for a free node.
std::string constraintCode(int n);

/// The force of the spring of node @p n in direction @p k (1 x, 2 y, 3 rotation) on the frame:
/// minus its stiffness times the displacement.
double springForce(int n, int k);

} // namespace veskora
