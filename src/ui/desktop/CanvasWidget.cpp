#include "CanvasWidget.h"

#include "Metablites.h"
#include "QtColour.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Units.h"

#include <QMouseEvent>
#include <QPaintEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veskora {

CanvasWidget::CanvasWidget(QWidget *parent) : QWidget(parent), kanvas_(QSize(1, 1))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
}

void CanvasWidget::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QRect part = event->rect();
    const double scale = kanvas_.scale();
    painter.fillRect(part, qtColour(xroma_background)); // at odd scales a seam stays at the edge
    painter.drawImage(
        QRectF(part), kanvas_.image(),
        QRectF(part.x() * scale, part.y() * scale, part.width() * scale, part.height() * scale));
}

void CanvasWidget::fitImage()
{
    if (kanvas_.size() == size() && kanvas_.scale() == devicePixelRatioF())
        return;
    kanvas_.resize(size(), devicePixelRatioF());
    emit resized();
}

void CanvasWidget::resizeEvent(QResizeEvent *)
{
    fitImage();
}

bool CanvasWidget::event(QEvent *event)
{
    // Another screen may have another resolution.
    if (event->type() == QEvent::ScreenChangeInternal || event->type() == QEvent::Show)
        fitImage();
    // A box, another window or another program takes the mouse, and the release with it.
    const bool isTaken = event->type() == QEvent::WindowBlocked
                         || event->type() == QEvent::WindowDeactivate
                         || event->type() == QEvent::Hide;
    if (isTaken && std::exchange(held_, Qt::NoButton) != Qt::NoButton)
        emit abandoned();
    return QWidget::event(event);
}

namespace {

/// A place in centimetres. The canvas counts in Singles: a place said twice is the same place.
double centimetres(double pixels)
{
    return static_cast<float>(pixels / pixelsPerCentimetre);
}

} // namespace

QPointF CanvasWidget::centimetresAt(const QPointF &screenPlace) const
{
    const QPointF place = mapFromGlobal(screenPlace);
    return {centimetres(place.x()), centimetres(place.y())};
}

void CanvasWidget::mousePressEvent(QMouseEvent *event)
{
    held_ = event->buttons();
    emit pressed(event->button(), centimetres(event->position().x()),
                 centimetres(event->position().y()));
}

void CanvasWidget::mouseMoveEvent(QMouseEvent *event)
{
    held_ = event->buttons(); // the release may have gone to somebody else
    emit moved(event->buttons(), centimetres(event->position().x()),
               centimetres(event->position().y()));
}

void CanvasWidget::mouseReleaseEvent(QMouseEvent *event)
{
    held_ = event->buttons();
    emit released(event->button(), centimetres(event->position().x()),
                  centimetres(event->position().y()));
}

void CanvasWidget::leaveEvent(QEvent *)
{
    emit left();
}

void CanvasWidget::mouseDoubleClickEvent(QMouseEvent *event)
{
    held_ = event->buttons();
    if (event->button() == Qt::LeftButton)
        emit doubleClicked();
}

CanvasOverlay::CanvasOverlay(CanvasWidget *canvas, const QString &name) : QWidget(canvas)
{
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void CanvasOverlay::setForm(Form form)
{
    form_ = form;
    update();
}

void CanvasOverlay::setPen(const QPen &pen)
{
    pen_ = pen;
    update();
}

void CanvasOverlay::span(double x1, double y1, double x2, double y2)
{
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2))
        return;
    static constexpr double far = 10000; // logical pixels; a wider widget is refused
    // At scale 1 lines of one pixel lie on whole pixels, so that their colour is pure.
    const bool whole = devicePixelRatioF() == 1;
    const auto pixel = [whole](double c) {
        const double place = std::clamp(c * pixelsPerCentimetre, -far, far);
        return whole ? std::floor(place) : place;
    };
    from_ = {pixel(x1), pixel(y1)};
    to_ = {pixel(x2), pixel(y2)};
    place();
}

void CanvasOverlay::place()
{
    const int margin = static_cast<int>(std::ceil(pen_.widthF())) + 1;
    setGeometry(
        QRectF(from_, to_).normalized().toAlignedRect().adjusted(-margin, -margin, margin, margin));
    update();
}

void CanvasOverlay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.translate(-pos());
    painter.setPen(pen_);
    painter.setRenderHint(QPainter::Antialiasing,
                          form_ != Form::rectangle && devicePixelRatioF() != 1);
    const QRectF frame = QRectF(from_, to_).normalized();
    switch (form_) {
    case Form::line:
        painter.drawLine(from_, to_);
        break;
    case Form::rectangle:
        painter.drawRect(frame);
        break;
    case Form::roundedSquare:
        painter.drawRoundedRect(frame, frame.width() / 4, frame.height() / 4);
        break;
    case Form::circle:
        painter.drawEllipse(frame);
        break;
    }
}

CanvasLabel::CanvasLabel(CanvasWidget *canvas, const QString &name) : QLabel(canvas)
{
    setObjectName(name);
    setFont(QFont(QString::fromLatin1(canvasFontFace), 9));
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void CanvasLabel::place(double left, double top, double height)
{
    const auto pixel = [](double c) {
        return static_cast<int>(std::lround(c * pixelsPerCentimetre));
    };
    adjustSize();
    setGeometry(pixel(left), pixel(top), width(), std::max(this->height(), pixel(height)));
}

} // namespace veskora
