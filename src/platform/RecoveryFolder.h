#pragma once
/// @file
/// The folder for what would otherwise be lost.

#include <string>
#include <string_view>

namespace veskora {

/// Writes @p content to a new file, named after date and time with @p extension behind, in the
/// user's data folder; where that refuses, among the user's documents, else among the temporary
/// files.
/// @return its path, empty when it could be written nowhere
std::string keepInRecoveryFolder(std::string_view content, const std::string &extension);

} // namespace veskora
