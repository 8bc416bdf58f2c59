#include "FreedomArrows.h"

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

constexpr double freeColour = 0xC04000, heldColour = 0x707070, forceColour = 0x0000C0;

constexpr double headLength = 0.2, headHalf = 0.07;

/// Prints a text beyond @p tip, in the direction (c, s) with y upward, where no line crosses it.
void printBeyond(Point tip, double c, double s, const std::string &text)
{
    constexpr double gap = 0.08, letter = 0.17, line = 0.38;
    const double width = letter * static_cast<double>(text.size());
    const double reach = gap + std::abs(c) * width / 2 + std::abs(s) * line / 2;
    const Point corner = {tip.x + reach * c - width / 2, tip.y - reach * s - line / 2};
    if (!isReachable(corner))
        return;
    Picture1().moveTo(corner.x, corner.y);
    Picture1().printOnGround(text);
}

/// An arrow from @p tail in the direction (c, s), y upward.
/// @return its tip
Point drawArrow(Point tail, double c, double s, double length)
{
    const auto at = [&](double along, double across) {
        return Point{tail.x + along * c - across * s, tail.y - along * s - across * c};
    };
    const Point tip = at(length, 0);
    Picture1().polyline(std::array{tail, tip, at(length - headLength, headHalf),
                                   at(length - headLength, -headHalf), tip});
    return tip;
}

/// A curved arrow, anticlockwise by @p sweep from @p start on, with its text beyond its middle.
void drawTurn(Point centre, double start, double sweep, double radius, const std::string &text)
{
    constexpr double open = 0.4, inward = 0.25; // of the head, radians
    const SymbolPen pen(centre);
    const double end = start + sweep;
    pen.arc(0, 0, radius, start, end);
    for (const double bend : {-open, open}) {
        const double back = end - std::numbers::pi / 2 - inward + bend;
        pen.line(radius * std::cos(end), -radius * std::sin(end), headLength * std::cos(back),
                 -headLength * std::sin(back));
    }
    const double c = std::cos(start + sweep / 2), s = std::sin(start + sweep / 2);
    printBeyond({centre.x + radius * c, centre.y - radius * s}, c, s, text);
}

} // namespace

void drawFreedoms(std::span<const int> numbers, int free)
{
    // The curved arrow stands where neither of the others is.
    constexpr double gap = 0.15, length = 0.65, radius = 0.4;
    constexpr double start = 0.6 * std::numbers::pi, sweep = 0.8 * std::numbers::pi;
    Kanvas &kanvas = Picture1();
    kanvas.setPenWidth(1);
    kanvas.setFontSize(9);
    const int nodes = std::min<int>(Arithmos_Kombon, static_cast<int>(numbers.size()) / 3);
    for (int n = 1; n <= nodes; ++n) {
        const Point place = toCanvas(nodePlace(n));
        for (int k = 1; k <= 3; ++k) {
            const int number = numbers[static_cast<std::size_t>(freedomOf(n, k)) - 1];
            if (number == 0)
                continue;
            kanvas.setPenColour(number <= free ? freeColour : heldColour);
            if (k == 3) {
                drawTurn(place, start, sweep, radius, numberText(number));
                continue;
            }
            const double c = k == 1 ? 1 : 0, s = 1 - c;
            const Point tip = drawArrow({place.x + gap * c, place.y - gap * s}, c, s, length);
            // Beside the head, towards the other arrow: beyond it an element may go on.
            printBeyond({tip.x - c * headLength / 2, tip.y + s * headLength / 2}, s, c,
                        numberText(number));
        }
    }
}

void drawEndForces(double c, double s, std::span<const std::string> forces)
{
    constexpr double sideRoom = 3.2, endRoom = 2.4; // for what stands around the element
    constexpr double gap = 0.2, arrow = 0.9, radius = 0.45, least = 2, level = 1e-3;
    Kanvas &kanvas = Picture1();
    const double room = std::min((kanvas.width() - 2 * sideRoom) / std::max(std::abs(c), level),
                                 (kanvas.height() - 2 * endRoom) / std::max(std::abs(s), level));
    const double half = std::max(room, least) / 2;
    const auto at = [&](double along, double across) {
        return Point{kanvas.width() / 2 + along * c - across * s,
                     kanvas.height() / 2 - along * s - across * c};
    };
    kanvas.setPenColour(xroma_stoixeion);
    kanvas.setPenWidth(3);
    kanvas.line(at(-half, 0).x, at(-half, 0).y, at(half, 0).x, at(half, 0).y);
    kanvas.setPenWidth(1);
    kanvas.setFontSize(9);
    kanvas.setPenColour(heldColour);
    printBeyond(drawArrow(at(0, gap), c, s, arrow), c, s, "x");
    printBeyond(drawArrow(at(0, gap), -s, c, arrow), -s, c, "y");
    for (const double side : {-1, 1}) {
        const Point end = at(side * half, 0);
        const auto *force = &forces[side < 0 ? 0 : 3];
        kanvas.setPenColour(xroma_stoixeion);
        printBeyond(at(side * (half - gap), 0.05), -s, c, side < 0 ? "i" : "j");
        kanvas.setPenColour(forceColour);
        // Before end i, as it would lie on the element behind it.
        const Point tail = at(side < 0 ? -half - gap - arrow : half + gap, 0);
        const Point tip = drawArrow(tail, c, s, arrow);
        printBeyond(side < 0 ? tail : tip, side * c, side * s, force[0]);
        printBeyond(drawArrow(at(side * half, gap), -s, c, arrow), -s, c, force[1]);
        drawTurn(end, std::atan2(s, c) - 0.9 * std::numbers::pi, 0.8 * std::numbers::pi, radius,
                 force[2]);
    }
}

} // namespace veskora
