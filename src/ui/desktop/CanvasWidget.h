#pragma once
/// @file
/// The canvas `Picture1` on the screen, and the light objects that lie over its picture.

#include "ImageKanvas.h"

#include <QLabel>
#include <QPen>
#include <QWidget>

namespace veskora {

/// Shows the retained image of its `ImageKanvas` and tells mouse events in centimetres. A double
/// click comes as press, release, double click, release, without a second press.
class CanvasWidget : public QWidget
{
    Q_OBJECT
public:
    explicit CanvasWidget(QWidget *parent = nullptr);

    ImageKanvas &kanvas() { return kanvas_; }
    /// A button of the mouse went down here and has not come up.
    bool isHeld() const { return held_ != Qt::NoButton; }
    /// A place on the screen in canvas centimetres, as the signals tell it.
    QPointF centimetresAt(const QPointF &screenPlace) const;

signals:
    void pressed(Qt::MouseButton button, double x, double y);
    void moved(Qt::MouseButtons buttons, double x, double y);
    void released(Qt::MouseButton button, double x, double y);
    void doubleClicked();
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

private:
    void fitImage();

    ImageKanvas kanvas_;
    Qt::MouseButtons held_ = Qt::NoButton;
};

/// A line or a frame over the picture. It takes no mouse events, and moving it repaints only what
/// it covers.
class CanvasOverlay : public QWidget
{
    Q_OBJECT
public:
    enum class Form { line, rectangle, roundedSquare, circle };

    explicit CanvasOverlay(CanvasWidget *canvas, const QString &name);

    void setForm(Form form);
    const QPen &pen() const { return pen_; }
    void setPen(const QPen &pen);
    /// Two opposite corners, or the ends of the line, in canvas centimetres.
    void span(double x1, double y1, double x2, double y2);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void place();

    Form form_ = Form::line;
    QPen pen_;
    QPointF from_, to_; ///< logical pixels of the canvas
};

/// A text over the picture. It takes no mouse events.
class CanvasLabel : public QLabel
{
    Q_OBJECT
public:
    CanvasLabel(CanvasWidget *canvas, const QString &name);

    /// Puts it at a place of the canvas, centimetres; it is at least as high as @p height.
    void place(double left, double top, double height);
};

} // namespace veskora
