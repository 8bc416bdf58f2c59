#include "WindowPlace.h"

#include "Desktop.h"
#include "MathFunc.h"
#include "Units.h"
#include "WindowParts.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <cmath>

namespace veskora {

namespace {

void keepFrameOnScreen(QWidget *window)
{
    if (window->isMaximized() || window->isMinimized())
        return;
    const QRect area = window->screen()->availableGeometry();
    const QSize border = window->frameGeometry().size() - window->size();
    const QSize fitting =
        window->size().boundedTo(area.size() - border).expandedTo(window->minimumSize());
    if (fitting != window->size())
        window->resize(fitting);
    const QRect frame(window->frameGeometry().topLeft(), fitting + border);
    if (const QPoint place = placeWithin(area, frame); place != frame.topLeft())
        window->move(place);
}

} // namespace

void showAtStoredPlace(QWidget *window)
{
    const auto stored = [](const char *key, double standard) {
        const double twips = Val(desktop().setting("Startup", key, numberText(standard)));
        constexpr double largest = 1e6; // beyond any screen: a damaged store
        return static_cast<int>(std::abs(twips) < largest ? twips : standard) / twipsPerPixel;
    };
    const QRect whole = QGuiApplication::primaryScreen()->availableGeometry();
    QSize size(stored("frmM_W", 10000), stored("frmM_H", 8000));
    const QSize least = window->minimumSize();
    size = size.expandedTo(least).boundedTo(whole.size().expandedTo(least));
    const double centredLeft = (whole.width() - size.width()) / 2.0 * twipsPerPixel;
    const double centredTop = (whole.height() - size.height()) / 2.0 * twipsPerPixel;
    QRect frame(QPoint(stored("frmM_L", centredLeft), stored("frmM_T", centredTop)), size);

    // A screen may have gone since: the window comes back on one that is there.
    const QScreen *screen = QGuiApplication::screenAt(frame.center());
    const QRect area = screen != nullptr ? screen->availableGeometry() : whole;
    frame.moveTopLeft(placeWithin(area, frame));
    window->setGeometry(frame);
    if (Val(desktop().setting("Startup", "WindowState", "2")) == 2)
        window->showMaximized();
    else
        window->showNormal();
    keepFrameOnScreen(window);
    // The frame's own size may be known only once the window manager has drawn it.
    constexpr int framed = 150; // ms
    QTimer::singleShot(framed, window, [window] { keepFrameOnScreen(window); });
}

void Apothikefsi_Geometrias(const QWidget *window)
{
    // The state is never changed to measure: the window would flicker.
    const QRect normal =
        window->normalGeometry().isEmpty() ? window->geometry() : window->normalGeometry();
    const auto store = [](const char *key, int value) {
        desktop().storeSetting("Startup", key, numberText(value));
    };
    store("WindowState", window->isMaximized() ? 2 : 0);
    store("frmM_W", normal.width() * twipsPerPixel);
    store("frmM_H", normal.height() * twipsPerPixel);
    if (QGuiApplication::platformName().startsWith("wayland"))
        return; // no window learns its place there: that of another session stays
    store("frmM_L", normal.left() * twipsPerPixel);
    store("frmM_T", normal.top() * twipsPerPixel);
}

} // namespace veskora
