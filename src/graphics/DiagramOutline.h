#pragma once
/// @file
/// Whether a diagram stays inside the view. `Zoom.h` fits the nodes alone, and ordinates have a
/// length in centimetres of their own.

namespace veskora {

/// Says in the log of the window that the picture of results in view is cut off at the canvas's
/// edge; once for each view of each, and only where all nodes are inside, as otherwise the user has
/// chosen a part.
void reportCutDiagram();

/// What is to stay free at the edges of the canvas, centimetres.
struct EdgeRoom
{
    double left = 0, top = 0, right = 0, bottom = 0;
};

/// Whether the picture of results in view goes beyond the canvas, or into that room at its edges.
/// Its printed values are no part of it.
bool isDiagramCut(const EdgeRoom &room = {});

/// Makes nodes and diagram together fill the canvas with the margin of a best fit. Where no scale
/// leaves room for the ordinates the view stays, and the log says why.
void Zoom_Diagram();

} // namespace veskora
