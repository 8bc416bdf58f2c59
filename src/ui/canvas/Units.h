#pragma once
/// @file
/// Lengths of the window and of the canvas.

#include <cmath>

namespace veskora {

/// Form layout is told in twips; fifteen are one logical pixel.
inline constexpr int twipsPerPixel = 15;

constexpr int pixels(int twips)
{
    return twips / twipsPerPixel;
}

/// Logical pixels of one canvas centimetre.
inline constexpr double pixelsPerCentimetre = 96 / 2.54;

} // namespace veskora
