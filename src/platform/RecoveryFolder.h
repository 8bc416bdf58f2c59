#pragma once
/// @file
/// The folder for what would otherwise be lost.

#include <string>
#include <string_view>
#include <vector>

namespace veskora {

/// Where it is kept: in the user's data folder; where that refuses, among the user's documents,
/// else among the temporary files.
std::vector<std::string> recoveryFolders();

/// Name of a file there: @p beginning, date and time.
std::string datedName(const std::string &beginning);

/// Writes @p content to a new file of a dated name with @p extension behind, in the first of the
/// folders that takes it.
/// @return its path, empty when it could be written nowhere
std::string keepInRecoveryFolder(std::string_view content, const std::string &extension);

} // namespace veskora
