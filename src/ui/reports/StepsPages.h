#pragma once
/// @file
/// The steps of the analysis on paper.

#include "StepsText.h"

class QPagedPaintDevice;

namespace veskora {

/// Lays the steps on the pages of @p device, numbered at their feet, after their contents. What
/// fits a page is not torn: paragraphs, matrices, pictures, each with the headings and formulas
/// before it. A longer table goes on under its heading row.
/// @return whether the device took all of it
bool printSteps(QPagedPaintDevice &device, const DrawnSteps &steps);

} // namespace veskora
