#pragma once
/// @file
/// A drawing surface that measures instead of painting.

#include "VectorKanvas.h"

#include <QRectF>

namespace veskora {

/// What a printed picture covers, in centimetres. What lies wholly outside is no part of it, nor
/// are the notes.
class InkKanvas : public VectorKanvas
{
public:
    /// As large as @p picture.
    explicit InkKanvas(const Kanvas &picture);

    /// Once, after all drawing: what is covered.
    QRectF finish();
    double noteBottom() const { return noteBottom_; } ///< 0 without notes

protected:
    void paintGround(const QColor &) override {}
    void paintLine(const QPointF &from, const QPointF &to, const Stroke &stroke) override;
    void paintPolyline(const QPolygonF &places, const Stroke &stroke) override;
    void paintDisc(const QPointF &centre, double radius, const QColor &colour) override;
    void paintCircle(const QPointF &centre, double radius, const Stroke &stroke,
                     const QColor &fill) override;
    void paintArc(const QPointF &centre, double radius, double start, double span,
                  const Stroke &stroke) override;
    void paintHalo(const PlacedText &, const Stroke &) override {}
    void paintText(const PlacedText &text) override;
    /// Where it would stand if nothing were in its way.
    void doPrintValue(const std::string &text, float x, float y, const Ordinate &) override
    {
        doPrint(text, x, y);
    }
    void doPrintNote(const std::string &text, float x, float y) override;

private:
    void add(const QRectF &covered);

    QRectF ink_; ///< pixels
    double noteBottom_ = 0;
};

} // namespace veskora
