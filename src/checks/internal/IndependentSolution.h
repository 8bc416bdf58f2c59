#pragma once
/// @file
/// The analysis done a second time, so that its numbers can be held against others.

#include "DoubleDouble.h"

#include <array>
#include <optional>
#include <vector>

namespace veskora {

/// Displacements, end forces and reactions with the meaning and the signs of `Metatopiseis`,
/// `Entasi_Topiki` and `Antidraseis`.
template <typename Real>
struct IndependentSolution
{
    std::vector<Real> displacements; ///< at `freedomOf(n, k) - 1`; 0 where a support holds
    std::vector<Real> reactions;     ///< at the same places; 0 where none holds
    std::vector<std::array<Real, 6>> endForces; ///< of element e at e - 1
};

/// Of the model in the store. None where an element is not usable, no freedom is free, the
/// equations have no single solution or a number is beyond the range.
/// @tparam Real  long double or `DoubleDouble`
template <typename Real>
std::optional<IndependentSolution<Real>> solveIndependently();

extern template std::optional<IndependentSolution<long double>> solveIndependently();
extern template std::optional<IndependentSolution<DoubleDouble>> solveIndependently();

} // namespace veskora
