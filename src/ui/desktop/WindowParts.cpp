#include "WindowParts.h"

#include <QAbstractButton>
#include <QAction>
#include <QHash>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace veskora {

namespace {

constexpr QSize frameSize(8, 40); // logical pixels, about what a window manager adds

class EnterPresses : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress || !isEnter(*static_cast<QKeyEvent *>(event)))
            return false;
        static_cast<QAbstractButton *>(watched)->click();
        return true;
    }
};

} // namespace

void describe(QAction *action, const QString &description)
{
    action->setToolTip(description);
    action->setWhatsThis(description);
}

void describe(QWidget *widget, const QString &description)
{
    widget->setToolTip(description);
    widget->setWhatsThis(description);
    widget->setAccessibleDescription(description);
}

QIcon iconOf(const QString &file)
{
    static auto &icons = *new QHash<QString, QIcon>; // for as long as there may be windows
    QIcon &icon = icons[file];
    if (icon.isNull())
        icon = QIcon(file);
    return icon;
}

QList<QToolButton *> dressToolButtons(const QToolBar *bar)
{
    QList<QToolButton *> buttons;
    for (QAction *action : bar->actions())
        if (auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(action))) {
            button->setObjectName(action->objectName());
            button->setFocusPolicy(Qt::TabFocus); // some commands stand nowhere else
            buttons << button;
        }
    return buttons;
}

bool isEnter(const QKeyEvent &key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

void pressButtonsByEnter(QWidget *window)
{
    auto *filter = new EnterPresses(window);
    for (QAbstractButton *button : window->findChildren<QAbstractButton *>())
        button->installEventFilter(filter);
}

void drawFocusFrame(QPainter &painter, const QWidget *focused, const QRect &frame, int width)
{
    if (!focused->hasFocus())
        return;
    painter.setPen(QPen(focused->palette().color(QPalette::Highlight), width));
    painter.drawRect(frame);
}

void resizeToScreen(QWidget *window, const QSize &usual)
{
    const QSize room = window->screen()->availableSize() - frameSize;
    window->resize(usual.boundedTo(room).expandedTo(window->minimumSize()));
}

void showBeside(QWidget *window, const QWidget &part)
{
    const QRect area = part.screen()->availableGeometry();
    const QRect taken(part.mapToGlobal(QPoint()), part.size());
    const QSize least = window->minimumSize() + frameSize;
    const QSize wished = window->size() + frameSize;
    // Right and left of the other window, under and over the part; each as large as the screen is
    // there.
    const QRect other = part.window()->frameGeometry();
    const int right = other.right() + 1, under = taken.bottom() + 1;
    for (const QRect &room :
         {QRect(right, area.top(), area.right() - right + 1, area.height()),
          QRect(area.left(), area.top(), other.left() - area.left(), area.height()),
          QRect(area.left(), under, area.width(), area.bottom() - under + 1),
          QRect(area.left(), area.top(), area.width(), taken.top() - area.top())})
        if (room.width() >= least.width() && room.height() >= least.height()) {
            const QRect place(other.topLeft(), wished.boundedTo(room.size()));
            window->resize(place.size() - frameSize);
            window->move(placeWithin(room, place));
            break;
        }
    window->show();
}

QPoint placeWithin(const QRect &area, const QRect &frame)
{
    const auto begin = [](int first, int last, int wished) {
        return std::max(first, std::min(wished, last));
    };
    return {begin(area.left(), area.right() - frame.width() + 1, frame.left()),
            begin(area.top(), area.bottom() - frame.height() + 1, frame.top())};
}

} // namespace veskora
