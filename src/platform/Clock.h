#pragma once
/// @file
/// The time of day.

#include "Desktop.h"

namespace veskora {

/// Local time of day, read from the system's clock.
TimeOfDay localTimeOfDay();

} // namespace veskora
