#include "Hourglass.h"

#include <QWidget>

namespace veskora {

void Hourglass::show(QWidget *window)
{
    hide();
    QList<QWidget *> widgets = window->findChildren<QWidget *>();
    widgets.removeIf([window](const QWidget *part) {
        return part->window() != window || !part->testAttribute(Qt::WA_SetCursor);
    });
    widgets << window; // the others have no pointer of their own and take its
    for (QWidget *part : widgets) {
        parts_.push_back({part, part->testAttribute(Qt::WA_SetCursor), part->cursor()});
        part->setCursor(Qt::WaitCursor);
    }
}

void Hourglass::hide()
{
    for (const Part &part : parts_)
        if (part.widget != nullptr && part.hadOwn)
            part.widget->setCursor(part.pointer);
        else if (part.widget != nullptr)
            part.widget->unsetCursor();
    parts_.clear();
}

} // namespace veskora
