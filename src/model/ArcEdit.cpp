#include "ArcEdit.h"

#include "MathFunc.h"
#include "Metablites.h"

#include <cmath>
#include <numbers>

namespace veskora {

using std::numbers::pi;

Arc arcAround(double x, double y, double x1, double y1, double x2, double y2)
{
    const double dx = x1 - x, dy = y1 - y;
    const double start = Gonia_Dianysmatos(dx, dy);
    double end = Gonia_Dianysmatos(x2 - x, y2 - y);
    if (start > end)
        end += 2 * pi;
    const double theta = end - start;
    // Two directions typed as one may differ in the last digit of their angles.
    constexpr double least = 1e-9;
    const bool isCircle = theta < least || theta > 2 * pi - least;
    return {x, y, std::sqrt(dx * dx + dy * dy), start, isCircle ? 2 * pi : theta, isCircle};
}

double nodesWithArc(const Arc &arc, double elements)
{
    return Arithmos_Kombon + elements + (arc.isCircle ? 0 : 1);
}

ArcNodes arcNodes(const Arc &arc, double elements)
{
    if (arc.R == 0)
        return {ArcRefusal::noLength, {}};
    if (arc.isCircle && elements == 1)
        return {ArcRefusal::badNumber, {}};
    if (nodesWithArc(arc, elements) > maxNodes)
        return {ArcRefusal::nodeLimit, {}};
    if (Arithmos_Stoixeion + elements > maxElements)
        return {ArcRefusal::elementLimit, {}};
    std::vector<Place> places;
    const double step = arc.theta / elements;
    for (int i = 0; i < elements + (arc.isCircle ? 0 : 1); ++i) {
        const double angle = arc.start + i * step;
        const auto x = toSingle(arc.x + arc.R * std::cos(angle));
        const auto y = toSingle(arc.y + arc.R * std::sin(angle));
        if (!x || !y)
            return {ArcRefusal::overflow, {}};
        places.push_back({*x, *y});
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(elements); ++i)
        if (places[i] == places[(i + 1) % places.size()])
            return {ArcRefusal::noLength, {}};
    return {ArcRefusal::none, std::move(places)};
}

void addArc(const std::vector<Place> &places, bool isCircle, int group)
{
    const int first = Arithmos_Kombon + 1;
    for (const auto &[x, y] : places) {
        const int n = addNode(x, y);
        if (n > first)
            addElement(n - 1, n, group);
    }
    if (isCircle)
        addElement(Arithmos_Kombon, first, group);
}

} // namespace veskora
