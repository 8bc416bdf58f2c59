#pragma once
/// @file
/// What kind of motion a vector of displacements is, and why nothing resists it.

#include "Findings.h"
#include "Member.h"
#include "ScaledStiffness.h"

namespace veskora {

/// The finding of a motion, without its eigenvalue.
/// @param displacements  of all freedoms, model axes, in any size
Finding describedMotion(FindingKind kind, const ExtendedVector &displacements,
                        const std::vector<Member<Extended>> &members);

} // namespace veskora
