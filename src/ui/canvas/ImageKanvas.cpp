#include "ImageKanvas.h"

#include "Clip.h"
#include "FileSystem.h"
#include "QtColour.h"
#include "Units.h"

#include <QBuffer>
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

bool writeImage(const QImage &image, const QString &path, const char *format)
{
    QByteArray content;
    QBuffer buffer(&content);
    return buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format)
           && tryWriteWholeFile(path.toStdString(), content.toStdString());
}

ImageKanvas::ImageKanvas(QSize size, double scale) : size_(size), scale_(scale)
{
    open();
    ImageKanvas::doClear(); // by name: what derives from it does not stand yet
}

ImageKanvas::~ImageKanvas() = default;

void ImageKanvas::resize(QSize size, double scale)
{
    size_ = size;
    scale_ = scale;
    open();
    clear();
}

void ImageKanvas::open()
{
    painter_.reset();
    const QSize devicePixels(std::max(1, static_cast<int>(std::ceil(size_.width() * scale_))),
                             std::max(1, static_cast<int>(std::ceil(size_.height() * scale_))));
    image_ = QImage(devicePixels, QImage::Format_RGB32);
    rows_ = reinterpret_cast<QRgb *>(image_.bits()); // painter and canvas write to the same
    painter_ = std::make_unique<QPainter>(&image_);
    painter_->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    changePen();
    dots_ = {};
    applyFont();
    rotated_.reset();
}

double ImageKanvas::width() const
{
    return size_.width() / pixelsPerCentimetre;
}

double ImageKanvas::height() const
{
    return size_.height() / pixelsPerCentimetre;
}

double ImageKanvas::doCrisp(float centimetres) const
{
    return aligned(centimetres) / (pixelsPerCentimetre * scale_);
}

double ImageKanvas::device(double centimetres) const
{
    return centimetres * pixelsPerCentimetre * scale_;
}

int ImageKanvas::penPixels() const
{
    return penWidth_ * std::max(1, static_cast<int>(std::lround(scale_)));
}

double ImageKanvas::aligned(double centimetres) const
{
    const double offset = penPixels() % 2 == 0 ? 0 : 0.5;
    return std::floor(device(centimetres) + 0.5 - offset) + offset;
}

QPointF ImageKanvas::alignedPoint(double x, double y) const
{
    return {aligned(x), aligned(y)};
}

QPen ImageKanvas::pen() const
{
    QPen pen(penColour_, penPixels());
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    if (penStyle_ == PenStyle::dotted) {
        pen.setDashPattern({1, 2});
        pen.setCosmetic(true);
    }
    return pen;
}

void ImageKanvas::takePen(Qt::PenCapStyle cap)
{
    if (isPenTaken_ && painter_->pen().capStyle() == cap)
        return;
    QPen wanted = pen();
    wanted.setCapStyle(cap);
    painter_->setPen(wanted);
    isPenTaken_ = true;
}

void ImageKanvas::takeFill(const QBrush &brush)
{
    if (painter_->brush() != brush)
        painter_->setBrush(brush);
}

void ImageKanvas::changePen()
{
    isPenTaken_ = false;
    cap_ = Qt::FlatCap;
}

void ImageKanvas::applyFont()
{
    constexpr double pixelsPerPoint = 96.0 / 72;
    const int pixels = std::max(
        1, static_cast<int>(std::lround(fontSize_ * pixelsPerPoint * scale_ * textScale_)));
    constexpr std::size_t mostFonts = 8; // a picture has three
    const std::pair key(pixels, fontBold_);
    if (texts_.size() >= mostFonts && !texts_.contains(key))
        texts_.clear();
    QFont font(QString::fromLatin1(canvasFontFace));
    font.setStyleHint(QFont::SansSerif);
    font.setBold(fontBold_);
    font.setPixelSize(pixels);
    text_ = &texts_.try_emplace(key, font).first->second;
}

void ImageKanvas::setTextScale(double factor)
{
    textScale_ = factor;
    applyFont();
    rotated_.reset(); // made anew in the new size
}

void ImageKanvas::setBackground(double word)
{
    background_ = qtColour(word);
}

void ImageKanvas::setPenColour(double word)
{
    const QColor wanted = qtColour(word);
    if (wanted == penColour_)
        return;
    penColour_ = wanted;
    changePen();
}

void ImageKanvas::setPenWidth(int devicePixels)
{
    if (devicePixels == penWidth_)
        return;
    penWidth_ = devicePixels;
    changePen();
}

void ImageKanvas::setPenStyle(PenStyle style)
{
    if (style == penStyle_)
        return;
    penStyle_ = style;
    changePen();
}

void ImageKanvas::setFillOn(bool on)
{
    fillOn_ = on;
}

void ImageKanvas::setFillColour(double word)
{
    fillColour_ = qtColour(word);
}

void ImageKanvas::setFontSize(int points)
{
    if (points == fontSize_)
        return;
    fontSize_ = points;
    applyFont();
}

void ImageKanvas::setFontBold(bool bold)
{
    if (bold == fontBold_)
        return;
    fontBold_ = bold;
    applyFont();
}

void ImageKanvas::doClear()
{
    painter_->fillRect(image_.rect(), background_);
}

void ImageKanvas::doLine(float x1, float y1, float x2, float y2)
{
    QPointF from(device(x1), device(y1));
    QPointF to(device(x2), device(y2));
    // An upright or level line is put on whole pixels and needs no smoothing; dots want none.
    const bool upright = std::abs(from.x() - to.x()) < straight;
    const bool level = std::abs(from.y() - to.y()) < straight;
    const bool isDotted = penStyle_ == PenStyle::dotted;
    const bool onPixels = upright || level || isDotted;
    if (onPixels) {
        from = alignedPoint(x1, y1);
        to = alignedPoint(upright ? x1 : x2, level ? y1 : y2);
    }
    if (!clip(from, to))
        return;
    if (!isDotted)
        cap_ = onPixels ? Qt::SquareCap : Qt::FlatCap;
    if (onPixels && from != to && (!isDotted || upright || level))
        return isDotted ? drawDots(from, to) : drawOnPixels(from, to);
    takePen(isDotted ? Qt::FlatCap : cap_);
    painter_->setRenderHint(QPainter::Antialiasing, !onPixels);
    painter_->drawLine(from, to);
    painter_->setRenderHint(QPainter::Antialiasing, true);
}

void ImageKanvas::drawOnPixels(const QPointF &from, const QPointF &to)
{
    const double half = penPixels() / 2.0;
    const QMarginsF ends(half, half, half, half);
    colour((QRectF(from, to).normalized() + ends).toRect());
}

void ImageKanvas::colour(const QRect &pixels)
{
    const QRect seen = pixels & image_.rect();
    const QRgb colour = penColour_.rgb();
    for (int y = seen.top(); y <= seen.bottom(); ++y)
        std::fill_n(rows_ + static_cast<std::ptrdiff_t>(y) * image_.width() + seen.left(),
                    seen.width(), colour);
}

void ImageKanvas::drawDots(const QPointF &from, const QPointF &to)
{
    const bool isLevel = from.y() == to.y();
    const std::ptrdiff_t row = image_.width(), along = isLevel ? 1 : row,
                         across = isLevel ? row : 1;
    const int side = isLevel ? image_.height() : image_.width();
    const int first = static_cast<int>((isLevel ? from.y() : from.x()) - penPixels() / 2.0);
    const Dots &alike = isLevel ? dots(from.x(), to.x(), true) : dots(from.y(), to.y(), false);
    const QRgb colour = penColour_.rgb();
    for (int k = std::max(first, 0); k < std::min(first + penPixels(), side); ++k)
        for (const int place : alike.inked)
            rows_[place * along + k * across] = colour;
}

/// The painter's own, taken from one such line.
const ImageKanvas::Dots &ImageKanvas::dots(double from, double to, bool isLevel)
{
    const int width = penPixels();
    if (dots_.from == from && dots_.to == to && dots_.isLevel == isLevel && dots_.width == width)
        return dots_;
    dots_ = {from, to, isLevel, width, {}};
    QImage line(isLevel ? QSize(image_.width(), width) : QSize(width, image_.height()),
                QImage::Format_RGB32);
    line.fill(Qt::black);
    QPainter painter(&line);
    QPen white = pen();
    white.setColor(Qt::white);
    painter.setPen(white);
    const double middle = width / 2.0;
    painter.drawLine(isLevel ? QLineF(from, middle, to, middle) : QLineF(middle, from, middle, to));
    painter.end();
    const int length = isLevel ? line.width() : line.height();
    for (int place = 0; place < length; ++place)
        if (qRed(isLevel ? line.pixel(place, 0) : line.pixel(0, place)) != 0)
            dots_.inked.push_back(place);
    return dots_;
}

void ImageKanvas::doPolyline(std::span<const Point> places)
{
    const auto [left, right] = std::ranges::minmax(places, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(places, {}, &Point::y);
    if (penStyle_ == PenStyle::dotted)
        return Kanvas::doPolyline(places);
    if (device(right.x - left.x) < straight || device(bottom.y - top.y) < straight)
        return doLine(static_cast<float>(left.x), static_cast<float>(top.y),
                      static_cast<float>(right.x), static_cast<float>(bottom.y));
    QPolygonF line;
    for (const Point &place : places) {
        const QPointF at(device(place.x), device(place.y));
        if (line.isEmpty() || at != line.back()) // a way of no length would have ends
            line << at;
    }
    takePen(Qt::RoundCap); // elements that meet at an angle close the corner
    if (QRectF(image_.rect()).contains(line.boundingRect()))
        painter_->drawPolyline(line);
    else
        painter_->strokePath(clippedCurve(line), painter_->pen());
}

void ImageKanvas::doPoint(float x, float y)
{
    const double side = penPixels();
    const QPointF centre = alignedPoint(x, y);
    if (!reaches(image_.size(), centre, side))
        return;
    painter_->setPen(Qt::NoPen);
    isPenTaken_ = false;
    takeFill(penColour_);
    painter_->drawEllipse(centre, side / 2, side / 2);
}

void ImageKanvas::doCircle(float x, float y, float radius)
{
    const QPointF centre(device(x), device(y));
    const double deviceRadius = device(radius);
    if (!reaches(image_.size(), centre, deviceRadius))
        return;
    takePen(cap_);
    takeFill(fillOn_ ? QBrush(fillColour_) : QBrush(Qt::NoBrush));
    painter_->drawEllipse(centre, deviceRadius, deviceRadius);
}

void ImageKanvas::doArc(float x, float y, float radius, double start, double end)
{
    constexpr double whole = 2 * std::numbers::pi;
    constexpr double stepsPerRadian = 16 * 180 / std::numbers::pi;
    const double deviceRadius = device(radius);
    if (!reaches(image_.size(), QPointF(device(x), device(y)), deviceRadius))
        return;
    const QRectF square(device(x) - deviceRadius, device(y) - deviceRadius, 2 * deviceRadius,
                        2 * deviceRadius);
    takePen(cap_);
    painter_->drawArc(square,
                      static_cast<int>(std::lround(std::fmod(start, whole) * stepsPerRadian)),
                      static_cast<int>(std::lround(arcSpan(start, end) * stepsPerRadian)));
}

void ImageKanvas::drawLevel(ReadyTexts &texts, const std::string &text, const QPointF &place)
{
    takePen(painter_->pen().capStyle());
    if (texts.font().underline() || texts.font().strikeOut()) { // lines that no glyph has
        painter_->setFont(texts.font());
        return painter_->drawText(place, QString::fromStdString(text));
    }
    for (const QGlyphRun &glyphs : texts.level(text))
        painter_->drawGlyphRun(place, glyphs);
}

void ImageKanvas::doPrint(const std::string &text, float x, float y)
{
    // Text is never higher than a few lines nor longer than the widest of screens.
    if (device(y) > image_.height() || device(y) < -farOutside || std::abs(device(x)) > farOutside)
        return;
    drawLevel(*text_, text,
              QPointF(std::round(device(x)), std::round(device(y) + text_->ascent())));
}

ReadyTexts &ImageKanvas::rotatedTexts(const RotatedFont &font)
{
    if (rotated_ && font == rotatedKey_)
        return *rotated_;
    rotatedKey_ = font;
    QFont made(QString::fromStdString(font.face));
    made.setStyleHint(QFont::SansSerif);
    made.setWeight(static_cast<QFont::Weight>(std::clamp(font.weight, 1, 1000)));
    made.setItalic(font.italic);
    made.setUnderline(font.underline);
    made.setStrikeOut(font.strikeout);
    // The height is that of ascent and descent together, not of the letter M.
    constexpr int probe = 100;
    made.setPixelSize(probe);
    const QFontMetricsF large(made);
    const double ratio = probe / (large.ascent() + large.descent());
    made.setPixelSize(
        std::max(1, static_cast<int>(std::lround(font.height * scale_ * textScale_ * ratio))));
    rotated_ = std::make_unique<ReadyTexts>(made);
    return *rotated_;
}

void ImageKanvas::doPrintRotated(const std::string &text, float x, float y, const RotatedFont &font,
                                 int angle)
{
    constexpr double reach = 2000; // device pixels, longer than any label
    if (text.empty() || !reaches(image_.size(), QPointF(device(x), device(y)), reach))
        return;
    ReadyTexts &texts = rotatedTexts(font);
    const QPointF place(std::round(device(x)), std::round(device(y)));
    const int turn = angle % 3600;
    const QPointF baseLine(0, std::round(texts.ascent()));
    if (turn == 900 || turn == 2700) {
        const QImage &image = texts.quarterTurned(text, -turn / 10, penColour_);
        const QPointF corner =
            turn == 900 ? QPointF(0, -image.height()) : QPointF(-image.width(), 0);
        return painter_->drawImage(place + corner, image);
    }
    painter_->translate(place);
    painter_->rotate(-turn / 10.0);
    drawLevel(texts, text, baseLine);
    painter_->resetTransform();
}

double ImageKanvas::lineAdvance() const
{
    return text_->lineHeight() / scale_ / pixelsPerCentimetre;
}

} // namespace veskora
