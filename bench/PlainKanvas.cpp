#include "PlainKanvas.h"

#include "Clip.h"
#include "QtColour.h"
#include "Units.h"

#include <QFontMetricsF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace veskora {

namespace {

/// Device pixels. An upright or level line is put on whole ones; one that leans more would be torn
/// there, as would a flat curve.
constexpr double straight = 0.01;

} // namespace

PlainKanvas::PlainKanvas(QSize size, double scale) : size_(size), scale_(scale)
{
    open();
    doClear();
}

PlainKanvas::~PlainKanvas() = default;

void PlainKanvas::open()
{
    painter_.reset();
    const QSize devicePixels(std::max(1, static_cast<int>(std::ceil(size_.width() * scale_))),
                             std::max(1, static_cast<int>(std::ceil(size_.height() * scale_))));
    image_ = QImage(devicePixels, QImage::Format_RGB32);
    painter_ = std::make_unique<QPainter>(&image_);
    painter_->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    applyPen();
    applyFont();
    rotatedAscent_ = 0; // made anew for the new scale
}

double PlainKanvas::width() const
{
    return size_.width() / pixelsPerCentimetre;
}

double PlainKanvas::height() const
{
    return size_.height() / pixelsPerCentimetre;
}

double PlainKanvas::doCrisp(float centimetres) const
{
    return aligned(centimetres) / (pixelsPerCentimetre * scale_);
}

double PlainKanvas::device(double centimetres) const
{
    return centimetres * pixelsPerCentimetre * scale_;
}

int PlainKanvas::penPixels() const
{
    return penWidth_ * std::max(1, static_cast<int>(std::lround(scale_)));
}

double PlainKanvas::aligned(double centimetres) const
{
    const double offset = penPixels() % 2 == 0 ? 0 : 0.5;
    return std::floor(device(centimetres) + 0.5 - offset) + offset;
}

QPointF PlainKanvas::alignedPoint(double x, double y) const
{
    return {aligned(x), aligned(y)};
}

void PlainKanvas::applyPen()
{
    QPen pen(penColour_, penPixels());
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    if (penStyle_ == PenStyle::dotted) {
        pen.setDashPattern({1, 2});
        pen.setCosmetic(true);
    }
    painter_->setPen(pen);
}

void PlainKanvas::setCap(Qt::PenCapStyle cap)
{
    if (penStyle_ == PenStyle::dotted || painter_->pen().capStyle() == cap)
        return;
    QPen pen = painter_->pen();
    pen.setCapStyle(cap);
    painter_->setPen(pen);
}

void PlainKanvas::applyFont()
{
    constexpr double pixelsPerPoint = 96.0 / 72;
    font_ = QFont(QString::fromLatin1(canvasFontFace));
    font_.setStyleHint(QFont::SansSerif);
    font_.setBold(fontBold_);
    font_.setPixelSize(std::max(
        1, static_cast<int>(std::lround(fontSize_ * pixelsPerPoint * scale_ * textScale_))));
    painter_->setFont(font_);
    const QFontMetricsF metrics(font_);
    ascent_ = metrics.ascent();
    lineHeight_ = metrics.ascent() + metrics.descent();
}

void PlainKanvas::setTextScale(double factor)
{
    textScale_ = factor;
    applyFont();
    rotatedAscent_ = 0; // made anew for the new size
}

void PlainKanvas::setBackground(double word)
{
    background_ = qtColour(word);
}

void PlainKanvas::setPenColour(double word)
{
    const QColor wanted = qtColour(word);
    if (wanted == penColour_)
        return;
    penColour_ = wanted;
    applyPen();
}

void PlainKanvas::setPenWidth(int devicePixels)
{
    if (devicePixels == penWidth_)
        return;
    penWidth_ = devicePixels;
    applyPen();
}

void PlainKanvas::setPenStyle(PenStyle style)
{
    if (style == penStyle_)
        return;
    penStyle_ = style;
    applyPen();
}

void PlainKanvas::setFillOn(bool on)
{
    fillOn_ = on;
}

void PlainKanvas::setFillColour(double word)
{
    fillColour_ = qtColour(word);
}

void PlainKanvas::setFontSize(int points)
{
    if (points == fontSize_)
        return;
    fontSize_ = points;
    applyFont();
}

void PlainKanvas::setFontBold(bool bold)
{
    if (bold == fontBold_)
        return;
    fontBold_ = bold;
    applyFont();
}

void PlainKanvas::doClear()
{
    painter_->fillRect(image_.rect(), background_);
}

std::optional<PlainKanvas::Stroke> PlainKanvas::strokeOf(float x1, float y1, float x2,
                                                         float y2) const
{
    QPointF from(device(x1), device(y1));
    QPointF to(device(x2), device(y2));
    const bool upright = std::abs(from.x() - to.x()) < straight;
    const bool level = std::abs(from.y() - to.y()) < straight;
    const bool onPixels = upright || level || penStyle_ == PenStyle::dotted;
    if (onPixels) {
        from = alignedPoint(x1, y1);
        to = alignedPoint(upright ? x1 : x2, level ? y1 : y2);
    }
    if (!clip(from, to))
        return std::nullopt;
    return Stroke{{from, to}, onPixels};
}

void PlainKanvas::doLine(float x1, float y1, float x2, float y2)
{
    const auto stroke = strokeOf(x1, y1, x2, y2);
    if (!stroke)
        return;
    setCap(stroke->onPixels ? Qt::SquareCap : Qt::FlatCap);
    painter_->setRenderHint(QPainter::Antialiasing, !stroke->onPixels);
    painter_->drawLine(stroke->line);
    painter_->setRenderHint(QPainter::Antialiasing, true);
}

void PlainKanvas::doPolyline(std::span<const Point> places)
{
    const auto [left, right] = std::ranges::minmax(places, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(places, {}, &Point::y);
    if (penStyle_ == PenStyle::dotted)
        return Kanvas::doPolyline(places);
    if (device(right.x - left.x) < straight || device(bottom.y - top.y) < straight)
        return doLine(static_cast<float>(left.x), static_cast<float>(top.y),
                      static_cast<float>(right.x), static_cast<float>(bottom.y));
    QPolygonF line;
    for (const Point &place : places)
        line << QPointF(device(place.x), device(place.y));
    QPen pen = painter_->pen();
    pen.setCapStyle(Qt::RoundCap); // elements that meet at an angle close the corner
    pen.setJoinStyle(Qt::MiterJoin);
    painter_->strokePath(clippedCurve(line), pen);
}

void PlainKanvas::doPoint(float x, float y)
{
    const double side = penPixels();
    const QPointF centre = alignedPoint(x, y);
    if (!reaches(image_.size(), centre, side))
        return;
    painter_->save();
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(penColour_);
    painter_->drawEllipse(centre, side / 2, side / 2);
    painter_->restore();
}

void PlainKanvas::doCircle(float x, float y, float radius)
{
    const QPointF centre(device(x), device(y));
    const double deviceRadius = device(radius);
    if (!reaches(image_.size(), centre, deviceRadius))
        return;
    painter_->setBrush(fillOn_ ? QBrush(fillColour_) : QBrush(Qt::NoBrush));
    painter_->drawEllipse(centre, deviceRadius, deviceRadius);
    painter_->setBrush(Qt::NoBrush);
}

PlainKanvas::ArcAngles PlainKanvas::arcAngles(double start, double end)
{
    constexpr double whole = 2 * std::numbers::pi;
    constexpr double stepsPerRadian = 16 * 180 / std::numbers::pi;
    return {static_cast<int>(std::lround(std::fmod(start, whole) * stepsPerRadian)),
            static_cast<int>(std::lround(arcSpan(start, end) * stepsPerRadian))};
}

void PlainKanvas::doArc(float x, float y, float radius, double start, double end)
{
    const double deviceRadius = device(radius);
    if (!reaches(image_.size(), QPointF(device(x), device(y)), deviceRadius))
        return;
    const QRectF square(device(x) - deviceRadius, device(y) - deviceRadius, 2 * deviceRadius,
                        2 * deviceRadius);
    const ArcAngles angles = arcAngles(start, end);
    painter_->drawArc(square, angles.start, angles.span);
}

void PlainKanvas::doPrint(const std::string &text, float x, float y)
{
    // Text is never higher than a few lines nor longer than the widest of screens.
    if (device(y) > image_.height() || device(y) < -farOutside || std::abs(device(x)) > farOutside)
        return;
    const QPointF place(std::round(device(x)), std::round(device(y) + ascent_));
    painter_->drawText(place, QString::fromStdString(text));
}

const QFont &PlainKanvas::rotatedFont(const RotatedFont &font)
{
    const bool same = font.face == rotatedKey_.face && font.height == rotatedKey_.height
                      && font.weight == rotatedKey_.weight && font.italic == rotatedKey_.italic
                      && font.underline == rotatedKey_.underline
                      && font.strikeout == rotatedKey_.strikeout && rotatedAscent_ > 0;
    if (same)
        return rotated_;
    rotatedKey_ = font;
    rotated_ = QFont(QString::fromStdString(font.face));
    rotated_.setStyleHint(QFont::SansSerif);
    rotated_.setWeight(static_cast<QFont::Weight>(std::clamp(font.weight, 1, 1000)));
    rotated_.setItalic(font.italic);
    rotated_.setUnderline(font.underline);
    rotated_.setStrikeOut(font.strikeout);
    // The height is that of ascent and descent together, not of the letter M.
    constexpr int probe = 100;
    rotated_.setPixelSize(probe);
    const QFontMetricsF large(rotated_);
    const double ratio = probe / (large.ascent() + large.descent());
    rotated_.setPixelSize(
        std::max(1, static_cast<int>(std::lround(font.height * scale_ * textScale_ * ratio))));
    rotatedAscent_ = QFontMetricsF(rotated_).ascent();
    return rotated_;
}

void PlainKanvas::doPrintRotated(const std::string &text, float x, float y, const RotatedFont &font,
                                 int angle)
{
    constexpr double reach = 2000; // device pixels, longer than any label
    if (text.empty() || !reaches(image_.size(), QPointF(device(x), device(y)), reach))
        return;
    painter_->setFont(rotatedFont(font));
    painter_->translate(std::round(device(x)), std::round(device(y)));
    const QString shown = QString::fromStdString(text);
    const int turn = angle % 3600;
    if (turn == 900 || turn == 2700)
        printQuarterTurned(shown, -turn / 10);
    else {
        painter_->rotate(-turn / 10.0);
        painter_->drawText(QPointF(0, std::round(rotatedAscent_)), shown);
    }
    painter_->resetTransform();
    painter_->setFont(font_);
}

/// Turns the pixels of level text, as glyphs that are turned themselves are not put on whole ones.
void PlainKanvas::printQuarterTurned(const QString &text, int degrees)
{
    const QFontMetricsF metrics(rotated_);
    QImage level(static_cast<int>(std::ceil(metrics.horizontalAdvance(text))),
                 static_cast<int>(std::ceil(metrics.height())),
                 QImage::Format_ARGB32_Premultiplied);
    level.fill(Qt::transparent);
    QPainter painter(&level);
    painter.setFont(rotated_);
    painter.setPen(penColour_);
    painter.drawText(QPointF(0, std::round(rotatedAscent_)), text);
    painter.end();
    QTransform turn;
    turn.rotate(degrees);
    painter_->drawImage(turn.mapRect(QRectF(level.rect())).topLeft(), level.transformed(turn));
}

double PlainKanvas::lineAdvance() const
{
    return lineHeight_ / scale_ / pixelsPerCentimetre;
}

} // namespace veskora
