#include "VectorKanvas.h"

#include "Clip.h"
#include "QtColour.h"
#include "Units.h"

#include <QFontMetricsF>
#include <QRectF>

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

constexpr double pixelsPerPoint = 96.0 / 72;
constexpr double haloWidth = 1.2; ///< around each line of a letter, pixels

QPointF pixelPlace(double x, double y)
{
    return QPointF(x, y) * pixelsPerCentimetre;
}

/// Of light that the eye takes in; 0 black, 1 white.
double luminance(const QColor &colour)
{
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
           + 0.0722 * linear(colour.blueF());
}

/// @p colour, or a darker one of its hue that can be read on white: black where it has none.
QColor readOnWhite(QColor colour)
{
    constexpr double leastContrast = 4.5; // of texts
    const auto isPale = [&] { return 1.05 / (luminance(colour) + 0.05) < leastContrast; };
    if (isPale() && colour.hsvHue() < 0)
        return Qt::black;
    while (isPale())
        colour =
            QColor::fromRgb(colour.red() * 9 / 10, colour.green() * 9 / 10, colour.blue() * 9 / 10);
    return colour;
}

QFont fontOf(const QString &face, int em)
{
    QFont font(face);
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(em);
    return font;
}

} // namespace

QTransform VectorKanvas::PlacedText::place() const
{
    QTransform way = QTransform::fromTranslate(corner.x(), corner.y());
    way.rotate(-turn);
    way.translate(0, ascent);
    way.scale(size / em, size / em);
    return way;
}

VectorKanvas::PlacedText VectorKanvas::PlacedText::underHalo() const
{
    PlacedText under = *this;
    if (!ordinate)
        return under;
    const QFontMetricsF metrics(font);
    under.patch = metrics.tightBoundingRect(text);
    if (text.startsWith('-'))
        return under;
    const QString room = "--"; // what is left of the line is too far off to be a sign
    under.text.prepend(room);
    under.patch.translate(metrics.horizontalAdvance(room), 0);
    under.corner.rx() -= metrics.horizontalAdvance(room) * size / em;
    return under;
}

std::vector<LabelBox> VectorKanvas::PlacedText::boxes() const
{
    const QFontMetricsF metrics(font);
    const QRectF ink = metrics.tightBoundingRect(text);
    const bool leans = std::fmod(turn, 90) != 0;
    const int parts = leans ? static_cast<int>(std::ceil(ink.width() / ink.height())) : 1;
    constexpr double gap = em / 8.0; // on either side: side by side two values are not to be one
    const double signGap = text.startsWith('-') ? gap : metrics.horizontalAdvance('-');
    const double width = (signGap + ink.width() + gap) / parts;
    std::vector<LabelBox> boxes;
    for (int i = 0; i < parts; ++i) {
        const QRectF part(ink.left() - signGap + i * width, ink.top(), width, ink.height());
        const QRectF box =
            place().mapRect(part).adjusted(-haloWidth, -haloWidth, haloWidth, haloWidth);
        boxes.push_back({box.left(), box.top(), box.right(), box.bottom()});
    }
    return boxes;
}

// ------------------------------------------------------------------------------ pen, fill and font

double VectorKanvas::width() const
{
    return size_.width() / pixelsPerCentimetre;
}

double VectorKanvas::height() const
{
    return size_.height() / pixelsPerCentimetre;
}

void VectorKanvas::setBackground(double word)
{
    background_ = qtColour(word);
}

void VectorKanvas::setPenColour(double word)
{
    penColour_ = qtColour(word);
}

void VectorKanvas::setPenWidth(int devicePixels)
{
    penWidth_ = devicePixels;
}

void VectorKanvas::setPenStyle(PenStyle style)
{
    penStyle_ = style;
}

void VectorKanvas::setFillOn(bool on)
{
    fillOn_ = on;
}

void VectorKanvas::setFillColour(double word)
{
    fillColour_ = qtColour(word);
}

void VectorKanvas::setFontSize(int points)
{
    fontSize_ = points;
}

void VectorKanvas::setFontBold(bool bold)
{
    fontBold_ = bold;
}

QColor VectorKanvas::ground() const
{
    return isForPrint_ ? QColor(Qt::white) : background_;
}

QColor VectorKanvas::onPaper(const QColor &colour) const
{
    return isForPrint_ ? readOnWhite(colour) : colour;
}

VectorKanvas::Stroke VectorKanvas::stroke() const
{
    constexpr double thinnest = 0.35, printed = 0.5; // points, of any pen and of one pixel
    const double width =
        isForPrint_ ? std::max(thinnest, printed * penWidth_) * pixelsPerPoint : penWidth_;
    return {onPaper(penColour_), width, penStyle_ == PenStyle::dotted};
}

QFont VectorKanvas::font() const
{
    QFont font = fontOf(QString::fromLatin1(canvasFontFace), em);
    font.setBold(fontBold_);
    return font;
}

double VectorKanvas::fontSize() const
{
    return fontSize_ * textScale_ * pixelsPerPoint;
}

// ------------------------------------------------------------------------------------- primitives

void VectorKanvas::doClear()
{
    texts_.clear();
    if (!isForPrint_)
        paintGround(background_);
}

void VectorKanvas::doLine(float x1, float y1, float x2, float y2)
{
    QPointF from = pixelPlace(x1, y1);
    QPointF to = pixelPlace(x2, y2);
    if (clip(from, to))
        paintLine(from, to, stroke());
}

void VectorKanvas::doPolyline(std::span<const Point> places)
{
    QPolygonF line;
    for (const Point &at : places)
        line << pixelPlace(at.x, at.y);
    for (const QPolygonF &part : clippedCurve(line).toSubpathPolygons())
        paintPolyline(part, stroke());
}

void VectorKanvas::doPoint(float x, float y)
{
    const double radius = stroke().width / 2;
    if (reaches(size_, pixelPlace(x, y), radius))
        paintDisc(pixelPlace(x, y), radius, stroke().colour);
}

void VectorKanvas::doCircle(float x, float y, float radius)
{
    const double r = radius * pixelsPerCentimetre;
    if (!reaches(size_, pixelPlace(x, y), r))
        return;
    const bool hides = fillColour_ == background_; // what lies under it, and is no colour
    const QColor fill = hides ? ground() : onPaper(fillColour_);
    paintCircle(pixelPlace(x, y), r, stroke(), fillOn_ ? fill : QColor());
}

void VectorKanvas::doArc(float x, float y, float radius, double start, double end)
{
    const double r = radius * pixelsPerCentimetre;
    if (reaches(size_, pixelPlace(x, y), r))
        paintArc(pixelPlace(x, y), r, start, arcSpan(start, end), stroke());
}

// ------------------------------------------------------------------------------------------ texts

/// Takes what can be seen of @p text; its blanks at the ends are room and no ink.
void VectorKanvas::place(const std::string &text, PlacedText placed)
{
    constexpr double smallestPrinted = 6 * pixelsPerPoint;
    const QString whole = QString::fromStdString(text);
    placed.text = whole.trimmed();
    if (placed.text.isEmpty() || !reaches(size_, placed.corner, farOutside))
        return;
    if (isForPrint_)
        placed.size = std::max(placed.size, smallestPrinted);
    placed.colour = onPaper(penColour_);
    const QFontMetricsF metrics(placed.font);
    const double scale = placed.size / em;
    placed.ascent = metrics.ascent() * scale;
    const QString room = whole.left(whole.indexOf(placed.text));
    QTransform along;
    along.rotate(-placed.turn);
    placed.corner += along.map(QPointF(metrics.horizontalAdvance(room) * scale, 0));
    texts_.push_back(placed);
}

bool VectorKanvas::isSeen(const PlacedText &text) const
{
    const QRectF ink = QFontMetricsF(text.font).tightBoundingRect(text.text);
    return text.place().mapRect(ink).intersects(QRectF(QPointF(), size_));
}

void VectorKanvas::doPrint(const std::string &text, float x, float y)
{
    place(text, {.font = font(), .size = fontSize(), .corner = pixelPlace(x, y)});
}

void VectorKanvas::doPrintOnGround(const std::string &text, float x, float y)
{
    place(text, {.font = font(), .size = fontSize(), .corner = pixelPlace(x, y), .hasHalo = true});
}

void VectorKanvas::doPrintValue(const std::string &text, float x, float y, const Ordinate &ordinate)
{
    const auto inPixels = [](Point at) {
        return Point{at.x * pixelsPerCentimetre, at.y * pixelsPerCentimetre};
    };
    // A minus must not run into the ordinate: it keeps the room that other values have before them.
    place(text.front() == '-' ? " " + text : text,
          {.font = font(),
           .size = fontSize(),
           .corner = pixelPlace(x, y),
           .hasHalo = true,
           .ordinate = Ordinate{ordinate.node, inPixels(ordinate.foot), inPixels(ordinate.tip)}});
}

void VectorKanvas::doPrintRotated(const std::string &text, float x, float y,
                                  const RotatedFont &asked, int angle)
{
    QFont turned = fontOf(QString::fromStdString(asked.face), em);
    turned.setWeight(static_cast<QFont::Weight>(std::clamp(asked.weight, 1, 1000)));
    turned.setItalic(asked.italic);
    turned.setUnderline(asked.underline);
    turned.setStrikeOut(asked.strikeout);
    // The height is that of ascent and descent together, not of the letter M.
    const double size = asked.height * textScale_ * em / QFontMetricsF(turned).height();
    place(text, {.font = turned,
                 .size = size,
                 .corner = pixelPlace(x, y),
                 .turn = angle / 10.0,
                 .hasHalo = true});
}

double VectorKanvas::lineAdvance() const
{
    return QFontMetricsF(font()).height() / em * fontSize() / pixelsPerCentimetre;
}

void VectorKanvas::layOutValues()
{
    std::vector<ValueLabel> labels;
    std::vector<LabelBox> obstacles;
    for (const PlacedText &text : texts_)
        if (text.ordinate)
            labels.push_back({text.text.toStdString(), text.boxes().front(), *text.ordinate});
        else
            for (const LabelBox &box : text.boxes())
                obstacles.push_back(box);
    const auto [moves, withoutRoom] =
        layOutLabels(labels, obstacles, {0, 0, size_.width(), size_.height()}, crowded_);
    valuesWithoutRoom_ = withoutRoom;
    std::vector<PlacedText> kept;
    auto next = moves.begin();
    for (PlacedText &text : texts_) {
        const std::optional<Point> by = text.ordinate ? *next++ : Point{};
        if (!by)
            continue;
        text.corner += QPointF(by->x, by->y);
        kept.push_back(std::move(text));
    }
    texts_ = std::move(kept);
}

void VectorKanvas::paintTexts()
{
    layOutValues();
    texts_.erase(std::remove_if(texts_.begin(), texts_.end(),
                                [this](const PlacedText &text) { return !isSeen(text); }),
                 texts_.end()); // nobody searches for what cannot be seen
    for (const PlacedText &text : texts_)
        if (text.hasHalo)
            paintHalo(text.underHalo(), {ground(), 2 * haloWidth, false});
    for (const PlacedText &text : texts_)
        paintText(text);
}

} // namespace veskora
