#include "CanvasWidget.h"

#include "QtColour.h"
#include "Settings.h"
#include "Units.h"
#include "WindowParts.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>

#include <utility>

namespace veskora {

CanvasWidget::CanvasWidget(QWidget *parent) : QWidget(parent), kanvas_(QSize(1, 1))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    constexpr int settling = 150; // ms; a press comes right behind the activation that it causes
    activation_.setObjectName("ActivationTimer");
    activation_.setSingleShot(true);
    activation_.setInterval(settling);
    connect(&activation_, &QTimer::timeout, this, &CanvasWidget::settleActivation);
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
    drawFocusFrame(painter, this, rect().adjusted(0, 0, -1, -1), 1);
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
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        activation_.start();
    // Another screen may have another resolution.
    if (event->type() == QEvent::ScreenChangeInternal || event->type() == QEvent::Show)
        fitImage();
    // A box, another window or another program takes the mouse, and the release with it.
    const bool isTaken = event->type() == QEvent::WindowBlocked
                         || event->type() == QEvent::WindowDeactivate
                         || event->type() == QEvent::Hide;
    if (isTaken)
        hasPress_ = false;
    if (isTaken && std::exchange(held_, Qt::NoButton) != Qt::NoButton)
        emit abandoned();
    if (event->type() != QEvent::NativeGesture)
        return QWidget::event(event);
    pinch(*static_cast<QNativeGestureEvent *>(event));
    return true;
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

/// A dialog of this window that closes leaves no window active for a moment.
void CanvasWidget::settleActivation()
{
    isBehind_ = !isActiveWindow() && QApplication::activeModalWidget() == nullptr;
}

/// Some desktops activate a window before they pass on the press, some behind it. Where one does
/// neither, only the first press is lost.
bool CanvasWidget::onlyBringsToFront(Qt::MouseButton button)
{
    if (button != Qt::LeftButton || !std::exchange(isBehind_, false))
        return false;
    activateWindow();
    return !firstPressCounts_;
}

void CanvasWidget::mousePressEvent(QMouseEvent *event)
{
    if (onlyBringsToFront(event->button()))
        return;
    held_ = event->buttons();
    hasPress_ = true;
    emit pressed(event->button(), canvasPlace(event->position()));
}

void CanvasWidget::mouseMoveEvent(QMouseEvent *event)
{
    held_ = event->buttons(); // the release may have gone to somebody else
    pinch_.reset();           // and the end of a pinch too
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
    if (event->button() == Qt::LeftButton) {
        if (std::exchange(hasPress_, false)) // else it was for a box that has gone
            emit doubleClicked(event->modifiers());
    } else
        emit pressed(event->button(), canvasPlace(event->position()));
}

/// The angle is what every device tells: those that scroll by pixels tell it beside them.
void CanvasWidget::wheelEvent(QWheelEvent *event)
{
    constexpr double click = QWheelEvent::DefaultDeltasPerStep;
    event->accept();
    if (const int angle = event->angleDelta().y(); angle != 0)
        emit wheelTurned(canvasPlace(event->position()), angle / click);
}

/// The values of a pinch are steps of one sum, which begins at 1.
void CanvasWidget::pinch(const QNativeGestureEvent &event)
{
    if (event.gestureType() == Qt::BeginNativeGesture) {
        pinch_ = 1;
    } else if (event.gestureType() == Qt::EndNativeGesture) {
        pinch_.reset();
        emit pinchEnded();
    } else if (event.gestureType() == Qt::ZoomNativeGesture && event.value() != 0) {
        const double before = pinch_.value_or(1);
        const double now = before + event.value();
        if (now <= 0)
            return;
        pinch_ = now;
        // Its own place may still be that in the window.
        emit pinched(placeAt(event.globalPosition()), now / before);
    }
}

} // namespace veskora

#include "moc_CanvasWidget.cpp"
