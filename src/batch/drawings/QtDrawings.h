#pragma once
/// @file
/// What the batch runner makes with Qt.

#include "Batch.h"

namespace veskora {

/// A `QGuiApplication` must exist while a run makes any of them.
Drawings qtDrawings();

} // namespace veskora
