#pragma once
/// @file
/// The formulas of the stages in symbols.
///
/// Source: W. McGuire, R. H. Gallagher, R. D. Ziemian, Matrix Structural Analysis, 2nd ed.: ch. 4-5
/// elements and assembly, table 4.1 fixed-end forces, ch. 11 elimination.

#include "RowQueries.h"
#include "Steps.h"

#include <array>
#include <span>

namespace veskora::steps {

inline constexpr const char *source =
    "W. McGuire, R. H. Gallagher, R. D. Ziemian, Matrix Structural Analysis, 2nd ed., ch. 4-5, 11";

/// A matrix or column, as K with the subscript ff.
Line symbol(const char *name, const char *subscript = "", const char *superscript = "");
/// A single number.
Line scalar(const char *name, const char *subscript = "", const char *superscript = "");

/// "u" with the subscript "i", and so on: the freedoms of an element in local axes.
const std::array<Line, 6> &localFreedoms();
/// The same in global axes.
const std::array<Line, 6> &globalFreedoms();
/// Ux, Uy and the rotation of a node.
const std::array<Line, 3> &nodeFreedoms();

/// Kx, Ky, Kz, and Rx, Ry, Mz.
const std::array<Line, 3> &springConstants();
const std::array<Line, 3> &reactionComponents();

/// @p lines with commas between them.
Line listOf(std::span<const Line> lines);

/// What a spring presses with.
Line springFormula();
/// As the engine runs: the upper triangle alone, without a search for pivots.
Line eliminationFormula();
Line substitutionFormula();

/// The symbols that stand for themselves throughout, in the order of their explanations.
std::vector<Line> definedSymbols();

/// T, from global to local axes.
Grid rotationFormula();
/// k of a type, and its fixed-end forces under n and q.
Grid stiffnessFormula(ElementType type);
Grid fixedEndFormula(const std::vector<ElementType> &types);

/// "P2", "P2' (Hinge at i)" ...
std::string typeText(ElementType type);

} // namespace veskora::steps
