#pragma once

#include <QPoint>

#include <optional>

namespace veskora {

/// The step that an arrow key makes, x to the right and y downward; none for another key.
inline std::optional<QPoint> arrowStep(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return QPoint(-1, 0);
    case Qt::Key_Right:
        return QPoint(1, 0);
    case Qt::Key_Up:
        return QPoint(0, -1);
    case Qt::Key_Down:
        return QPoint(0, 1);
    default:
        return std::nullopt;
    }
}

} // namespace veskora
