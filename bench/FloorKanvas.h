#pragma once
/// @file
/// What a picture takes at the least: its primitives made ready beforehand, and then only painted.

#include "PlainKanvas.h"

#include <QList>
#include <QPainterPath>

#include <map>
#include <tuple>
#include <variant>
#include <vector>

namespace veskora {

/// Takes a drawing as lines, curves and circles in device pixels and texts as images, in its order.
/// Paints them with the state of the painter changed only where it must, lines of one pen in one
/// call. Texts where they overlap may differ from the picture's by the last bit of a colour.
class FloorKanvas : public PlainKanvas
{
public:
    using PlainKanvas::PlainKanvas;

    void paint();

    struct Count
    {
        std::size_t lines, curves, texts;
    };
    Count count() const;

protected:
    void doClear() override { steps_.clear(); }
    void doLine(float x1, float y1, float x2, float y2) override;
    void doPolyline(std::span<const Point> places) override;
    void doPoint(float x, float y) override;
    void doCircle(float x, float y, float radius) override;
    void doArc(float x, float y, float radius, double start, double end) override;
    void doPrint(const std::string &text, float x, float y) override;
    void doPrintRotated(const std::string &text, float x, float y, const RotatedFont &font,
                        int angle) override;

private:
    struct Lines
    {
        QPen pen;
        bool onPixels;
        QList<QLineF> lines;
    };
    struct Curve
    {
        QPen pen;
        QPainterPath path;
    };
    struct Disc
    {
        QPen pen;
        QBrush brush;
        QPointF centre;
        double radius;
    };
    struct Arc
    {
        QPen pen;
        QRectF square;
        int start, span;
    };
    struct Text
    {
        QPoint place;
        QImage image;
    };
    /// Of @p text in @p font, its top left corner at the origin, turned clockwise.
    Text ready(const QString &text, const QFont &font, double ascent, double degrees);

    std::vector<std::variant<Lines, Curve, Disc, Arc, Text>> steps_;
    std::map<std::tuple<QString, QFont, QRgb, double>, Text> ready_;
};

} // namespace veskora
