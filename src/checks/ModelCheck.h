#pragma once
/// @file
/// The check of the analysis.

#include "Findings.h"

namespace veskora {

/// Looks at model and results as they stand and changes nothing. Equilibrium and digits are those
/// of the last analysis, where it saw this model.
/// @return the worst first; among equals free motions, then equilibrium, digits and slips
std::vector<Finding> checkModel();

/// Whether @p findings tell of a structure that can move freely.
bool hasFreeMotion(const std::vector<Finding> &findings);
/// Or of one that does not stand for negative stiffnesses.
bool isUnstable(const std::vector<Finding> &findings);

} // namespace veskora
