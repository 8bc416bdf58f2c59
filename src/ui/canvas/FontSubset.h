#pragma once
/// @file
/// The part of a font that a file needs.

#include <QByteArray>
#include <QRawFont>

#include <set>

namespace veskora {

/// A font file with the glyphs of @p characters alone. Empty where the font is none of the kind
/// that files can hold.
QByteArray fontSubset(const QRawFont &font, const std::set<char32_t> &characters);

} // namespace veskora
