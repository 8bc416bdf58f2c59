#pragma once
/// @file
/// Texts of the program and texts of Qt.

#include <QString>

#include <string>

namespace veskora {

/// UTF-8 text with CR LF as Qt shows it.
QString qtText(const std::string &text);
std::string plainText(const QString &text);

} // namespace veskora
