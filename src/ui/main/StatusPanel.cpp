#include "StatusPanel.h"

#include <QEvent>
#include <QPainter>

namespace veskora {

StatusPanel::StatusPanel(const QString &name, QWidget *parent) : QPushButton(parent)
{
    setObjectName(name);
    setFlat(true);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

void StatusPanel::setLook(bool on)
{
    look_ = on;
    paintLook();
}

void StatusPanel::paintLook()
{
    QPalette colours = parentWidget()->palette();
    colours.setColor(
        QPalette::ButtonText,
        colours.color(look_ ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    if (colours != palette())
        setPalette(colours);
}

void StatusPanel::changeEvent(QEvent *event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        paintLook(); // the theme may have changed
}

void StatusPanel::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

} // namespace veskora
