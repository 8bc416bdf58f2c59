#include "ColourSwatch.h"

#include "QtColour.h"

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

/// Many styles show the focus on such a button hardly or not at all.
void ColourSwatch::paintEvent(QPaintEvent *event)
{
    QToolButton::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

} // namespace veskora
