#pragma once
/// @file
/// Whether and how the structure can move without resistance.
///
/// The stiffness of the free freedoms, springs included, is scaled symmetrically to a unit
/// diagonal. Its eigenvalues are then free of units: 0 belongs to a motion that strains nothing.

#include "Findings.h"

namespace veskora {

/// @name Limits of the scaled eigenvalues
/// @{
inline constexpr double freeBelow = 1e-13;
inline constexpr double nearlyFreeBelow = 1e-11;
/// Below it an eigenvalue in doubles is in doubt and settled in extended precision.
inline constexpr double doubtfulBelow = 1e-10;
/// @}

/// All motions of the model: those of one eigenspace as far apart as they go, the most local first,
/// and one `noFreeMotion` where there is none.
std::vector<Finding> findMotions();

/// Whether `findMotions` would tell of a free motion, at a hundredth of its cost.
bool canMoveFreely();

} // namespace veskora
