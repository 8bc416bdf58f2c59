#include "HitTest.h"

#include "ElementLine.h"
#include "MathFunc.h"
#include "RowQueries.h"
#include "Settings.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace veskora {

namespace {

constexpr double reach = 0.15;

template <typename Hit>
int firstNode(Hit hit)
{
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (hit(n))
            return n;
    return 0;
}

/// Whether @p value lies between @p a and @p b or not farther than `reach` outside.
bool isBetween(double value, double a, double b)
{
    const auto [low, high] = std::minmax(a, b);
    return value <= high + reach && value >= low - reach;
}

} // namespace

int nodeUnderPointer(double x, double y)
{
    if (nai_grid) {
        const auto gridX = static_cast<float>(Kannabos_Sintetagmeni(Othoni_X(x)));
        const auto gridY = static_cast<float>(Kannabos_Sintetagmeni(Othoni_Y(y)));
        return firstNode(
            [=](int n) { return Komboi(n, node::x) == gridX && Komboi(n, node::y) == gridY; });
    }
    return firstNode([=](int n) {
        return std::abs(Kosmos_X(Komboi(n, node::x)) - x) < reach
               && std::abs(Kosmos_Y(Komboi(n, node::y)) - y) < reach;
    });
}

int elementUnderPointer(double x, double y)
{
    // Most nodes are ends of several elements.
    std::array<Point, maxNodes + 1> places;
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        places[static_cast<std::size_t>(n)] = toCanvas(nodePlace(n));
    constexpr double nearEnough = 0.2;
    double best = 9999;
    int candidate = 0;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const int i = nodeOf(e, element::nodeI);
        const int j = nodeOf(e, element::nodeJ);
        if (i == 0 || j == 0)
            continue;
        const Point &a = places[static_cast<std::size_t>(i)];
        const Point &b = places[static_cast<std::size_t>(j)];
        if (!isBetween(x, a.x, b.x) || !isBetween(y, a.y, b.y))
            continue;
        // Not a number for an element without length, and then not less than any.
        const double distance = Apostasi_Apo_Eutheia(a.x, a.y, b.x, b.y, x, y);
        if (distance < best) {
            best = distance;
            candidate = e;
        }
    }
    return best < nearEnough ? candidate : 0;
}

int nearestNode(double x, double y, double within)
{
    double best = 10000000;
    int candidate = 0;
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const Point at = toCanvas(nodePlace(n));
        const double distance = std::sqrt((at.x - x) * (at.x - x) + (at.y - y) * (at.y - y));
        if (distance < best) {
            best = distance;
            candidate = n;
        }
    }
    return best < within ? candidate : 0;
}

} // namespace veskora
