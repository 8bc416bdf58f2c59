#include "StatusPanel.h"

#include <QEvent>
#include <QKeyEvent>

namespace veskora {

StatusPanel::StatusPanel(const QString &name, QWidget *parent) : QPushButton(parent)
{
    setObjectName(name);
    setFlat(true);
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

void StatusPanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

} // namespace veskora
