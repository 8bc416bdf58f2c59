#pragma once
/// @file
/// The model files that were opened or saved last, in the user's settings, which all running copies
/// of the program share.

#include <string>
#include <vector>

namespace veskora {

/// Whole paths, the last one first.
std::vector<std::string> recentFiles();

/// @p path was opened or saved now. Of all others the last nine stay.
void rememberFile(const std::string &path);

void forgetFile(const std::string &path);

} // namespace veskora
