#include "PaperKanvas.h"

#include "Units.h"

#include <QPen>

#include <numbers>

namespace veskora {

namespace {

QPen penOf(const QColor &colour, double width, bool isDotted)
{
    QPen pen(colour, width);
    pen.setCapStyle(isDotted ? Qt::FlatCap : Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    if (isDotted)
        pen.setDashPattern({1, 2});
    return pen;
}

} // namespace

PaperKanvas::PaperKanvas(QPainter &painter, const QRectF &area, double unitsPerCentimetre)
    : VectorKanvas(area.size() / unitsPerCentimetre * pixelsPerCentimetre), painter_(painter)
{
    painter_.save();
    painter_.setClipRect(area, Qt::IntersectClip);
    painter_.translate(area.topLeft());
    const double unitsPerPixel = unitsPerCentimetre / pixelsPerCentimetre;
    painter_.scale(unitsPerPixel, unitsPerPixel);
}

void PaperKanvas::finish()
{
    paintTexts();
    painter_.restore();
}

void PaperKanvas::paintGround(const QColor &colour)
{
    painter_.fillRect(QRectF(QPointF(), size()), colour);
}

void PaperKanvas::paintLine(const QPointF &from, const QPointF &to, const Stroke &stroke)
{
    painter_.setPen(penOf(stroke.colour, stroke.width, stroke.isDotted));
    painter_.drawLine(from, to);
}

void PaperKanvas::paintPolyline(const QPolygonF &places, const Stroke &stroke)
{
    painter_.setPen(penOf(stroke.colour, stroke.width, stroke.isDotted));
    painter_.drawPolyline(places);
}

void PaperKanvas::paintDisc(const QPointF &centre, double radius, const QColor &colour)
{
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colour);
    painter_.drawEllipse(centre, radius, radius);
}

void PaperKanvas::paintCircle(const QPointF &centre, double radius, const Stroke &stroke,
                              const QColor &fill)
{
    painter_.setPen(penOf(stroke.colour, stroke.width, stroke.isDotted));
    painter_.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    painter_.drawEllipse(centre, radius, radius);
}

void PaperKanvas::paintArc(const QPointF &centre, double radius, double start, double span,
                           const Stroke &stroke)
{
    constexpr double degrees = 180 / std::numbers::pi;
    const QRectF square(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath path;
    path.arcMoveTo(square, start * degrees);
    path.arcTo(square, start * degrees, span * degrees);
    painter_.strokePath(path, penOf(stroke.colour, stroke.width, stroke.isDotted));
}

void PaperKanvas::paintHalo(const PlacedText &text, const Stroke &stroke)
{
    QPainterPath letters, outline;
    letters.addText(0, 0, text.font, text.text);
    // As fine as pixels: a halo needs no finer curves, which would be most of a file.
    for (const QPolygonF &part : letters.toSubpathPolygons(text.place()))
        outline.addPolygon(part);
    painter_.strokePath(outline, penOf(stroke.colour, stroke.width, false));
    QPainterPath patch;
    patch.addPolygon(text.place().map(QPolygonF(text.patch)));
    painter_.fillPath(patch, stroke.colour);
}

void PaperKanvas::paintText(const PlacedText &text)
{
    painter_.save();
    painter_.setTransform(text.place(), true);
    painter_.setFont(text.font);
    painter_.setPen(text.colour);
    painter_.drawText(QPointF(), text.text);
    painter_.restore();
}

} // namespace veskora
