#pragma once
/// @file
/// The models that come with the program.

#include <string>

namespace veskora {

/// Its folder, among the files supplied with the program.
std::string examplesFolder();

/// Whether the file @p path is one of them. A save must not change what the next one learns from,
/// where it could be written at all.
bool isExample(const std::string &path);

/// The folder for what the user makes where he works in @p folder: that one, but in place of the
/// examples that for documents.
std::string userFolder(const std::string &folder);

} // namespace veskora
