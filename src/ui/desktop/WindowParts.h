#pragma once
/// @file
/// Small things that every window does with its parts.

#include <QList>

class QAction;
class QIcon;
class QKeyEvent;
class QPainter;
class QPoint;
class QRect;
class QSize;
class QString;
class QToolBar;
class QToolButton;
class QWidget;

namespace veskora {

/// A description is a tool tip; screen readers and "What's this?" get it too.
/// @{
void describe(QAction *action, const QString &description);
void describe(QWidget *widget, const QString &description);
/// @}

/// The icon in the resource @p file, made once: the toolkit keeps something of each that it draws.
QIcon iconOf(const QString &file);

/// Gives each button of @p bar the object name of its action and makes it a stop of the Tab key.
QList<QToolButton *> dressToolButtons(const QToolBar *bar);

bool isEnter(const QKeyEvent &key);

/// From now on Enter presses each button of @p window as Space does. An event filter that a button
/// is given later comes first.
void pressButtonsByEnter(QWidget *window);

/// Draws @p frame while @p focused has the focus, which many styles show hardly or not at all.
void drawFocusFrame(QPainter &painter, const QWidget *focused, const QRect &frame, int width);

/// Makes @p window as large as @p usual, but no larger than its screen nor less than its least
/// size.
void resizeToScreen(QWidget *window, const QSize &usual);

/// Shows @p window where it leaves @p part of another one in sight, if the screen has the room;
/// else where the desktop puts a window.
void showBeside(QWidget *window, const QWidget &part);

/// Where @p frame is to begin so that it lies in @p area; its beginning does in any case.
QPoint placeWithin(const QRect &area, const QRect &frame);

} // namespace veskora
