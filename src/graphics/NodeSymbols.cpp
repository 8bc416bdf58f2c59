// One node: dot, support symbol, springs, label.

#include "Kanvas.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "SymbolPen.h"

#include <numbers>
#include <string>

namespace veskora {

namespace {

/// Sum of the unit vectors from node @p n along its elements: where the structure is.
Point structureDirection(int n)
{
    const Point at = nodePlace(n);
    Point sum;
    const auto add = [&](int node) {
        if (node == 0)
            return;
        const Point other = nodePlace(node);
        const double dx = other.x - at.x;
        const double dy = other.y - at.y;
        const double length = std::sqrt(dx * dx + dy * dy);
        if (length == 0)
            return; // no direction, and the others keep theirs
        sum.x += dx / length;
        sum.y += dy / length;
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const int i = nodeOf(e, element::nodeI);
        const int j = nodeOf(e, element::nodeJ);
        if (i == n)
            add(j);
        if (j == n)
            add(i);
    }
    // Elements in a straight line cancel but for the rounding of their nodes' coordinates.
    constexpr double noise = 1e-6;
    const auto clean = [](double part) { return std::abs(part) < noise ? 0 : part; };
    return {clean(sum.x), clean(sum.y)};
}

/// Five strokes of the ground's hatch, the first one from (x, y).
void strokes(const SymbolPen &pen, double x, double y, double stepX, double stepY, double dx,
             double dy)
{
    for (int i = 0; i < 5; ++i)
        pen.line(x + stepX * i, y + stepY * i, dx, dy);
}

/// Away from a structure on the right.
double sideX(Point direction)
{
    return direction.x > 0 ? -1 : 1;
}

/// Away from a structure above; down for none.
double sideY(Point direction)
{
    return direction.y >= 0 ? 1 : -1;
}

void rollerX(const SymbolPen &pen, double s)
{
    pen.line(0, 0, 0.25 * s, 0.25);
    pen.line(0, 0, 0.25 * s, -0.25);
    pen.line(0.25 * s, -0.25, 0, 0.5);
    pen.circle(0.25 * s + 0.1 * s, 0, 0.1);
    pen.line(0.45 * s, -0.25, 0, 0.5);
    strokes(pen, 0.45 * s, 0.25, 0, -0.1, 0.15 * s, -0.15);
}

void rollerY(const SymbolPen &pen, double s)
{
    pen.line(0, 0, 0.25, 0.25 * s);
    pen.line(0, 0, -0.25, 0.25 * s);
    pen.line(-0.25, 0.25 * s, 0.5, 0);
    pen.circle(0, 0.35 * s, 0.1);
    pen.line(-0.25, 0.45 * s, 0.5, 0);
    strokes(pen, -0.15, 0.45 * s, 0.1, 0, -0.15, 0.15 * s);
}

/// A lever on a double roller.
void heldRotation(const SymbolPen &pen, double s)
{
    pen.line(0, 0, 0.2 * s, -0.2);
    pen.lineOn(0.335 * s, 0);
    pen.line(0.2 * s, 0, 0.375 * s, 0);
    pen.circle(0.3875 * s, -0.1, 0.1);
    const double px = 0.575 * s;
    const double py = -0.35;
    pen.line(px, py, 0, 0.5);
    pen.circle(px + 0.1 * s, py + 0.25, 0.1);
    pen.line(px + 0.2 * s, py, 0, 0.5);
    strokes(pen, px + 0.2 * s, py + 0.5, 0, -0.1, 0.15 * s, -0.15);
}

/// A square around the joint, small enough to lie between the hinges of a truss.
void smallHeldRotationMark(const SymbolPen &pen)
{
    constexpr double side = 0.16;
    pen.line(-side / 2, -side / 2, side, 0);
    pen.lineOn(0, side);
    pen.lineOn(-side, 0);
    pen.lineOn(0, -side);
}

void pin(const SymbolPen &pen, double s)
{
    pen.line(0, 0, 0.25, 0.25 * s);
    pen.line(0, 0, -0.25, 0.25 * s);
    pen.lineOn(0.5, 0);
    strokes(pen, -0.15, 0.25 * s, 0.1, 0, -0.15, 0.15 * s);
}

void slideY(const SymbolPen &pen, double s)
{
    pen.line(0, -0.25, 0, 0.5);
    pen.line(0.2 * s, -0.25, 0, 0.5);
    pen.circle(0.1 * s, -0.12, 0.1);
    pen.circle(0.1 * s, 0.12, 0.1);
    strokes(pen, 0.2 * s, 0.25, 0, -0.1, 0.15 * s, -0.15);
}

void slideX(const SymbolPen &pen, double s)
{
    pen.line(-0.25, 0, 0.5, 0);
    pen.line(-0.25, 0.2 * s, 0.5, 0);
    pen.circle(-0.12, 0.1 * s, 0.1);
    pen.circle(0.12, 0.1 * s, 0.1);
    strokes(pen, -0.15, 0.2 * s, 0.1, 0, -0.15, 0.15 * s);
}

enum class Ground { below, above, left, right };

/// The side opposite to the structure; of two equally near ones below or above.
Ground groundOfClamp(Point direction)
{
    if (std::abs(direction.x) > std::abs(direction.y))
        return direction.x > 0 ? Ground::left : Ground::right;
    return direction.y >= 0 ? Ground::below : Ground::above;
}

void clamp(const SymbolPen &pen, Ground ground)
{
    switch (ground) {
    case Ground::below:
        pen.line(-0.375, 0, 0.75, 0);
        return strokes(pen, -0.225, 0, 0.15, 0, -0.21, 0.21);
    case Ground::above:
        pen.line(-0.375, 0, 0.75, 0);
        return strokes(pen, -0.225, 0, 0.15, 0, -0.21, -0.21);
    case Ground::left:
        pen.line(0, -0.375, 0, 0.75);
        return strokes(pen, 0, 0.375, 0, -0.15, -0.21, -0.21);
    case Ground::right:
        pen.line(0, -0.375, 0, 0.75);
        return strokes(pen, 0, 0.375, 0, -0.15, 0.21, -0.21);
    }
}

/// Draws the symbol of a support at node @p n.
/// @return how far the node's label moves aside
Point drawSupport(int n, const std::string &code, const SymbolPen &pen)
{
    const Point direction = structureDirection(n);
    if (code == "xoo") {
        rollerX(pen, sideX(direction));
        return {-0.3, 0};
    }
    if (code == "oxo") {
        rollerY(pen, sideY(direction));
        return {};
    }
    if (code == "oox") {
        heldRotation(pen, sideX(direction));
        return {};
    }
    if (code == "xxo") {
        pin(pen, sideY(direction));
        return {};
    }
    if (code == "xox") {
        slideY(pen, sideX(direction));
        return {-0.3, 0};
    }
    if (code == "oxx") {
        slideX(pen, direction.y > 0 ? 1 : -1); // up for none, unlike the others
        return {};
    }
    const Ground ground = groundOfClamp(direction);
    clamp(pen, ground);
    return {0, ground == Ground::below ? 0.1 : 0};
}

Point drawSupport(int n, const SymbolPen &pen)
{
    std::string code = restraintText(n);
    if (code.empty() || !areRestraintsValid(n))
        return {}; // most nodes: the search for their elements is saved
    // At a truss's joint the rotation is held for the analysis's sake: its supports are those of
    // the directions.
    if (smallHeldRotation && code[2] == 'x' && (code == "oox" || meetsOnlyHinges(n))) {
        smallHeldRotationMark(pen);
        code[2] = 'o';
    }
    return code == "ooo" ? Point() : drawSupport(n, code, pen);
}

void drawSprings(int n, const SymbolPen &pen)
{
    if (Elatiria(n, 1) != 0) {
        pen.line(0, 0, 0.2, 0);
        pen.lineOn(0.04, 0.2);
        for (int i = 0; i < 5; ++i)
            pen.lineOn(0.08, i % 2 == 0 ? -0.4 : 0.4);
        pen.lineOn(0.04, 0.2);
        pen.lineOn(0.2, 0);
    }
    if (Elatiria(n, 2) != 0) {
        pen.line(0, 0, 0, 0.2);
        pen.lineOn(0.2, 0.04);
        for (int i = 0; i < 5; ++i)
            pen.lineOn(i % 2 == 0 ? -0.4 : 0.4, 0.08);
        pen.lineOn(0.2, 0.04);
        pen.lineOn(0, 0.2);
    }
    if (Elatiria(n, 3) != 0) {
        constexpr double up = std::numbers::pi / 2;
        constexpr double down = 3 * up;
        pen.arc(0, 0.1, 0.1, up, down);
        pen.arc(0, 0, 0.2, down, up);
        pen.arc(0, 0.1, 0.3, up, down);
    }
}

} // namespace

void Sxedio_Kombou(int n)
{
    Kanvas &kanvas = Picture1();
    const Point at = toCanvas(nodePlace(n));
    const SymbolPen pen(at);
    kanvas.setPenColour(xroma_kombon);
    kanvas.setPenWidth(3);
    if (nai_komboi)
        kanvas.point(at.x, at.y);
    kanvas.setPenWidth(1);
    if (!isReachable(at))
        return;

    std::string label;
    if (nai_arithmisi_kombon)
        label = numberText(n);
    Point aside;
    if (nai_desmefseis && nai_graf_stir)
        aside = drawSupport(n, pen);
    else if (const std::string code = restraintText(n); nai_desmefseis && !code.empty())
        label += " " + code;
    if (nai_springs)
        drawSprings(n, pen);

    std::string coordinates;
    if (nai_sint_kombon)
        coordinates =
            " (" + numberText(Komboi(n, node::x)) + ", " + numberText(Komboi(n, node::y)) + ")";
    kanvas.moveTo(at.x + aside.x, at.y + aside.y);
    if (!label.empty())
        kanvas.print(label);
    kanvas.setCurrentX(at.x);
    kanvas.print(coordinates);
}

} // namespace veskora
