#pragma once

#include "Commands.h"

#include <QObject>

QT_BEGIN_NAMESPACE
class QAction;
class QMainWindow;
class QMenu;
class QPoint;
QT_END_NAMESPACE

namespace veskora {

/// Menus, pop-ups and toolbar of the main window, made from the table of commands. Each action
/// bears its command's name, and so does its button.
class Menus : public QObject
{
    Q_OBJECT
public:
    Menus(QMainWindow *window, const Rooms &rooms);

    /// Captions, descriptions and mnemonics in the language there is.
    void setCaptions();

    void popUpTools();
    /// @param node, element  what the menu is about; 0 for none
    void popUpRows(int node, int element);
    /// The labels' switches, above @p place on the screen.
    void popUpLabels(const QPoint &place);

    QMenu *menu(const char *name) const;

private:
    void add(const Command &command);
    void run(const Command &command, QAction *action);
    QAction *action(const char *name) const;

    QMainWindow *const window_;
    Rooms rooms_;
};

} // namespace veskora
