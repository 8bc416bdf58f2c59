#include "Pointers.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QWidget>

#include <cmath>

namespace veskora {

QCursor toolPointer(const PointerPicture &picture, double scale)
{
    constexpr int side = 32;
    QPixmap pixmap = QIcon(picture.file).pixmap(QSize(side, side), scale);
    // Wayland knows of scales; elsewhere the hot spot counts in the picture's own pixels.
    double unit = 1;
    if (!QGuiApplication::platformName().startsWith("wayland")) {
        unit = pixmap.devicePixelRatio();
        pixmap.setDevicePixelRatio(1);
    }
    const auto place = [unit](int c) { return static_cast<int>(std::lround(c * unit)); };
    return QCursor(pixmap, place(picture.x), place(picture.y));
}

void Hourglass::show(QWidget *window)
{
    hide();
    QList<QWidget *> widgets = window->findChildren<QWidget *>();
    widgets.removeIf([window](const QWidget *part) {
        return part->window() != window || !part->testAttribute(Qt::WA_SetCursor);
    });
    widgets << window; // the others have no pointer of their own and take its
    for (QWidget *part : widgets) {
        parts_.push_back({part, part->testAttribute(Qt::WA_SetCursor), part->cursor()});
        part->setCursor(Qt::WaitCursor);
    }
}

void Hourglass::hide()
{
    for (const Part &part : parts_)
        if (part.widget != nullptr && part.hadOwn)
            part.widget->setCursor(part.pointer);
        else if (part.widget != nullptr)
            part.widget->unsetCursor();
    parts_.clear();
}

} // namespace veskora
