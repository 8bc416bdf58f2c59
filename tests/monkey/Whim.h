#pragma once
/// @file
/// What comes to the mind of a user without any, in view of what is on the screen.

#include "DrivenWindow.h"
#include "Script.h"

namespace veskora {

class Whim
{
public:
    Whim(DrivenWindow &window, UnattendedDesktop &chance) : window_(window), chance_(chance) {}

    QStringList nextLine();
    /// One of the files of the session's folder, some of them none that can be read or written.
    static QString anyFile(UnattendedDesktop &chance);

private:
    QStringList inPopup(const QWidget &popup);
    QStringList inMainWindow();
    QStringList inWindow(QWidget &window);
    QStringList onCanvas();
    QStringList inMenus();
    QString place();
    QString modifiers();
    QString keys();
    bool onceIn(std::size_t times) { return chance_.below(times) == 0; }
    template <typename List>
    auto any(const List &list)
    {
        return list[static_cast<decltype(list.size())>(
            chance_.below(static_cast<std::size_t>(list.size())))];
    }
    /// "X Y BUTTON MODIFIERS", by the left button mostly.
    QStringList somewhereOn(const QWidget &widget);

    DrivenWindow &window_;
    UnattendedDesktop &chance_;
};

} // namespace veskora
