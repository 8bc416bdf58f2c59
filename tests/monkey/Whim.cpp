#include "Whim.h"

#include "Commands.h"
#include "Hands.h"
#include "Metablites.h"
#include "Places.h"
#include "Zoom.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

namespace veskora {

namespace {

/// Of which models can come.
const QStringList numbers = QString("1|2|3|4|7|-3|2.5").split('|');
const QStringList oddTexts =
    QString("0|-1|2.5|1-3, 7|abc||1e30|1e-30|1e60|-1e38|200|201|300|32768|99999999999|&H3|0,5|nan|"
            "inf|1,2;3|\u0663|\u03a9 \u00e4|<b>&amp;|%1 %n|  |-|.")
        .split('|');

const QStringList models =
    QString("a.vsk|arch.vsk|truss.vsk|portal_frame.vsk|supports.vsk|unstable_portal.vsk|"
            "gerber_beam.vsk")
        .split('|');
const QStringList oddFiles =
    QString("b.vsk|c|d.txt|e.pdf|f.svg|g.xlsx|h.csv|rubbish.vsk|cut.vsk|none/a.vsk|none|folder.vsk|"
            "\u00e4 [*] %1 & .vsk")
        .split('|');

const QStringList freeKeys =
    QString("Tab Tab Shift+Tab Return Return Esc Space Up Down Left Right Home End PgUp PgDown Del "
            "Backspace + - A X 1 Ctrl+A Ctrl+C Ctrl+V Ctrl+X Ctrl+Z Ctrl+Y Ctrl+Shift+Z F5 F7 F8 "
            "Shift+F7 Ctrl+0 Ctrl+S Ctrl+Shift+S Ctrl+Shift+C Ctrl+N Ctrl+O Ctrl+F Alt+Left "
            "Shift+Up Ctrl+Right Alt+E Alt+A Alt+F Alt+Down Ctrl+Plus")
        .split(' ');
const QStringList dearKeys = {"F1", "Ctrl+Q", "Ctrl+F7", "Ctrl+Shift+P"};

/// What takes long, or ends the session.
const QStringList dear = {"mnuCALCULATION_item", "mnuVIMATA_ANALYSIS_item", "mnuCONTENTSitem",
                          "mnuEKSODOSitem",      "mnuKYKLIKOitem",          "mnuDIAIRESIitem",
                          "mnuIPOLOGISTISitem"};

template <typename Class>
QList<QWidget *> only(QList<QWidget *> widgets)
{
    widgets.removeIf(
        [](const QWidget *one) { return qobject_cast<const Class *>(one) == nullptr; });
    return widgets;
}

} // namespace

QString Whim::anyFile(UnattendedDesktop &chance)
{
    const QStringList &files = chance.below(3) == 0 ? oddFiles : models;
    return files[chance.below(static_cast<std::size_t>(files.size()))];
}

QStringList Whim::nextLine()
{
    const QList<QWidget *> windows = windowsAtHand();
    if (windows.isEmpty())
        return {"key", "Tab"};
    if (QApplication::activePopupWidget() != nullptr)
        return inPopup(*windows.front());
    if (!windows.contains(&window_.window()) || (windows.size() > 1 && onceIn(3)))
        return inWindow(*any(windows));
    return inMainWindow();
}

QStringList Whim::inPopup(const QWidget &popup)
{
    const auto *menu = qobject_cast<const QMenu *>(&popup);
    if (menu == nullptr || menu->actions().isEmpty() || onceIn(4))
        return {"key", any(QStringList{"Up", "Down", "Return", "Esc", "Home", "Right"})};
    return {"pick", any(menu->actions())->objectName()};
}

QStringList Whim::inMainWindow()
{
    constexpr int large = 60;      // elements; the analysis of more takes its time
    if (window_.canvas().isHeld()) // the hand is not free for anything else
        return QStringList(onceIn(3) ? "release" : "move")
               + QStringList{placeOf(window_.canvas()), place(), "1", "0"};
    if (Arithmos_Stoixeion > large && onceIn(8))
        return {"menu", "mnuARXEIO", "mnuNEOitem"};
    const unsigned mood = chance_.below(100);
    if (mood < 45)
        return onCanvas();
    if (mood < 47)
        return {"menu", "mnuERGALEIA", commandPlace::analyze};
    if (mood < 58)
        return inMenus();
    if (mood < 63)
        return {mood < 60 ? "undo" : "redo"};
    if (mood < 64)
        return onceIn(4) ? QStringList{"walk"} : QStringList{"undo"};
    if (mood < 67) {
        const QStringList timers = Hands::timers();
        return timers.isEmpty() ? QStringList{"undo"} : QStringList{"timer", any(timers)};
    }
    if (mood < 68)
        return onceIn(2) ? QStringList{"drop", anyFile(chance_)}
                         : QStringList{"drop", "a.vsk", anyFile(chance_)};
    if (mood < 69)
        return {"resize", QString::number(300 + chance_.below(700)),
                QString::number(200 + chance_.below(600))};
    if (mood < 79)
        return {"key", keys()};
    return inWindow(window_.window());
}

QString Whim::keys()
{
    return onceIn(100) ? any(dearKeys) : any(freeKeys);
}

QStringList Whim::inMenus()
{
    const QMenuBar *bar = window_.window().findChild<QMenuBar *>();
    const QMenu *menu = any(bar->actions())->menu();
    for (;;) {
        const QAction *action = any(menu->actions());
        if (action->menu() != nullptr)
            menu = action->menu();
        else if (!dear.contains(action->objectName()) || onceIn(12))
            return {"menu", menu->objectName(), action->objectName()};
    }
}

/// A node, an element or anywhere, in pixels.
QString Whim::place()
{
    constexpr double pixels = 96 / 2.54; // a centimetre
    QPointF at = window_.anywhere();
    if (Arithmos_Kombon > 0 && !onceIn(3)) {
        const auto anyOf = [this](int rows) {
            return 1 + static_cast<int>(chance_.below(static_cast<std::size_t>(rows)));
        };
        int i = anyOf(Arithmos_Kombon), j = i;
        if (Arithmos_Stoixeion > 0 && onceIn(3)) {
            const int e = anyOf(Arithmos_Stoixeion);
            i = static_cast<int>(Stoixeia(e, element::nodeI));
            j = static_cast<int>(Stoixeia(e, element::nodeJ));
        }
        const QPointF found(Kosmos_X((Komboi(i, node::x) + Komboi(j, node::x)) / 2) * pixels,
                            Kosmos_Y((Komboi(i, node::y) + Komboi(j, node::y)) / 2) * pixels);
        if (QRectF(window_.canvas().rect()).contains(found))
            at = found;
    }
    return QString("%1\t%2").arg(qRound(at.x())).arg(qRound(at.y()));
}

QString Whim::modifiers()
{
    constexpr Qt::KeyboardModifier some[] = {Qt::ShiftModifier, Qt::ControlModifier,
                                             Qt::AltModifier};
    return QString::number(onceIn(8) ? int(some[chance_.below(std::size(some))]) : 0);
}

QStringList Whim::onCanvas()
{
    const QString canvas = placeOf(window_.canvas());
    const QString button = QString::number(onceIn(8) ? Qt::MiddleButton : Qt::LeftButton);
    QStringList line = {canvas, place(), button, modifiers()};
    static const QStringList ways =
        QString("click click twice twice right wheel single drag drag drag drag drag").split(' ');
    QString way = any(ways);
    if (way == "right") {
        way = "click";
        line[2] = QString::number(Qt::RightButton);
    } else if (way == "wheel") {
        line[2] = QString::number(static_cast<int>(chance_.below(2001)) - 1000);
    } else if (way == "single") {
        way = any(QStringList{"press", "move", "move", "release"});
    } else if (way == "drag") {
        line << place();
    }
    return QStringList(way) + line;
}

QStringList Whim::somewhereOn(const QWidget &widget)
{
    const auto within = [this](int length) {
        return QString::number(chance_.below(static_cast<std::size_t>(std::max(1, length))));
    };
    return {placeOf(widget), within(widget.width()), within(widget.height()),
            QString::number(onceIn(20) ? Qt::RightButton : Qt::LeftButton), modifiers()};
}

QStringList Whim::inWindow(QWidget &window)
{
    QList<QWidget *> parts = window.findChildren<QWidget *>();
    parts.removeIf([&window](const QWidget *part) {
        return !part->isVisible() || part->window() != &window
               || part->testAttribute(Qt::WA_TransparentForMouseEvents);
    });
    const auto buttons = only<QAbstractButton>(parts), fields = only<QLineEdit>(parts);
    const unsigned mood = chance_.below(100);
    if (mood < 4 && &window != &window_.window())
        return {"close", placeOf(window)};
    if (mood < 16)
        return {"key", keys()};
    if (mood < 45 && !fields.isEmpty())
        return {"type", placeOf(*any(fields)), any(onceIn(3) ? oddTexts : numbers)};
    if (const auto *apply = window.findChild<QAbstractButton *>("SSCommand3");
        mood < 60 && apply != nullptr && apply->isVisible())
        return QStringList("click") + somewhereOn(*apply);
    if (mood < 85 && !buttons.isEmpty())
        return QStringList("click") + somewhereOn(*any(buttons));
    if (parts.isEmpty())
        return {"key", keys()};
    return QStringList(onceIn(6) ? "twice" : "click") + somewhereOn(*any(parts));
}

} // namespace veskora
