#pragma once
/// @file
/// The canvas `Picture1` on the screen: its picture, and the mouse in centimetres.

#include "ImageKanvas.h"

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
    Point placeAt(const QPointF &screenPlace) const;

signals:
    void pressed(Qt::MouseButton button, const Point &at);
    void moved(Qt::MouseButtons buttons, const Point &at);
    void released(Qt::MouseButton button, const Point &at);
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

} // namespace veskora
