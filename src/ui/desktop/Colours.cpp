#include "Colours.h"

#include <QColor>
#include <QWidget>

namespace veskora {

void setOwnColours(QWidget *widget, const QColor &text, const QColor &ground)
{
    // An application's style sheet goes before any palette, but not before the widget's own sheet.
    const QString sheet =
        QString("color: %1; background-color: %2").arg(text.name(), ground.name(QColor::HexArgb));
    if (widget->styleSheet() != sheet)
        widget->setStyleSheet(sheet);
}

} // namespace veskora
