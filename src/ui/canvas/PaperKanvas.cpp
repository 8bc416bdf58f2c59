#include "PaperKanvas.h"

#include "QtColour.h"
#include "Units.h"

#include <QFontMetricsF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace veskora {

namespace {

constexpr double centimetresPerPoint = 2.54 / 72;

} // namespace

PaperKanvas::PaperKanvas(QPainter &painter, const QRectF &area, double unitsPerCentimetre)
    : painter_(painter), area_(area), units_(unitsPerCentimetre)
{
    painter_.save();
    painter_.setClipRect(area_);
    applyPen();
}

void PaperKanvas::finish()
{
    painter_.restore();
}

double PaperKanvas::width() const
{
    return area_.width() / units_;
}

double PaperKanvas::height() const
{
    return area_.height() / units_;
}

QPointF PaperKanvas::place(double x, double y) const
{
    return area_.topLeft() + QPointF(x, y) * units_;
}

void PaperKanvas::applyPen()
{
    QPen pen(penColour_, penWidth_ / pixelsPerCentimetre * units_);
    pen.setCapStyle(Qt::RoundCap);
    if (penStyle_ == PenStyle::dotted)
        pen.setDashPattern({1, 2});
    painter_.setPen(pen);
}

QFont PaperKanvas::font() const
{
    QFont font(QString::fromLatin1(canvasFontFace));
    font.setStyleHint(QFont::SansSerif);
    font.setBold(fontBold_);
    font.setPixelSize(static_cast<int>(std::lround(fontSize_ * centimetresPerPoint * units_)));
    return font;
}

void PaperKanvas::setBackground(double word)
{
    background_ = qtColour(word);
}

void PaperKanvas::setPenColour(double word)
{
    penColour_ = qtColour(word);
    applyPen();
}

void PaperKanvas::setPenWidth(int devicePixels)
{
    penWidth_ = devicePixels;
    applyPen();
}

void PaperKanvas::setPenStyle(PenStyle style)
{
    penStyle_ = style;
    applyPen();
}

void PaperKanvas::setFillOn(bool on)
{
    fillOn_ = on;
}

void PaperKanvas::setFillColour(double word)
{
    fillColour_ = qtColour(word);
}

void PaperKanvas::setFontSize(int points)
{
    fontSize_ = points;
}

void PaperKanvas::setFontBold(bool bold)
{
    fontBold_ = bold;
}

void PaperKanvas::doClear()
{
    painter_.fillRect(area_, background_);
}

void PaperKanvas::doLine(float x1, float y1, float x2, float y2)
{
    painter_.drawLine(place(x1, y1), place(x2, y2));
}

void PaperKanvas::doPolyline(std::span<const Point> places)
{
    QPolygonF line;
    for (const Point &at : places)
        line << place(at.x, at.y);
    painter_.drawPolyline(line);
}

void PaperKanvas::doPoint(float x, float y)
{
    const double radius = penWidth_ / pixelsPerCentimetre * units_ / 2;
    painter_.save();
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(penColour_);
    painter_.drawEllipse(place(x, y), radius, radius);
    painter_.restore();
}

void PaperKanvas::doCircle(float x, float y, float radius)
{
    painter_.setBrush(fillOn_ ? QBrush(fillColour_) : QBrush(Qt::NoBrush));
    painter_.drawEllipse(place(x, y), radius * units_, radius * units_);
    painter_.setBrush(Qt::NoBrush);
}

void PaperKanvas::doArc(float x, float y, float radius, double start, double end)
{
    constexpr double whole = 2 * std::numbers::pi;
    constexpr double degrees = 180 / std::numbers::pi;
    double span = std::fmod(end - start, whole);
    if (span <= 0)
        span += whole;
    const double r = radius * units_;
    const QPointF centre = place(x, y);
    const QRectF square(centre.x() - r, centre.y() - r, 2 * r, 2 * r);
    QPainterPath path;
    path.arcMoveTo(square, start * degrees);
    path.arcTo(square, start * degrees, span * degrees);
    painter_.drawPath(path);
}

void PaperKanvas::doPrint(const std::string &text, float x, float y)
{
    painter_.setFont(font());
    const double ascent = QFontMetricsF(font(), painter_.device()).ascent();
    painter_.drawText(place(x, y) + QPointF(0, ascent), QString::fromStdString(text));
}

void PaperKanvas::doPrintRotated(const std::string &text, float x, float y,
                                 const RotatedFont &asked, int angle)
{
    QFont turned(QString::fromStdString(asked.face));
    turned.setStyleHint(QFont::SansSerif);
    turned.setWeight(static_cast<QFont::Weight>(std::clamp(asked.weight, 1, 1000)));
    turned.setPixelSize(
        static_cast<int>(std::lround(asked.height * 0.87 / pixelsPerCentimetre * units_)));
    painter_.save();
    painter_.setFont(turned);
    painter_.translate(place(x, y));
    painter_.rotate(-angle / 10.0);
    painter_.drawText(QPointF(0, QFontMetricsF(turned, painter_.device()).ascent()),
                      QString::fromStdString(text));
    painter_.restore();
}

double PaperKanvas::lineAdvance() const
{
    const QFontMetricsF metrics(font(), painter_.device());
    return (metrics.ascent() + metrics.descent()) / units_;
}

} // namespace veskora
