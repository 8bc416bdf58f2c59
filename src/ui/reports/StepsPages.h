#pragma once
/// @file
/// The steps of the analysis on paper.

#include "StepsText.h"

class QPagedPaintDevice;

namespace veskora {

/// Lays the steps on the pages of @p device, numbered at their feet. What fits a page is not torn:
/// paragraphs, matrices, pictures; and headings and formulas stand on the page of what follows.
/// @return whether the device took all of it
bool printSteps(QPagedPaintDevice &device, const DrawnSteps &steps);

} // namespace veskora
