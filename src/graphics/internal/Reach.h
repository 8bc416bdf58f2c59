#pragma once
/// @file
/// How far the picture of results that is shown reaches out from the frame.

#include "Kanvas.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace veskora {

/// An ordinate of a diagram, or a displacement: from a place on the frame to where it is drawn.
struct Reach
{
    Point foot, tip;
};

/// All that the picture shown draws beside the frame; nothing of the model alone.
std::vector<Reach> diagramReaches();

/// Those of the deformed shape.
std::vector<Reach> displacementReaches();

inline constexpr std::int16_t displacementDecimals = 6;

/// The scale of a picture of results, and how exactly it tells them.
struct DiagramScale
{
    float &setting;
    double (*greatest)();  ///< magnitude at nodes or ends that the picture shows
    std::int16_t decimals; ///< of the values shown
    double divisor = 1;    ///< of the setting: that of displacements is told in thousandths
};

/// That of the picture shown; none of the model alone.
std::optional<DiagramScale> shownScale();

} // namespace veskora
