#pragma once
/// @file
/// What the stages of the analysis read of one element, tested.

#include "Metablites.h"

#include <utility>

namespace veskora {

/// Where an element lies.
struct ElementGeometry
{
    double length;
    double c, s; ///< cosine and sine of the angle from global to local x
};

/// Node rows of element @p e. Fault: a row outside 1 to `Arithmos_Kombon`.
std::pair<int, int> elementNodes(int e);

/// Group row of element @p e. Fault: a row outside 1 to `Arithmos_Omadon`.
int elementGroup(int e);

/// Fault: the two nodes stand at one place, or too far apart for a Single.
ElementGeometry elementGeometry(int e);

} // namespace veskora
