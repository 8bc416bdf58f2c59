#pragma once
/// @file
/// The model file's type on the desktop.

#include <QString>

namespace veskora {

/// Writes, in the user's data folder, the MIME type of model files (by extension and by the banner
/// they begin with), a desktop entry that opens them with @p program, by its launcher where it has
/// one, and the icons of both. What cannot be written is left out without a word. Where the system
/// has all of these, of a program that is there, that one stays the registered one: nothing is
/// written, and what was written before goes.
void registerFileType(const QString &program);

} // namespace veskora
