#include "Places.h"

#include <QApplication>

#include <algorithm>

namespace veskora {

namespace {

QString nameOf(const QWidget &widget)
{
    const QString name = widget.objectName();
    return name.isEmpty() ? QString(widget.metaObject()->className()).section("::", -1) : name;
}

QList<QWidget *> siblings(const QWidget *parent)
{
    QList<QWidget *> all = parent == nullptr
                               ? QApplication::topLevelWidgets()
                               : parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    if (parent == nullptr)
        all.removeIf([](const QWidget *window) { return !window->isVisible(); });
    return all;
}

} // namespace

QString placeOf(const QWidget &widget)
{
    const QWidget *parent = widget.isWindow() ? nullptr : widget.parentWidget();
    QString place = parent == nullptr ? QString() : placeOf(*parent) + '/';
    const QString name = nameOf(widget);
    int number = 1;
    if (parent != nullptr)
        for (const QWidget *other : siblings(parent)) {
            if (other == &widget)
                break;
            number += nameOf(*other) == name ? 1 : 0;
        }
    return place + name + (number > 1 ? "#" + QString::number(number) : "");
}

QWidget *widgetAt(const QString &place)
{
    QWidget *at = nullptr;
    for (const QString &step : place.split('/')) {
        const QString name = step.section('#', 0, 0);
        int number = std::max(1, step.section('#', 1).toInt());
        const QList<QWidget *> all = siblings(at);
        const auto found = std::ranges::find_if(
            all, [&](const QWidget *widget) { return nameOf(*widget) == name && --number == 0; });
        if (found == all.end())
            return nullptr;
        at = *found;
    }
    return at->isVisible() ? at : nullptr;
}

QList<QWidget *> windowsAtHand()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return {popup};
    if (QWidget *modal = QApplication::activeModalWidget())
        return {modal};
    QList<QWidget *> windows = siblings(nullptr);
    windows.removeIf([](const QWidget *window) { return window->windowType() == Qt::ToolTip; });
    std::ranges::sort(windows, {}, [](const QWidget *window) { return placeOf(*window); });
    return windows;
}

} // namespace veskora
