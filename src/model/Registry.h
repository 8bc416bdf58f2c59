#pragma once
/// @file
/// The per-user settings store: its keys, their start values, and reading it.

#include <string>

namespace veskora {

/// Gives every setting its start value.
void setStandardSettings();

/// Reads all view settings from the per-user store, section "Rithmiseis", in the order of
/// `settings`. A key that the store lacks takes its start value.
void Fortosi_Rithmiseon();

} // namespace veskora
