#pragma once
/// @file
/// What of a drawing is near enough to its picture to be worth painting, and the sweep of arcs.

#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>
#include <QSizeF>

namespace veskora {

/// Pixels. Coordinates beyond say nothing to the eye, but a rasteriser takes long for them and
/// files of vectors do not hold them.
inline constexpr double farOutside = 32000;

/// Cuts a line to the square of `farOutside` around the origin.
/// @return whether any of it is left
bool clip(QPointF &from, QPointF &to);

/// The lines that join @p places one after the other, so cut.
QPainterPath clippedCurve(const QPolygonF &places);

/// Whether a circle of a size that can be painted comes near a picture that begins at the origin.
bool reaches(const QSizeF &picture, const QPointF &centre, double radius);

/// The angle of an arc that runs counter-clockwise from @p start to @p end, above 0 and at most a
/// whole turn; radians.
double arcSpan(double start, double end);

} // namespace veskora
