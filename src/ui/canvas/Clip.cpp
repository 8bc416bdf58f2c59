#include "Clip.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace veskora {

bool clip(QPointF &from, QPointF &to)
{
    double begin = 0;
    double end = 1;
    const QPointF way = to - from;
    const auto cut = [&](double start, double step) {
        if (step == 0)
            return std::abs(start) <= farOutside;
        const double a = (-farOutside - start) / step;
        const double b = (farOutside - start) / step;
        begin = std::max(begin, std::min(a, b));
        end = std::min(end, std::max(a, b));
        return begin <= end;
    };
    if (!cut(from.x(), way.x()) || !cut(from.y(), way.y()))
        return false;
    const QPointF start = from;
    if (begin > 0)
        from = start + begin * way;
    if (end < 1)
        to = start + end * way;
    return true;
}

QPainterPath clippedCurve(const QPolygonF &places)
{
    QPainterPath path;
    for (qsizetype i = 1; i < places.size(); ++i) {
        QPointF from = places[i - 1];
        QPointF to = places[i];
        if (!clip(from, to))
            continue;
        if (path.isEmpty() || path.currentPosition() != from)
            path.moveTo(from);
        path.lineTo(to);
    }
    return path;
}

bool reaches(const QSizeF &picture, const QPointF &centre, double radius)
{
    return radius <= farOutside && centre.x() + radius >= 0 && centre.y() + radius >= 0
           && centre.x() - radius <= picture.width() && centre.y() - radius <= picture.height();
}

double arcSpan(double start, double end)
{
    constexpr double whole = 2 * std::numbers::pi;
    const double span = std::fmod(end - start, whole);
    return span > 0 ? span : span + whole;
}

} // namespace veskora
