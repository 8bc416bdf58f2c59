#pragma once
/// @file
/// The settings in the per-user store: reading and writing them.

#include "Settings.h"

namespace veskora {

/// @name In the per-user store
/// @{
inline constexpr const char *settingsSection = "Rithmiseis"; ///< settings and language
inline constexpr const char *showWelcomeKey = "ShowForm";    ///< in "Startup": 1 or 0
/// @}

/// Gives every setting its start value.
void setStandardSettings();

/// Reads all settings from the per-user store, in the order of `settings`. A key that the store
/// lacks takes its start value.
void Fortosi_Rithmiseon();

SettingValue currentValue(const Setting &setting);
SettingValue standardValue(const Setting &setting);

/// Gives @p setting a value of its own type.
void takeOver(const Setting &setting, const SettingValue &value);

/// Writes @p value to the per-user store, where the next start and the next New find it; the
/// running program keeps its own.
void storeAsDefault(const Setting &setting, const SettingValue &value);

/// Brings the per-user store to the disk; where that is refused, says so in a box.
/// @return whether it was written
bool writeSettingsOrTell();

} // namespace veskora
