#pragma once
/// @file
/// The view: conversions between model and canvas, the operations that change it, its history.
///
/// The canvas is measured in centimetres and the model is drawn like a sheet of paper at the scale
/// 1:`Klimaka`: one world unit is 100/`Klimaka` cm. Canvas y grows downward, world y upward;
/// upright canvas y is measured upward from the canvas's bottom edge. The canvas's size is read
/// from `Picture1` at every use. Nothing is rounded unless said so.

#include <cstdint>

namespace veskora {

inline constexpr double bestFitMargin = 1.8; ///< centimetres, on each side
/// Of the scales that a fit makes.
inline constexpr std::int16_t scaleDecimals = 3;
inline constexpr double finestScale = 1;         ///< of the screen
inline constexpr double coarsestScale = 2147483; ///< beyond it such a rounding has no room

/// Around nodes, in the model's own units.
struct Extent
{
    double xmin, xmax, ymin, ymax;
};
/// Of all nodes; there is one.
Extent modelExtent();

/// @name World to canvas, centimetres
/// @{
double Kosmos_X(double x);
double Kosmos_Y_Orthio(double y); ///< upright
double Kosmos_Y(double y);
double Mikos_Se_Othoni(double length);
/// @}

/// Between upright and downward canvas y, either way.
double Anastrofi_Y(double v);

/// @name Canvas to world
/// @{
double Othoni_X(double c);
double Othoni_Y_Orthio(double c); ///< from upright y
double Othoni_Y(double c);
/// @}

/// Makes the whole model fill the canvas with a margin of 1.8 cm, the scale rounded to 3 decimals.
/// One node is centred at the scale there is; without nodes the origin goes to its start place.
/// A scale finer than 1:1, or one that three decimals cannot hold, leaves the view as it is, and
/// the log says so. From a scale of 0, as in a damaged file, it begins at that of a new model.
void Zoom_Best_Fit();

/// The same with another margin, in centimetres, and down to another scale 1:@p finest.
void fitModel(double margin, double finest = finestScale);

/// The same at whatever scale that takes, and without a word: for a picture of its own, whose scale
/// nobody reads. Nodes that are all in one place are as one.
void fitModelAnyhow(double margin);

/// Makes the rectangle between two canvas points fill the canvas, with the same floor at 1:1. A
/// rectangle that is a point changes nothing.
void Zoom_Parathyrou(double x1, double y1, double x2, double y2);

/// Puts the origin of the view; a place that is not finite leaves it.
void moveOrigin(double x, double y);

/// One step of the drag zoom, from canvas y @p y0 to @p y: downward zooms out. Below 1:1 the scale
/// stays, and the origin still moves.
void Zoom_Syrsimatos(double y0, double y);

/// Zooms about a canvas point: what lies there stays there, and the drawing becomes @p factor times
/// as large. The scale goes no finer than 1:1 and no coarser than a fit can make it; one that is
/// beyond goes only back. From a scale of 0 it begins at that of a new model.
/// @return false where the scale stands at its limit and the view stays
bool zoomAbout(double x, double y, double factor);

/// Says in the log why there is no view at the scale 1:@p needed: it is beyond the limits.
void reportNoScale(double needed);

/// Pushes the current view onto the history, unless it is the one on top. The oldest of 100 steps
/// is lost.
void Apothikefsi_Zoom();

/// Steps one view back.
/// @return whether there was one
bool Zoom_Proigoumeno();

/// Goes back to the view on top of the history: what was changed since has never been.
void takeBackView();

} // namespace veskora
