#include "MotionShape.h"

#include "ElementLine.h"
#include "Kanvas.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Settings.h"
#include "skip.h"
#include "SymbolPen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace veskora {

namespace {

double sizeOf(Point move)
{
    return std::hypot(move.x, move.y);
}

/// Places on an element's axis, world units, and how far each of them goes.
struct Curve
{
    static constexpr std::size_t chords = 20;
    std::array<Point, chords + 1> places, moves;
};

struct EndRotations
{
    double i, j;
};

/// Those of an element whose hinged ends bear no moment.
/// @param chord  rotation of the line between its ends
EndRotations endRotations(ElementType type, double chord, double nodeI, double nodeJ)
{
    switch (type) {
    case ElementType::hingeAtI:
        return {1.5 * chord - nodeJ / 2, nodeJ};
    case ElementType::hingeAtJ:
        return {nodeI, 1.5 * chord - nodeI / 2};
    case ElementType::P1:
        return {chord, chord};
    default:
        return {nodeI, nodeJ};
    }
}

class MotionShape
{
public:
    explicit MotionShape(std::span<const double> displacements);
    void draw() const;

private:
    Point move(int n) const { return {at(n, 1), at(n, 2)}; }
    double rotation(int n) const { return at(n, 3); }
    double at(int n, int k) const
    {
        return displacements_[static_cast<std::size_t>(freedomOf(n, k)) - 1];
    }
    bool moves(int n) const { return sizeOf(move(n)) * scale_ > visible; }
    bool onlyTurns(int n) const
    {
        const double turn = std::abs(rotation(n));
        return !moves(n) && turn > leastTurn * largestRotation_
               && (scale_ == 0 || turn * longest_ * scale_ > visible);
    }
    Point moved(Point place, Point by) const
    {
        const Point from = toCanvas(place);
        return {from.x + scale_ * by.x, from.y - scale_ * by.y};
    }

    void addElement(int e);
    void setScale();
    void drawArrow(int n) const;
    void drawTurn(int n) const;

    static constexpr double visible = 0.05;   ///< centimetres
    static constexpr double leastTurn = 1e-3; ///< of the largest
    /// Of the way that the longest element makes a node go: what is left of a mere turning.
    static constexpr double noise = 1e-6;

    std::span<const double> displacements_;
    std::vector<Curve> curves_;
    double longest_ = 0;         ///< element
    double largestRotation_ = 0; ///< of a node
    double scale_ = 0;           ///< centimetres on the canvas to a unit of displacement
};

MotionShape::MotionShape(std::span<const double> displacements) : displacements_(displacements)
{
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        largestRotation_ = std::max(largestRotation_, std::abs(rotation(n)));
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        skipFaults([this, e] { addElement(e); });
    setScale();
}

/// Cubics through the end displacements and rotations.
void MotionShape::addElement(int e)
{
    const ElementLine line = elementLine(e);
    const double L = line.length;
    if (L == 0)
        return;
    const double c = line.dx / L, s = line.dy / L;
    const auto [ni, nj] = elementNodes(e);
    const auto along = [=](Point move) { return move.x * c + move.y * s; };
    const auto across = [=](Point move) { return move.y * c - move.x * s; };
    const double vi = across(move(ni)), vj = across(move(nj));
    const auto [ri, rj] = endRotations(elementType(e), (vj - vi) / L, rotation(ni), rotation(nj));
    Curve curve;
    for (std::size_t k = 0; k <= Curve::chords; ++k) {
        const double t = static_cast<double>(k) / Curve::chords, r = 1 - t;
        const double u = r * along(move(ni)) + t * along(move(nj));
        const double v =
            r * r * (1 + 2 * t) * vi + t * t * (3 - 2 * t) * vj + L * r * t * (r * ri - t * rj);
        curve.places[k] = {line.i.x + t * line.dx, line.i.y + t * line.dy};
        curve.moves[k] = {u * c - v * s, u * s + v * c};
    }
    curves_.push_back(curve);
    longest_ = std::max(longest_, L);
}

/// Gives the farthest way a length on the canvas.
void MotionShape::setScale()
{
    double farthest = 0;
    Point low = toCanvas(nodePlace(1)), high = low;
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const Point place = toCanvas(nodePlace(n));
        low = {std::min(low.x, place.x), std::min(low.y, place.y)};
        high = {std::max(high.x, place.x), std::max(high.y, place.y)};
        farthest = std::max(farthest, sizeOf(move(n)));
    }
    for (const Curve &curve : curves_)
        for (const Point move : curve.moves)
            farthest = std::max(farthest, sizeOf(move));
    constexpr double part = 0.12, least = 0.8, most = 1.5; // of the drawn model; centimetres
    if (farthest > noise * largestRotation_ * longest_)
        scale_ =
            std::clamp(part * std::hypot(high.x - low.x, high.y - low.y), least, most) / farthest;
}

void MotionShape::drawArrow(int n) const
{
    const Point from = toCanvas(nodePlace(n));
    const Point to = moved(nodePlace(n), move(n));
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    constexpr double head = 0.3, half = 0.09;
    const Point way = {(to.x - from.x) / length, (to.y - from.y) / length};
    const double neck = std::max(0.0, length - head);
    const auto side = [&](double by) {
        return Point{from.x + neck * way.x - by * way.y, from.y + neck * way.y + by * way.x};
    };
    Picture1().polyline(std::array{from, to, side(half), side(-half), to});
}

/// A half circle over the node, as most supports stand under it, with its head where it turns to.
void MotionShape::drawTurn(int n) const
{
    constexpr double radius = 0.42, head = 0.22, half = 0.1;
    const SymbolPen pen(toCanvas(nodePlace(n)));
    pen.arc(0, 0, radius, 0, std::numbers::pi);
    const double x = rotation(n) > 0 ? -radius : radius; // to the left end anticlockwise
    for (const double side : {-half, half})
        pen.line(x, 0, side, -head);
}

void MotionShape::draw() const
{
    constexpr int mostArrows = 12; // more would hide what they are to explain
    Kanvas &kanvas = Picture1();
    kanvas.setPenColour(xroma_paramorfosis);
    kanvas.setPenWidth(2);
    if (scale_ > 0)
        for (const Curve &curve : curves_) {
            if (std::all_of(curve.moves.begin(), curve.moves.end(),
                            [this](Point by) { return sizeOf(by) * scale_ <= visible; }))
                continue;
            std::array<Point, Curve::chords + 1> places;
            std::transform(curve.places.begin(), curve.places.end(), curve.moves.begin(),
                           places.begin(), [this](Point p, Point by) { return moved(p, by); });
            kanvas.polyline(places);
        }
    kanvas.setPenWidth(1);
    int moving = 0;
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        moving += moves(n);
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (moves(n) && (moving <= mostArrows || elementAt(n) == 0))
            drawArrow(n);
        else if (onlyTurns(n))
            drawTurn(n);
}

} // namespace

void drawMotion(std::span<const double> displacements)
{
    MotionShape(displacements).draw();
}

} // namespace veskora
