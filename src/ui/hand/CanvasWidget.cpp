#include "CanvasWidget.h"

#include "QtColour.h"
#include "Settings.h"
#include "Units.h"

#include <QMouseEvent>
#include <QPaintEvent>

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

/// In centimetres. The canvas counts in Singles: a place said twice is the same place.
Point canvasPlace(const QPointF &pixels)
{
    return {static_cast<float>(pixels.x() / pixelsPerCentimetre),
            static_cast<float>(pixels.y() / pixelsPerCentimetre)};
}

} // namespace

Point CanvasWidget::placeAt(const QPointF &screenPlace) const
{
    return canvasPlace(mapFromGlobal(screenPlace));
}

void CanvasWidget::mousePressEvent(QMouseEvent *event)
{
    held_ = event->buttons();
    emit pressed(event->button(), canvasPlace(event->position()));
}

void CanvasWidget::mouseMoveEvent(QMouseEvent *event)
{
    held_ = event->buttons(); // the release may have gone to somebody else
    emit moved(event->buttons(), canvasPlace(event->position()));
}

void CanvasWidget::mouseReleaseEvent(QMouseEvent *event)
{
    held_ = event->buttons();
    emit released(event->button(), canvasPlace(event->position()));
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

} // namespace veskora
