#pragma once
/// @file
/// Whether the results are in equilibrium with the loads.

#include "Findings.h"

namespace veskora {

/// Relative imbalance from which on it is told as a warning.
inline constexpr double tolerableImbalance = 1e-4;

/// Of the loads and results in the store, which belong together.
Finding checkEquilibrium();

} // namespace veskora
