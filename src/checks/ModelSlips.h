#pragma once
/// @file
/// What looks like a slip of whoever made the model.

#include "Findings.h"

namespace veskora {

/// One finding for each kind of slip that there is, in the order of `FindingKind`; `noSlips` where
/// there is none.
std::vector<Finding> findSlips();

} // namespace veskora
