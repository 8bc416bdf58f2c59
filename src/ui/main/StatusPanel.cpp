#include "StatusPanel.h"

#include "WindowParts.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace veskora {

StatusPanel::StatusPanel(QWidget *parent) : QPushButton(parent)
{
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

void StatusPanel::setLook(bool on)
{
    look_ = on;
    update();
}

void StatusPanel::paintEvent(QPaintEvent *)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    QStylePainter painter(this);
    // The frame tells that it can be pressed; only its text is dimmed, whatever colours a theme or
    // a style sheet gives.
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    constexpr double dimmed = 0.4;
    painter.setOpacity(look_ ? 1 : dimmed);
    option.rect = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
    painter.setOpacity(1);
    drawFocusFrame(painter, this, rect().adjusted(2, 2, -3, -3), 1);
}

} // namespace veskora

#include "moc_StatusPanel.cpp"
