#pragma once
/// @file
/// Defining the model on the canvas: from places in canvas centimetres to edits of the tables, with
/// their lines in the message log. Row numbers, 0 for none.

#include "Kanvas.h"

#include <cstdint>

namespace veskora {

/// Decimals of a node's coordinates as the mouse gives them.
inline constexpr std::int16_t Dekadika_Sintetagmenon = 4;

/// The model coordinates that a node gets at @p at: those of the nearest grid point with the grid
/// on, else with four decimals.
Point nodePlaceFor(const Point &at);

/// Defines a free node and draws it alone.
/// @return its row; 0 where the table is full, or so far from the origin that rounding cannot tell
/// the place, which the log then says
int sketchNode(const Point &at);

/// Defines an element of the group `groupToDraw` from node @p start to node @p end.
/// @return its row; 0 without a group, with a full table, where @p start is no node or the same as
/// @p end, and where an element joins the two already
int sketchElement(int start, int end);

/// Steps the support of the node that is nearest to @p at, and nearer than 2 cm, along
/// `restraintRing`.
/// @return the node; 0 where none is near, or its restraints are none of the ring
int sketchSupport(const Point &at, bool backwards = false);

} // namespace veskora
