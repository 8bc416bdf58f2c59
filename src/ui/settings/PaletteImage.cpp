#include "PaletteImage.h"

#include "ArrowKeys.h"

#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

constexpr int columns = 143;
constexpr int rows = 74;

QImage hslImage()
{
    QImage image(columns, rows, QImage::Format_RGB32);
    for (int row = 1; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            // The last column is red again, as is the first.
            const auto hue = static_cast<float>(column % (columns - 1)) / (columns - 1);
            // The row in the middle has the pure colours, the last one is black.
            const auto lightness = row <= rows / 2
                                       ? 1 - static_cast<float>(row) / rows
                                       : static_cast<float>(rows - 1 - row) / (rows - 2);
            image.setPixelColor(column, row, QColor::fromHslF(hue, 1, lightness));
        }
    for (int column = 0; column < columns; ++column)
        image.setPixelColor(column, 0, QColor(0x80, 0x80, 0x80));
    return image;
}

/// The pixel under the pointer.
QPoint pixelAt(const QPointF &pointer)
{
    return {static_cast<int>(std::floor(pointer.x())), static_cast<int>(std::floor(pointer.y()))};
}

} // namespace

PaletteImage::PaletteImage(QWidget *parent)
    : QWidget(parent), image_(hslImage()), mark_(columns / 2, rows / 2)
{
    setFixedSize(image_.size());
    setFocusPolicy(Qt::StrongFocus);
    constexpr int side = 32, tipX = 3, tipY = 28; // of the pointer's picture
    const QIcon pointer(":/icons/pointer_palette.svg");
    setCursor(QCursor(pointer.pixmap(QSize(side, side), devicePixelRatioF()), tipX, tipY));
}

void PaletteImage::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawImage(0, 0, image_);
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
    constexpr int radius = 3;
    painter.translate(0.5, 0.5);        // the middle of the pixel
    painter.setPen(QPen(Qt::white, 3)); // white around black is seen on every colour
    painter.drawEllipse(mark_, radius, radius);
    painter.setPen(Qt::black);
    painter.drawEllipse(mark_, radius, radius);
}

void PaletteImage::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    held_ = true;
    pick(pixelAt(event->position()));
}

void PaletteImage::mouseMoveEvent(QMouseEvent *event)
{
    if (held_)
        pick(pixelAt(event->position()));
}

void PaletteImage::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        held_ = false;
}

void PaletteImage::keyPressEvent(QKeyEvent *event)
{
    const std::optional<QPoint> step = arrowStep(event->key());
    if (!step)
        return QWidget::keyPressEvent(event);
    const int stride = (event->modifiers() & Qt::ControlModifier) != 0 ? 10 : 1;
    const QPoint place = mark_ + *step * stride;
    pick({std::clamp(place.x(), 0, columns - 1), std::clamp(place.y(), 0, rows - 1)});
}

void PaletteImage::pick(QPoint place)
{
    if (!image_.rect().contains(place))
        return;
    mark_ = place;
    update();
    emit picked(image_.pixelColor(place));
}

} // namespace veskora

#include "moc_PaletteImage.cpp"
