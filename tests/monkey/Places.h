#pragma once
/// @file
/// Names for what is on the screen, the same in each run: object names from the window inwards, a
/// class's where there is none, "#2" behind the second of one name.

#include <QString>
#include <QWidget>

namespace veskora {

QString placeOf(const QWidget &widget);
/// None where it is not on the screen now.
QWidget *widgetAt(const QString &place);
/// In the order of their names. Where a dialog, a box or a pop-up waits there is but that one.
QList<QWidget *> windowsAtHand();

} // namespace veskora
