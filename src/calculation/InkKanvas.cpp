#include "InkKanvas.h"

#include "Units.h"

#include <algorithm>

namespace veskora {

InkKanvas::InkKanvas(const Kanvas &picture)
    : VectorKanvas(QSizeF(picture.width(), picture.height()) * pixelsPerCentimetre)
{
    setForPrint();
}

QRectF InkKanvas::finish()
{
    paintTexts();
    return {ink_.topLeft() / pixelsPerCentimetre, ink_.size() / pixelsPerCentimetre};
}

void InkKanvas::add(const QRectF &covered)
{
    if (covered.intersects(QRectF(QPointF(), size())))
        ink_ |= covered;
}

void InkKanvas::paintLine(const QPointF &from, const QPointF &to, const Stroke &stroke)
{
    paintPolyline({from, to}, stroke);
}

void InkKanvas::paintPolyline(const QPolygonF &places, const Stroke &stroke)
{
    const double half = stroke.width / 2;
    add(places.boundingRect().adjusted(-half, -half, half, half));
}

void InkKanvas::paintDisc(const QPointF &centre, double radius, const QColor &)
{
    const QPointF reach(radius, radius);
    add({centre - reach, centre + reach});
}

void InkKanvas::paintCircle(const QPointF &centre, double radius, const Stroke &stroke,
                            const QColor &)
{
    paintDisc(centre, radius + stroke.width / 2, {});
}

void InkKanvas::paintArc(const QPointF &centre, double radius, double, double, const Stroke &stroke)
{
    paintDisc(centre, radius + stroke.width / 2, {});
}

void InkKanvas::paintText(const PlacedText &text)
{
    for (const auto &[left, top, right, bottom] : text.boxes())
        add({QPointF(left, top), QPointF(right, bottom)});
}

void InkKanvas::doPrintNote(const std::string &, float, float y)
{
    noteBottom_ = std::max(noteBottom_, y + lineAdvance());
}

} // namespace veskora
