#pragma once
/// @file
/// Light objects over the picture of the canvas. They take no mouse events, and moving one repaints
/// only what it covers.

#include "Kanvas.h"

#include <QLabel>
#include <QPen>

namespace veskora {

/// A line or a frame.
class CanvasOverlay : public QWidget
{
    Q_OBJECT
public:
    enum class Form { line, rectangle, roundedSquare, circle };

    explicit CanvasOverlay(QWidget *canvas, const QString &name);

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

/// A text.
class CanvasLabel : public QLabel
{
    Q_OBJECT
public:
    CanvasLabel(QWidget *canvas, const QString &name);

    /// Puts it at a place of the canvas, centimetres; it is at least as high as @p height.
    void place(double left, double top, double height);
    /// Hides it where it covers a place of the canvas.
    void hideAt(const Point &place);
};

} // namespace veskora
