#include "Tool.h"

#include "WindowParts.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>

#include <cmath>

namespace veskora {

QCursor PointerPicture::cursor(double scale) const
{
    constexpr int side = 32;
    QPixmap pixmap = iconOf(icon).pixmap(QSize(side, side), scale);
    // Wayland knows of scales; elsewhere the hot spot counts in the picture's own pixels.
    double unit = 1;
    if (!QGuiApplication::platformName().startsWith("wayland")) {
        unit = pixmap.devicePixelRatio();
        pixmap.setDevicePixelRatio(1);
    }
    const auto place = [unit](int c) { return static_cast<int>(std::lround(c * unit)); };
    return QCursor(pixmap, place(x), place(y));
}

} // namespace veskora

#include "moc_Tool.cpp"
