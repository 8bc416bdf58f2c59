#include "KeyFilter.h"

#include "Hand.h"
#include "HTMLHelp.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace veskora {

KeyFilter::KeyFilter(Hand &hand, HTMLHelp &help) : hand_(hand), help_(help)
{
    qApp->installEventFilter(this);
}

bool KeyFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (!isHeldOff(*event) && !askedForHelp(watched, *event))
        return false;
    event->accept();
    return true;
}

/// Not while a box stands open that the end of a drag has brought up.
bool KeyFilter::isHeldOff(const QEvent &event)
{
    static constexpr std::array keys = {QEvent::KeyPress, QEvent::KeyRelease,
                                        QEvent::ShortcutOverride, QEvent::Shortcut};
    if (std::ranges::find(keys, event.type()) == keys.end() || !hand_.isDragging()
        || QApplication::activeModalWidget() != nullptr)
        return false;
    if (event.type() == QEvent::KeyPress
        && static_cast<const QKeyEvent &>(event).key() == Qt::Key_Escape)
        hand_.takeBackDrag();
    return true;
}

/// F1 shows the help above any dialog.
bool KeyFilter::askedForHelp(const QObject *watched, const QEvent &event)
{
    const bool press = event.type() == QEvent::KeyPress;
    if ((!press && event.type() != QEvent::ShortcutOverride)
        || static_cast<const QKeyEvent &>(event).key() != Qt::Key_F1
        || static_cast<const QKeyEvent &>(event).modifiers() != Qt::NoModifier)
        return false;
    if (press)
        help_.showTopicOf(watched->isWidgetType() ? static_cast<const QWidget *>(watched)->window()
                                                  : QApplication::activeWindow());
    return true;
}

} // namespace veskora

#include "moc_KeyFilter.cpp"
