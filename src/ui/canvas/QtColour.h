#pragma once
/// @file
/// Colour words for Qt.

#include <QColor>

namespace veskora {

/// The colour of a colour word.
QColor qtColour(double word);

} // namespace veskora
