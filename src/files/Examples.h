#pragma once
/// @file
/// The models that come with the program.

#include <string>

namespace veskora {

std::string examplesFolder();

/// Whether the file @p path is one of them. A save must not change what the next one learns from,
/// where it could be written at all.
bool isExample(const std::string &path);

} // namespace veskora
