#include "FreedomArrows.h"

#include "element.h"
#include "ElementLine.h"
#include "Functions.h"
#include "Kanvas.h"
#include "MathFunc.h"
#include "RowQueries.h"
#include "Settings.h"
#include "SymbolPen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace veskora {

namespace {

constexpr double freeColour = 0xC04000, heldColour = 0x909090, forceColour = 0x0000C0;

/// Straight, with its tip at the end of @p length from @p gap on, in the direction (c, s) with y
/// upward, and a text beyond the tip.
void drawArrow(Point from, double c, double s, double gap, double length, const std::string &text)
{
    constexpr double head = 0.2, half = 0.07, textGap = 0.25, letter = 0.13, line = 0.3;
    const auto at = [&](double along, double across) {
        return Point{from.x + along * c - across * s, from.y - along * s - across * c};
    };
    const double tip = gap + length;
    Picture1().polyline(std::array{at(gap, 0), at(tip, 0), at(tip - head, half),
                                   at(tip - head, -half), at(tip, 0)});
    const Point end = at(tip + textGap, 0);
    const double width = letter * static_cast<double>(text.size());
    printAt({end.x - width / 2 + width / 2 * c, end.y - line / 2}, text);
}

/// Three quarters of a circle, anticlockwise from @p start on.
void drawTurn(Point centre, double start, double radius, const std::string &text)
{
    constexpr double head = 0.2, sweep = 1.5 * std::numbers::pi;
    const SymbolPen pen(centre);
    pen.arc(0, 0, radius, start, start + sweep);
    const double end = start + sweep;
    for (const double bend : {-0.45, 0.45}) {
        const double back = end - std::numbers::pi / 2 + bend - 0.2;
        pen.line(radius * std::cos(end), -radius * std::sin(end), head * std::cos(back),
                 -head * std::sin(back));
    }
    const double middle = start + sweep / 2, reach = radius + 0.15;
    printAt({centre.x + reach * std::cos(middle) - 0.1, centre.y - reach * std::sin(middle) - 0.15},
            text);
}

} // namespace

void drawFreedoms(std::span<const int> numbers, int free)
{
    constexpr double gap = 0.15, length = 0.65, radius = 0.32;
    Kanvas &kanvas = Picture1();
    kanvas.setPenWidth(1);
    kanvas.setFontSize(8);
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const Point place = toCanvas(nodePlace(n));
        for (int k = 1; k <= 3; ++k) {
            const int number = numbers[static_cast<std::size_t>(freedomOf(n, k)) - 1];
            kanvas.setPenColour(number <= free ? freeColour : heldColour);
            if (k == 3)
                drawTurn(place, std::numbers::pi / 2, radius, numberText(number));
            else
                drawArrow(place, k == 1 ? 1 : 0, k == 1 ? 0 : 1, gap, length, numberText(number));
        }
    }
}

void drawEndForces(int e, std::span<const std::string> forces)
{
    const auto [length, c, s] = elementGeometry(e);
    constexpr double gap = 0.2, arrow = 0.9, axis = 1.1, margin = 3.2, radius = 0.45;
    Kanvas &kanvas = Picture1();
    const double room = std::min((kanvas.width() - 2 * margin) / std::max(std::abs(c), 1e-3),
                                 (kanvas.height() - 2 * margin) / std::max(std::abs(s), 1e-3));
    const double half = std::max(room, 2.0) / 2;
    const Point middle = {kanvas.width() / 2, kanvas.height() / 2};
    const auto at = [&](double along) { return Point{middle.x + along * c, middle.y - along * s}; };
    kanvas.setPenColour(xroma_stoixeion);
    kanvas.setPenWidth(3);
    kanvas.line(at(-half).x, at(-half).y, at(half).x, at(half).y);
    kanvas.setPenWidth(1);
    kanvas.setFontSize(9);
    kanvas.setPenColour(heldColour);
    drawArrow(middle, c, s, gap, axis, "x");
    drawArrow(middle, -s, c, gap, axis, "y");
    const double angle = std::atan2(s, c);
    for (const bool isEnd : {false, true}) {
        const Point end = at(isEnd ? half : -half);
        const std::size_t first = isEnd ? 3 : 0;
        kanvas.setPenColour(xroma_stoixeion);
        const SymbolPen pen(end);
        pen.print(0.1, 0.1, isEnd ? "j" : "i");
        kanvas.setPenColour(forceColour);
        // At i an arrow along the axis would lie on the element: it ends there.
        const Point tail = isEnd ? end : at(-half - gap - arrow - gap);
        drawArrow(tail, c, s, gap, arrow, isEnd ? forces[first] : "");
        if (!isEnd)
            printAt({tail.x - 0.13 * static_cast<double>(forces[0].size()) * (1 + c) / 2,
                     tail.y - 0.35},
                    forces[first]);
        drawArrow(end, -s, c, gap, arrow, forces[first + 1]);
        drawTurn(end, angle + (isEnd ? -0.75 : 0.25) * std::numbers::pi, radius, forces[first + 2]);
    }
}

} // namespace veskora
