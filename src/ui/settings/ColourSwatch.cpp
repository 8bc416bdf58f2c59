#include "ColourSwatch.h"

#include "QtColour.h"
#include "WindowParts.h"

#include <QPainter>

namespace veskora {

namespace {

constexpr int gap = 6; // before the caption

} // namespace

ColourSwatch::ColourSwatch(QWidget *parent) : QToolButton(parent)
{
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    setIconSize(QSize(28 + gap, 16));
}

void ColourSwatch::setColour(double word)
{
    word_ = word;
    const QColor colour = qtColour(word);
    const qreal ratio = devicePixelRatioF();
    const int right = toolButtonStyle() == Qt::ToolButtonIconOnly ? 0 : gap;
    QPixmap picture(iconSize() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(QColor(128, 128, 128));
    painter.setBrush(colour);
    painter.drawRect(QRectF(QPointF(), iconSize()).adjusted(0.5, 0.5, -0.5 - right, -0.5));
    painter.end();
    setIcon(picture);
    setAccessibleDescription(colour.name());
}

void ColourSwatch::paintEvent(QPaintEvent *event)
{
    QToolButton::paintEvent(event);
    QPainter painter(this);
    drawFocusFrame(painter, this, rect().adjusted(1, 1, -1, -1), 2);
}

} // namespace veskora

#include "moc_ColourSwatch.cpp"
