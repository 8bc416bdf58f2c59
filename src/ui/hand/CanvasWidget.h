#pragma once
/// @file
/// The canvas `Picture1` on the screen: its picture, and the mouse in centimetres.

#include "ImageKanvas.h"

#include <QTimer>
#include <QWidget>

#include <optional>

QT_BEGIN_NAMESPACE
class QNativeGestureEvent;
QT_END_NAMESPACE

namespace veskora {

/// Shows the retained image of its `ImageKanvas` and tells mouse events in centimetres. A double
/// click of the left button comes as press, release, double click, release, without a second press.
/// A press of that button which only brings the window to the front is not told.
class CanvasWidget : public QWidget
{
    Q_OBJECT
public:
    explicit CanvasWidget(QWidget *parent = nullptr);

    ImageKanvas &kanvas() { return kanvas_; }
    /// A button of the mouse went down here and has not come up.
    bool isHeld() const { return held_ != Qt::NoButton; }
    /// Two fingers are on the touchpad and have begun to pinch.
    bool isPinched() const { return pinch_.has_value(); }
    /// Whether a press that brings the window to the front is told all the same.
    void setFirstPressCounts(bool isOn) { firstPressCounts_ = isOn; }
    /// A place on the screen in canvas centimetres, as the signals tell it.
    Point placeAt(const QPointF &screenPlace) const;

signals:
    void pressed(Qt::MouseButton button, const Point &at);
    void moved(Qt::MouseButtons buttons, const Point &at);
    void released(Qt::MouseButton button, const Point &at);
    void doubleClicked(Qt::KeyboardModifiers with);
    /// @param clicks  away from the user; fine wheels and touchpads tell parts of one
    void wheelTurned(const Point &at, double clicks);
    /// @param factor  how much farther apart the fingers are than when it was last told
    void pinched(const Point &at, double factor);
    void pinchEnded();
    void left();      ///< the pointer went away
    void abandoned(); ///< the button that is held: its release may go to somebody else
    /// The picture was lost: it has another size or resolution.
    void resized();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void fitImage();
    void settleActivation();
    bool onlyBringsToFront(Qt::MouseButton button);
    void pinch(const QNativeGestureEvent &event);

    ImageKanvas kanvas_;
    Qt::MouseButtons held_ = Qt::NoButton;
    bool firstPressCounts_ = false;
    bool isBehind_ = false;   ///< the next press may be there only to bring the window to the front
    QTimer activation_{this}; ///< runs while the active window has just changed
    bool hasPress_ = false;   ///< the first press of what may become a double click was here
    std::optional<double> pinch_; ///< of the pinch that goes on: how far the fingers are apart
};

} // namespace veskora
