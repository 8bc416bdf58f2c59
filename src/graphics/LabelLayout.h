#pragma once
/// @file
/// Where the values of a diagram are written so that each can be read.

#include "Kanvas.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace veskora {

struct LabelBox
{
    double left, top, right, bottom;
};

/// A value, written at the end of its ordinate. All lengths in one unit, y down.
struct ValueLabel
{
    std::string text;
    LabelBox box; ///< what it covers there
    Ordinate ordinate;
};

/// What becomes of a value that finds no free place.
enum class Crowded {
    stay,    ///< over what is there
    leaveOut ///< those of longer ordinates have found theirs before
};

struct LabelPlaces
{
    std::vector<std::optional<Point>> moves; ///< of each label; none where it is not written
    int withoutRoom = 0;                     ///< those left out for want of a place
};

/// Finds a place for each of @p labels.
///
/// A value is not written where it stands at the same node already and is seen there, if no other
/// element meets there than these two, or if both ordinates end in one place. One that would lie
/// over another or over one of @p obstacles moves along its ordinate, as little as needed, outwards
/// if that helps. It does not leave @p area, nor come nearer to the end of another ordinate than to
/// that of its own, nor move by more than twice its extent.
LabelPlaces layOutLabels(std::span<const ValueLabel> labels, std::span<const LabelBox> obstacles,
                         const LabelBox &area, Crowded crowded);

} // namespace veskora
