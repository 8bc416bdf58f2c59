#pragma once
/// @file
/// Pictures of a model and its results.

#include "Outputs.h"

#include <cstdint>

namespace veskora {

enum class PictureForm { png, svg, pdf };

/// Draws the model in the store as @p shown, one of `view`, the whole of it in view. Notes what
/// leaves the picture, and the scale where it was chosen.
Made drawPicture(std::int16_t shown, PictureForm form, const Order &order);

} // namespace veskora
