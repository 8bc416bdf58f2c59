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
/// Below it an eigenvalue in doubles is in doubt and settled in extended precision. Far from the
/// origin coordinates are rounded more, and larger ones are in doubt: where nothing but that
/// rounding strains the members, the motion is nearly free.
inline constexpr double doubtfulBelow = 1e-10;
/// @}

/// All motions of the model: those of one eigenspace as far apart as they go, the most local first,
/// and one `noFreeMotion` where there is none.
std::vector<Finding> findMotions();

/// Whether `findMotions` would tell of a free motion, or else of an unstable one, at a fortieth of
/// its cost.
enum class FreeMotion {
    none,
    unstable,
    unloaded, ///< the loads do no work on it, and the analysis may not have noticed
    loaded
};
FreeMotion quickTest();

} // namespace veskora
