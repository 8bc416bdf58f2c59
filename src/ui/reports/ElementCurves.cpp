#include "ElementCurves.h"

#include "Functions.h"
#include "MathFunc.h"
#include "QtColour.h"
#include "Settings.h"
#include "Text.h"
#include "WindowParts.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

constexpr int margin = 12; ///< logical pixels, right of the element and round the names
constexpr int gap = 3;     ///< between a label and its place

using Value = std::optional<double> StationValues::*;

} // namespace

QString shortNumber(double value)
{
    const double rounded = Val(QByteArray::number(value, 'g', 6).toStdString());
    return qtText(withSeparator(numberText(rounded), regionalDecimalSeparator()));
}

/// What tells one from another.
struct ElementCurves::Curve
{
    QString name;
    QColor colour;
    bool isPositiveDown;
    Value value;
    unsigned extreme; ///< the mark of its extremes between the ends
};

std::vector<ElementCurves::Curve> ElementCurves::curves() const
{
    return {{"N", qtColour(xroma_N), N_sin_Ina, &StationValues::N, 0},
            {"Q", qtColour(xroma_Q), Q_sin_Ina, &StationValues::Q, 0},
            {"M", qtColour(xroma_M), M_sin_Tension, &StationValues::M, placeMark::extremeM},
            {qtText(Metafrasi(1860, "Deflection")), qtColour(xroma_paramorfosis), false,
             &StationValues::v, placeMark::extremeV}};
}

ElementCurves::ElementCurves(QWidget *parent) : QWidget(parent)
{
    constexpr QSize least(240, 140); // logical pixels
    setMinimumSize(least);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void ElementCurves::present(const std::optional<AlongElement> &along, std::vector<Station> stations)
{
    along_ = along;
    stations_ = std::move(stations);
    int widest = 0;
    for (const Curve &curve : curves())
        widest = std::max(widest, fontMetrics().horizontalAdvance(curve.name));
    left_ = widest + 2 * margin;
    update();
}

void ElementCurves::setPlace(double x)
{
    place_ = x;
    update();
}

double ElementCurves::xOf(double place) const
{
    return left_ + place / along_->length * (width() - margin - left_);
}

void ElementCurves::moveTo(double place)
{
    setPlace(std::clamp(place, 0.0, along_->length));
    emit placeMoved(place_);
}

// --------------------------------------------------------------------------------------- painting

/// A curve and where it lies.
struct ElementCurves::Panel
{
    Curve curve;
    QRectF frame;
    std::vector<QPointF> points = {}; ///< place and value; none where a value is missing
    double low = 0, high = 0;         ///< of the values and 0
    bool hasLabels = false;           ///< else it is too low for them
    double top = 0, scale = 0;        ///< of the area of the curve, and pixels for 1
};

ElementCurves::Panel ElementCurves::panelOf(const Curve &curve, const QRectF &frame) const
{
    constexpr int chords = 100, leastLines = 4;
    Panel panel{.curve = curve, .frame = frame};
    for (int k = 0; k <= chords; ++k) {
        const double x = k == chords ? along_->length : k * along_->length / chords;
        const auto value = valuesAt(*along_, {x}).*curve.value;
        if (!value) {
            panel.points.clear();
            break;
        }
        panel.points.emplace_back(x, *value);
        panel.low = std::min(panel.low, *value);
        panel.high = std::max(panel.high, *value);
    }
    const int text = fontMetrics().height();
    panel.hasLabels = frame.height() >= leastLines * text;
    const double edge = gap + (panel.hasLabels ? text : 0);
    panel.top = frame.top() + edge;
    panel.scale = panel.high > panel.low
                      ? std::max(1.0, frame.height() - 2 * edge) / (panel.high - panel.low)
                      : 0;
    return panel;
}

QPointF ElementCurves::at(const Panel &panel, double x, double value) const
{
    const double down = panel.curve.isPositiveDown ? value - panel.low : panel.high - value;
    return {xOf(x), panel.top + panel.scale * down};
}

void ElementCurves::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), qtColour(xroma_background));
    if (along_) {
        const auto all = curves();
        const double height = static_cast<double>(this->height()) / static_cast<double>(all.size());
        std::vector<Panel> panels;
        for (std::size_t k = 0; k < all.size(); ++k)
            panels.push_back(panelOf(
                all[k],
                QRectF(0, static_cast<double>(k) * height, width(), height).toAlignedRect()));
        for (const Panel &panel : panels)
            paint(painter, panel);
        paintCursor(painter, panels);
        for (const Panel &panel : panels)
            label(painter, panel);
    }
    painter.setBrush(Qt::NoBrush);
    drawFocusFrame(painter, this, rect(), 1);
}

void ElementCurves::paint(QPainter &painter, const Panel &panel) const
{
    painter.setPen(qtColour(xroma_stoixeion));
    painter.drawText(panel.frame.adjusted(margin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     panel.curve.name);
    if (panel.points.empty()) {
        painter.drawText(panel.frame, Qt::AlignCenter, qtText(Metafrasi(1869, "no value")));
        return;
    }
    QPolygonF area = {at(panel, 0, 0)};
    for (const QPointF &point : panel.points)
        area << at(panel, point.x(), point.y());
    area << at(panel, along_->length, 0);
    QColor ground = panel.curve.colour;
    ground.setAlphaF(0.15F);
    painter.setBrush(ground);
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(area);
    painter.setPen(QPen(panel.curve.colour, 1.5));
    painter.drawPolyline(area);
    painter.setPen(QPen(qtColour(xroma_stoixeion), 1));
    painter.drawLine(at(panel, 0, 0), at(panel, along_->length, 0));
}

void ElementCurves::paintCursor(QPainter &painter, const std::vector<Panel> &panels) const
{
    painter.setPen(QPen(qtColour(xroma_stoixeion), 1, Qt::DashLine));
    painter.drawLine(QPointF(xOf(place_), 0), QPointF(xOf(place_), height()));
    const StationValues values = valuesAt(*along_, stationAt(*along_, stations_, place_));
    painter.setPen(QPen(qtColour(xroma_stoixeion), 1));
    for (const Panel &panel : panels)
        if (!panel.points.empty()) {
            painter.setBrush(panel.curve.colour);
            painter.drawEllipse(at(panel, place_, *(values.*panel.curve.value)), 3, 3);
        }
}

namespace {

/// Over a halo of the ground, so that no line runs through it.
void drawText(QPainter &painter, const QRectF &box, const QString &text)
{
    constexpr double halo = 4; // both sides together
    const QPointF base(box.left(), box.top() + QFontMetricsF(painter.font()).ascent());
    QPainterPath outline;
    outline.addText(base, painter.font(), text);
    painter.strokePath(outline, QPen(qtColour(xroma_background), halo, Qt::SolidLine, Qt::RoundCap,
                                     Qt::RoundJoin));
    painter.drawText(base, text);
}

} // namespace

/// Extremes first: of labels that would lie on each other the later ones are left out.
void ElementCurves::label(QPainter &painter, const Panel &panel) const
{
    if (!panel.hasLabels || panel.points.empty())
        return;
    std::vector<Station> places;
    for (const Station &station : stations_)
        if ((station.marks & panel.curve.extreme) != 0)
            places.push_back(station);
    places.push_back(stations_.front());
    places.push_back(stations_.back());
    const QFontMetricsF font(painter.font());
    std::vector<QRectF> taken;
    painter.setPen(qtColour(xroma_stoixeion));
    for (const Station &station : places) {
        const double value = *(valuesAt(*along_, station).*panel.curve.value);
        const QString text = shortNumber(value);
        const QPointF point = at(panel, station.x, value);
        const bool isAbove = point.y() <= at(panel, station.x, 0).y();
        QRectF box(0, 0, font.horizontalAdvance(text), font.height());
        box.moveCenter(point);
        box.moveTop(isAbove ? point.y() - box.height() - 1 : point.y() + 1);
        const double first = left_ - gap, last = panel.frame.right() - gap - box.width();
        box.moveLeft(std::clamp(box.left(), first, std::max(first, last)));
        if (std::any_of(taken.begin(), taken.end(),
                        [&box](const QRectF &other) { return other.intersects(box); }))
            continue;
        taken.push_back(box);
        drawText(painter, box, text);
    }
}

// ----------------------------------------------------------------------------------------- cursor

void ElementCurves::mouseMoveEvent(QMouseEvent *event)
{
    if (along_)
        moveTo((event->position().x() - left_) / (width() - margin - left_) * along_->length);
}

double ElementCurves::nextStation(bool isForward) const
{
    double next = isForward ? along_->length : 0;
    for (const Station &station : stations_) {
        if (station.marks == 0)
            continue;
        if (isForward ? station.x > place_ && station.x < next
                      : station.x < place_ && station.x > next)
            next = station.x;
    }
    return next;
}

void ElementCurves::keyPressEvent(QKeyEvent *event)
{
    if (!along_)
        return QWidget::keyPressEvent(event);
    const bool isWide = event->modifiers().testFlag(Qt::ControlModifier);
    const double step = along_->length / 100;
    switch (event->key()) {
    case Qt::Key_Left:
        return moveTo(isWide ? nextStation(false) : place_ - step);
    case Qt::Key_Right:
        return moveTo(isWide ? nextStation(true) : place_ + step);
    case Qt::Key_Home:
        return moveTo(0);
    case Qt::Key_End:
        return moveTo(along_->length);
    default:
        return QWidget::keyPressEvent(event);
    }
}

} // namespace veskora

#include "moc_ElementCurves.cpp"
