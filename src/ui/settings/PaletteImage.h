#pragma once

#include <QImage>
#include <QWidget>

namespace veskora {

/// The palette from which a colour is picked by pointing: the hue runs once around from left to
/// right, the lightness falls from pale at the top through the pure colour to black at the bottom.
/// The top row is grey. With the focus, arrow keys move a mark on it, by more with Ctrl.
class PaletteImage : public QWidget
{
    Q_OBJECT
public:
    explicit PaletteImage(QWidget *parent = nullptr);

    QSize sizeHint() const override { return image_.size(); }

signals:
    /// The pointer with its button down, or the mark, has come to a pixel of this colour.
    void picked(const QColor &colour);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void pick(QPoint place);

    QImage image_;
    QPoint mark_;       ///< the pixel picked last, where keys go on from
    bool held_ = false; ///< the left button is down on the palette
};

} // namespace veskora
