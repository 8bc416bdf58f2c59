#include "Menus.h"

#include "Desktop.h"
#include "Hand.h"
#include "MathFunc.h"
#include "Mnemonics.h"
#include "Text.h"
#include "UndoCommands.h"
#include "WindowParts.h"

#include <QAction>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>
#include <cstring>

namespace veskora {

namespace {

bool isSeparator(const Command &command)
{
    return command.caption.english == nullptr;
}

bool isSubmenu(const Command &command)
{
    return std::ranges::any_of(commands(), [&command](const Command &other) {
        return std::strcmp(other.place, command.name) == 0;
    });
}

} // namespace

Menus::Menus(QMainWindow *window, const Rooms &rooms)
    : QObject(window), window_(window), rooms_(rooms)
{
    for (const Command &command : commands())
        add(command);
}

void Menus::add(const Command &command)
{
    auto *place = window_->findChild<QWidget *>(command.place);
    if (place == nullptr) { // a pop-up
        place = new QMenu(window_);
        place->setObjectName(command.place);
    }
    if (isSubmenu(command)) {
        auto *menu = new QMenu(place);
        menu->setObjectName(command.name);
        return place->addAction(menu->menuAction());
    }
    auto *action = new QAction(window_);
    action->setObjectName(command.name);
    action->setSeparator(isSeparator(command)); // a toolbar makes another part of one
    place->addAction(action);
    if (action->isSeparator())
        return;
    action->setVisible(command.run != nullptr || command.setting != nullptr);
    action->setCheckable(command.setting != nullptr);
    if (auto *menu = qobject_cast<QMenu *>(place); menu != nullptr && command.setting != nullptr)
        connect(menu, &QMenu::aboutToShow, action,
                [&command, action] { action->setChecked(*command.setting); });
    if (command.icon != nullptr)
        action->setIcon(QIcon(QString(":/icons/%1.svg").arg(command.icon)));
    if (command.keys != nullptr) {
        // Those of a pop-up work in the window; in the pop-up itself Esc does something else.
        action->setShortcuts(QKeySequence::listFromString(command.keys));
        action->setShortcutVisibleInContextMenu(false);
        window_->addAction(action);
    }
    connect(action, &QAction::triggered, this, [this, &command, action] { run(command, action); });
}

void Menus::run(const Command &command, QAction *action)
{
    std::get<UndoCommands &>(rooms_).takeStep(); // no event of the user's may have led here
    auto &hand = std::get<Hand &>(rooms_);
    hand.endViewRun();
    if (command.clears != Clears::nothing)
        hand.hideMarks();
    if (command.clears == Clears::tools)
        hand.Reset_Pointer();
    if (command.setting == nullptr)
        return command.run(rooms_, action->data().toInt());
    *command.setting = !*command.setting;
    action->setChecked(*command.setting);
    desktop().redraw();
}

QMenu *Menus::menu(const char *name) const
{
    return window_->findChild<QMenu *>(name);
}

QAction *Menus::action(const char *name) const
{
    return window_->findChild<QAction *>(name);
}

void Menus::setCaptions()
{
    for (const Command &command : commands()) {
        if (isSeparator(command))
            continue;
        const QString caption = qtText(command.caption.text());
        if (isSubmenu(command))
            menu(command.name)->setTitle(caption);
        else
            action(command.name)->setText(caption);
        if (command.place == QLatin1String(commandPlace::toolbar))
            describe(action(command.name), caption);
    }
    assignMnemonics(window_->menuBar()->actions());
    for (const QMenu *menu : window_->findChildren<QMenu *>())
        assignMnemonics(menu->actions());
}

void Menus::popUpTools()
{
    menu(commandPlace::toolMenu)->popup(QCursor::pos());
}

void Menus::popUpRows(int node, int element)
{
    for (const Command &command : commands()) {
        if (command.about == About::nothing)
            continue;
        QAction *entry = action(command.name);
        if (command.about == About::both) {
            entry->setVisible(node != 0 && element != 0);
            continue;
        }
        const int row = command.about == About::node ? node : element;
        entry->setVisible(row != 0);
        if (row == 0)
            continue;
        const std::string number =
            command.numbered == nullptr ? "" : numberText(command.numbered(row));
        entry->setText(qtText(command.caption.text() + number));
        entry->setData(row);
    }
    QMenu *popup = menu(commandPlace::rowMenu);
    assignMnemonics(popup->actions());
    popup->popup(QCursor::pos());
}

void Menus::popUpLabels(const QPoint &place)
{
    QMenu *popup = menu(commandPlace::labelMenu);
    popup->popup(place - QPoint(0, popup->sizeHint().height()));
}

} // namespace veskora

#include "moc_Menus.cpp"
