#pragma once
/// @file
/// Scales at which the diagrams and the deformed shape can be read and stay on the canvas.

#include "DiagramOutline.h"

#include <cstdint>
#include <optional>

namespace veskora {

/// Gives the diagram or deformed shape in view the finest scale of 1, 2 or 5 times a power of
/// ten at which its longest ordinate is no longer than @p longest, centimetres, and the room at the
/// edges stays free; where not even a hundredth of that length does, the room goes. What is all 0,
/// or no more than the rounding of larger results, keeps its scale.
/// @return whether the scale was chosen
bool fitDiagramScale(double longest, const EdgeRoom &room);

/// Brings the whole model into view, and the diagram in view to a scale as `fitDiagramScale`
/// chooses it, with room for values at the edges that are @p labelScale times as large as usual.
/// @param finest  the model is shown no finer than 1:@p finest
/// @return whether the diagram's scale was chosen
bool fitPicture(double labelScale, double finest = 1);

/// Of the values that the picture in view shows; none of the model itself.
std::optional<std::int16_t> decimalsShown();

/// Whether the picture in view shows as 0 what is more than rounding: its decimals are too few.
bool showsTooFewDecimals();

/// What a centimetre of the diagram or deformed shape in view stands for, in the model's units;
/// none of the model itself.
std::optional<double> quantityPerCentimetre();

} // namespace veskora
