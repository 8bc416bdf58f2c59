#include "FloorKanvas.h"

#include "Clip.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

template <typename... Cases>
struct Overloaded : Cases...
{
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace

void FloorKanvas::doLine(float x1, float y1, float x2, float y2)
{
    const auto stroke = strokeOf(x1, y1, x2, y2);
    if (!stroke)
        return;
    setCap(stroke->onPixels ? Qt::SquareCap : Qt::FlatCap);
    auto *last = steps_.empty() ? nullptr : std::get_if<Lines>(&steps_.back());
    if (last == nullptr || last->onPixels != stroke->onPixels || last->pen != painter_->pen())
        last = &std::get<Lines>(steps_.emplace_back(Lines{painter_->pen(), stroke->onPixels, {}}));
    last->lines << stroke->line;
}

void FloorKanvas::doPolyline(std::span<const Point> places)
{
    QPolygonF line;
    for (const Point &place : places)
        line << QPointF(device(place.x), device(place.y));
    QPen pen = painter_->pen();
    pen.setCapStyle(Qt::RoundCap);
    steps_.emplace_back(Curve{pen, clippedCurve(line)});
}

void FloorKanvas::doPoint(float x, float y)
{
    steps_.emplace_back(
        Disc{QPen(Qt::NoPen), QBrush(penColour_), alignedPoint(x, y), penPixels() / 2.});
}

void FloorKanvas::doCircle(float x, float y, float radius)
{
    steps_.emplace_back(Disc{painter_->pen(), fillOn_ ? QBrush(fillColour_) : QBrush(Qt::NoBrush),
                             QPointF(device(x), device(y)), device(radius)});
}

void FloorKanvas::doArc(float x, float y, float radius, double start, double end)
{
    const ArcAngles angles = arcAngles(start, end);
    const QPointF corner(device(x) - device(radius), device(y) - device(radius));
    const QSizeF size(2 * device(radius), 2 * device(radius));
    steps_.emplace_back(Arc{painter_->pen(), QRectF(corner, size), angles.start, angles.span});
}

void FloorKanvas::doPrint(const std::string &text, float x, float y)
{
    Text made = ready(QString::fromStdString(text), font_, ascent_, 0);
    made.place += QPoint(static_cast<int>(std::round(device(x))),
                         static_cast<int>(std::round(device(y) + ascent_) - std::round(ascent_)));
    steps_.emplace_back(made);
}

void FloorKanvas::doPrintRotated(const std::string &text, float x, float y, const RotatedFont &font,
                                 int angle)
{
    if (text.empty())
        return;
    const QFont &turned = rotatedFont(font);
    Text made = ready(QString::fromStdString(text), turned, rotatedAscent_, -angle / 10.0);
    made.place +=
        QPoint(static_cast<int>(std::round(device(x))), static_cast<int>(std::round(device(y))));
    steps_.emplace_back(made);
}

FloorKanvas::Text FloorKanvas::ready(const QString &text, const QFont &font, double ascent,
                                     double degrees)
{
    const auto key = std::tuple{text, font, penColour_.rgb(), degrees};
    if (const auto found = ready_.find(key); found != ready_.end())
        return found->second;
    const QFontMetricsF metrics(font);
    QImage level(static_cast<int>(std::ceil(metrics.horizontalAdvance(text))),
                 static_cast<int>(std::ceil(metrics.height())),
                 QImage::Format_ARGB32_Premultiplied);
    level.fill(Qt::transparent);
    QPainter painter(&level);
    painter.setFont(font);
    painter.setPen(penColour_);
    painter.drawText(QPointF(0, std::round(ascent)), text);
    painter.end();
    QTransform turn;
    turn.rotate(degrees);
    const QPointF corner = turn.mapRect(QRectF(level.rect())).topLeft();
    return ready_[key] = {corner.toPoint(), level.transformed(turn, Qt::SmoothTransformation)};
}

void FloorKanvas::paint()
{
    PlainKanvas::doClear();
    bool isSmooth = true;
    const auto prepare = [&](const QPen &pen, bool smooth) {
        if (pen != painter_->pen())
            painter_->setPen(pen);
        if (smooth != isSmooth)
            painter_->setRenderHint(QPainter::Antialiasing, isSmooth = smooth);
    };
    const auto paintStep =
        Overloaded{[&](const Lines &step) {
                       prepare(step.pen, !step.onPixels);
                       painter_->drawLines(step.lines);
                   },
                   [&](const Curve &step) {
                       prepare(painter_->pen(), true);
                       painter_->strokePath(step.path, step.pen);
                   },
                   [&](const Disc &step) {
                       prepare(step.pen, true);
                       painter_->setBrush(step.brush);
                       painter_->drawEllipse(step.centre, step.radius, step.radius);
                   },
                   [&](const Arc &step) {
                       prepare(step.pen, true);
                       painter_->drawArc(step.square, step.start, step.span);
                   },
                   [&](const Text &step) { painter_->drawImage(step.place, step.image); }};
    for (const auto &step : steps_)
        std::visit(paintStep, step);
    prepare(painter_->pen(), true);
    applyPen();
    painter_->setBrush(Qt::NoBrush);
}

FloorKanvas::Count FloorKanvas::count() const
{
    Count count{};
    const auto add = Overloaded{
        [&](const Lines &step) { count.lines += static_cast<std::size_t>(step.lines.size()); },
        [&](const Text &) { ++count.texts; }, [&](const auto &) { ++count.curves; }};
    for (const auto &step : steps_)
        std::visit(add, step);
    return count;
}

} // namespace veskora
