#pragma once
/// @file
/// The drawing surface as a part of a sheet of paper.

#include "VectorKanvas.h"

#include <QPainter>
#include <QRectF>

namespace veskora {

/// Draws through a painter that somebody else has begun, as on a page of a PDF file.
class PaperKanvas : public VectorKanvas
{
public:
    /// @param area  of the painter's surface, in its units; what leaves it is cut off
    /// @param unitsPerCentimetre  of that surface
    PaperKanvas(QPainter &painter, const QRectF &area, double unitsPerCentimetre);

    /// Once, after all drawing: puts the texts down and gives the painter back as it was.
    void finish();

protected:
    void paintGround(const QColor &colour) override;
    void paintLine(const QPointF &from, const QPointF &to, const Stroke &stroke) override;
    void paintPolyline(const QPolygonF &places, const Stroke &stroke) override;
    void paintDisc(const QPointF &centre, double radius, const QColor &colour) override;
    void paintCircle(const QPointF &centre, double radius, const Stroke &stroke,
                     const QColor &fill) override;
    void paintArc(const QPointF &centre, double radius, double start, double span,
                  const Stroke &stroke) override;
    void paintHalo(const PlacedText &text, const Stroke &stroke) override;
    void paintText(const PlacedText &text) override;

private:
    QPainter &painter_;
};

} // namespace veskora
