#pragma once
/// @file
/// How many digits of the results are right, by an independent second computation.
///
/// It takes the same Single and Double data, the projections of an element rounded to Singles as
/// the tables have them, and shares nothing else with the engine. It computes in extended
/// precision and refines its solution until it no longer changes.

#include "Findings.h"

namespace veskora {

/// Fewer are told as a warning.
inline constexpr int enoughDigits = 4;

/// Of the results in the store, which belong to its model. `digitsUnknown` where the second
/// computation cannot be done.
Finding checkDigits();

} // namespace veskora
