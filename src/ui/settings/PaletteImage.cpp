#include "PaletteImage.h"

#include <QIcon>
#include <QMouseEvent>
#include <QPainter>

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
            const auto lightness = 1 - static_cast<float>(row) / (rows - 1);
            image.setPixelColor(column, row, QColor::fromHslF(hue, 1, lightness));
        }
    for (int column = 0; column < columns; ++column)
        image.setPixelColor(column, 0, QColor(0x80, 0x80, 0x80));
    return image;
}

} // namespace

PaletteImage::PaletteImage(QWidget *parent) : QWidget(parent), image_(hslImage())
{
    setFixedSize(image_.size());
    constexpr int side = 32, tipX = 3, tipY = 28; // of the pointer's picture
    const QIcon pointer(":/icons/pointer_palette.svg");
    setCursor(QCursor(pointer.pixmap(QSize(side, side), devicePixelRatioF()), tipX, tipY));
}

void PaletteImage::paintEvent(QPaintEvent *)
{
    QPainter(this).drawImage(0, 0, image_);
}

void PaletteImage::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    held_ = true;
    pick(event->position());
}

void PaletteImage::mouseMoveEvent(QMouseEvent *event)
{
    if (held_)
        pick(event->position());
}

void PaletteImage::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        held_ = false;
}

void PaletteImage::pick(const QPointF &pointer)
{
    const QPoint place(static_cast<int>(std::floor(pointer.x())),
                       static_cast<int>(std::floor(pointer.y())));
    if (image_.rect().contains(place))
        emit picked(image_.pixelColor(place));
}

} // namespace veskora
