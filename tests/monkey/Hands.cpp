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

/// A mouse button on @p target, which may go with any of its events.
class Finger
{
public:
    Finger(QWidget *target, const Line &line)
        : target_(target),
          place_(line.number(2), line.number(3)),
          button_(static_cast<Qt::MouseButton>(line.number(4))),
          modifiers_(static_cast<Qt::KeyboardModifiers>(line.number(5)))
    {}

    void send(QEvent::Type type)
    {
        if (target_ == nullptr)
            return;
        const bool isMove = type == QEvent::MouseMove;
        if (!isMove)
            held_ = type == QEvent::MouseButtonRelease ? Qt::NoButton : button_;
        QMouseEvent event(type, place_, target_->mapToGlobal(place_),
                          isMove ? Qt::NoButton : button_, held_, modifiers_);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QApplication::sendEvent(target_, &event);
    }
    void click()
    {
        send(QEvent::MouseButtonPress);
        send(QEvent::MouseButtonRelease);
    }
    void moveTo(const QPointF &place)
    {
        place_ = place;
        send(QEvent::MouseMove);
    }
    QPointF place() const { return place_; }
    void hold() { held_ = button_; }

private:
    QPointer<QWidget> target_;
    QPointF place_;
    Qt::MouseButton button_;
    Qt::KeyboardModifiers modifiers_;
    Qt::MouseButtons held_ = Qt::NoButton;
};

void useMouse(QWidget *target, const Line &line, Watch &watch)
{
    Finger finger(target, line);
    const QString verb = line.verb();
    if (verb == "press") {
        finger.send(QEvent::MouseButtonPress);
    } else if (verb == "release") {
        finger.send(QEvent::MouseButtonRelease);
    } else if (verb == "move") {
        finger.hold();
        finger.send(QEvent::MouseMove);
    } else if (verb == "click") {
        finger.click();
    } else if (verb == "twice") {
        finger.click();
        watch.see(); // each click of a button does what it does
        finger.send(QEvent::MouseButtonDblClick);
        finger.send(QEvent::MouseButtonRelease);
    } else if (verb == "drag") {
        const QPointF end(line.number(6), line.number(7));
        finger.send(QEvent::MouseMove);
        finger.send(QEvent::MouseButtonPress);
        finger.moveTo((finger.place() + end) / 2);
        finger.moveTo(end);
        finger.send(QEvent::MouseButtonRelease);
    } else if (verb == "wheel") {
        QWheelEvent event(finger.place(), target->mapToGlobal(finger.place()), {},
                          {0, line.number(4)}, Qt::NoButton,
                          static_cast<Qt::KeyboardModifiers>(line.number(5)), Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(target, &event);
    }
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

QTimer *timerCalled(const QString &name)
{
    for (const QWidget *window : QApplication::topLevelWidgets())
        for (QTimer *timer : window->findChildren<QTimer *>(name))
            if (timer->isActive())
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
    } else if (target != nullptr)
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
    for (const QWidget *window : QApplication::topLevelWidgets())
        for (const QTimer *timer : window->findChildren<QTimer *>())
            if (timer->isActive() && !timer->objectName().isEmpty())
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
