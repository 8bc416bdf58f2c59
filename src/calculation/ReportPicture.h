#pragma once
/// @file
/// The pictures of a document: what the canvas shows, fitted to a place on paper.

#include <cstdint>
#include <string>

namespace veskora {

class Kanvas;

/// Draws the store as @p shown, one of `view`, on @p kanvas: the whole model as large as its
/// symbols and values leave room, below the heading; the diagram at a round scale of its own, with
/// its values; without the grid; all else as the user has it. View, settings and log are afterwards
/// as they were.
/// @return the picture's caption: its scales, and what must be told of it
std::string drawReportPicture(std::int16_t shown, Kanvas &kanvas);

} // namespace veskora
