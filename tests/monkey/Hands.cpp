#include "Hands.h"

#include "Places.h"

#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>

namespace veskora {

namespace {

/// An event of the mouse, at a part of the way to the line's second place.
struct Step
{
    QEvent::Type type;
    double part = 0;
};
const QMap<QString, QList<Step>> gestures = {
    {"press", {{QEvent::MouseButtonPress}}},
    {"release", {{QEvent::MouseButtonRelease}}},
    {"move", {{QEvent::MouseMove}}},
    {"click", {{QEvent::MouseButtonPress}, {QEvent::MouseButtonRelease}}},
    {"twice",
     {{QEvent::MouseButtonPress},
      {QEvent::MouseButtonRelease},
      {QEvent::MouseButtonDblClick},
      {QEvent::MouseButtonRelease}}},
    {"drag",
     {{QEvent::MouseMove},
      {QEvent::MouseButtonPress},
      {QEvent::MouseMove, 0.5},
      {QEvent::MouseMove, 1},
      {QEvent::MouseButtonRelease, 1}}},
};

/// On @p widget, which may go with any of the events.
void useMouse(QWidget *widget, const Line &line, Watch &watch)
{
    const QPointer<QWidget> target(widget);
    const QPointF from(line.number(2), line.number(3)), to(line.number(6), line.number(7));
    const auto button = static_cast<Qt::MouseButton>(line.number(4));
    const auto modifiers = static_cast<Qt::KeyboardModifiers>(line.number(5));
    Qt::MouseButtons held = line.verb() == "move" ? button : Qt::NoButton;
    for (const auto &[type, part] : gestures.value(line.verb())) {
        if (target == nullptr)
            return;
        const bool isMove = type == QEvent::MouseMove;
        if (!isMove)
            held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        const QPointF place = from + part * (to - from);
        QMouseEvent event(type, place, target->mapToGlobal(place), isMove ? Qt::NoButton : button,
                          held, modifiers);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QApplication::sendEvent(target, &event);
        if (type == QEvent::MouseButtonRelease)
            watch.see(); // each click of a button does what it does
    }
}

void turnWheel(QWidget *target, const Line &line)
{
    const QPointF place(line.number(2), line.number(3));
    QWheelEvent event(place, target->mapToGlobal(place), {}, {0, line.number(4)}, Qt::NoButton,
                      static_cast<Qt::KeyboardModifiers>(line.number(5)), Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
}

/// The one that keys come to now.
QWidget *keyTarget()
{
    QWidget *window = windowsAtHand().value(0);
    if (QWidget *focused = QApplication::focusWidget();
        focused != nullptr && QApplication::activePopupWidget() == nullptr)
        return focused;
    return window != nullptr && window->focusWidget() != nullptr ? window->focusWidget() : window;
}

bool press(const QKeySequence &keys)
{
    const Qt::Key key = keys[0].key();
    const Qt::KeyboardModifiers modifiers = keys[0].keyboardModifiers();
    const bool isLetter = key < Qt::Key_Escape && (modifiers & ~Qt::ShiftModifier) == 0;
    QWidget *target = keyTarget();
    if (target != nullptr)
        QTest::sendKeyEvent(QTest::Click, target, key, isLetter ? QString(QChar(key)) : QString(),
                            modifiers);
    return target != nullptr;
}

void type(QLineEdit *field, const QString &text)
{
    const QPointer<QLineEdit> target(field);
    field->setFocus();
    if (target != nullptr)
        field->selectAll();
    if (text.isEmpty() && target != nullptr)
        QTest::keyClick(field, Qt::Key_Delete);
    for (const QChar letter : text)
        if (target != nullptr)
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key(letter.toUpper().unicode()),
                                QString(letter), Qt::NoModifier);
}

/// Those of the program that run.
QList<QTimer *> runningTimers()
{
    QList<QTimer *> all;
    for (const QWidget *window : QApplication::topLevelWidgets())
        all += window->findChildren<QTimer *>();
    all.removeIf([](const QTimer *one) { return !one->isActive() || one->objectName().isEmpty(); });
    return all;
}

QTimer *timerCalled(const QString &name)
{
    for (QTimer *timer : runningTimers())
        if (timer->objectName() == name)
            return timer;
    return nullptr;
}

} // namespace

Hands::Hands(DrivenWindow &window, Watch &watch, const QString &folder)
    : window_(window), watch_(watch), folder_(folder)
{
    qApp->installEventFilter(this);
}

bool Hands::perform(const Line &line)
{
    const QString verb = line.verb();
    QWidget *target = line.at(1).isEmpty() ? nullptr : widgetAt(line.at(1));
    if (target != nullptr && !windowsAtHand().contains(target->window()))
        return false; // out of reach
    if (target != nullptr && !target->window()->isActiveWindow())
        target->window()->activateWindow();
    if (verb == "menu")
        return chooseInMenu(line.at(1), line.at(2));
    if (verb == "pick")
        return pick(qobject_cast<QMenu *>(QApplication::activePopupWidget()), line.at(1));
    if (verb == "key")
        return press(QKeySequence(line.at(1)));
    if (auto *field = qobject_cast<QLineEdit *>(target); verb == "type" && field != nullptr)
        type(field, line.at(2));
    else if (verb == "close" && target != nullptr)
        target->close();
    else if (verb == "resize")
        window_.window().resize(line.number(1), line.number(2));
    else if (verb == "drop")
        drop(line.fields.mid(1));
    else if (QTimer *timer = verb == "timer" ? timerCalled(line.at(1)) : nullptr) {
        const QScopedValueRollback ends(lets_, true);
        QTimerEvent end(timer->timerId());
        QApplication::sendEvent(timer, &end);
    } else if (target != nullptr && verb == "wheel")
        turnWheel(target, line);
    else if (target != nullptr)
        useMouse(target, line, watch_);
    else
        return false;
    return true;
}

bool Hands::chooseInMenu(const QString &name, const QString &action)
{
    auto *menu = window_.window().findChild<QMenu *>(name);
    if (menu == nullptr || !windowsAtHand().contains(&window_.window()))
        return false;
    menu->popup(window_.window().mapToGlobal(QPoint(20, 20)));
    return pick(menu, action);
}

bool Hands::pick(QMenu *menu, const QString &action)
{
    if (menu == nullptr)
        return false;
    for (QAction *entry : menu->actions())
        if (entry->objectName() == action && entry->isVisible() && !entry->isSeparator()) {
            menu->setActiveAction(entry);
            QTest::keyClick(menu, Qt::Key_Return);
            return true;
        }
    menu->close();
    return false;
}

void Hands::drop(const QStringList &files)
{
    QMimeData content;
    QList<QUrl> urls;
    for (const QString &file : files)
        urls << QUrl::fromLocalFile(folder_ + '/' + file);
    content.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_.window(), &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_.window(), &event);
}

QStringList Hands::timers()
{
    QStringList names;
    for (const QTimer *timer : runningTimers())
        names << timer->objectName();
    names.sort();
    return names;
}

bool Hands::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOurs = event->type() == QEvent::Timer && qobject_cast<QTimer *>(watched) != nullptr
                        && !watched->objectName().isEmpty();
    return isOurs && !lets_;
}

} // namespace veskora
