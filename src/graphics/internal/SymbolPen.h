#pragma once
/// @file
/// Drawing around one place of the canvas.

#include "ElementLine.h"
#include "Kanvas.h"

#include <cmath>
#include <limits>

namespace veskora {

/// Whether the canvas, which counts in Singles, can tell where @p place is.
inline bool isReachable(Point place)
{
    constexpr double most = std::numeric_limits<float>::max();
    return std::abs(place.x) <= most && std::abs(place.y) <= most;
}

/// Prints a text or a number with its top left corner at @p place. One that has no place is left
/// out: it would land where the last one ended.
template <typename Printed>
void printAt(Point place, const Printed &printed)
{
    if (!isReachable(place))
        return;
    Picture1().moveTo(place.x, place.y);
    Picture1().print(printed);
}

/// Where lines and symbols that belong together all begin, so that they stay so in pixels.
inline Point crispPlace(Point place)
{
    return {Picture1().crisp(place.x), Picture1().crisp(place.y)};
}

/// Draws a symbol in centimetres from its place, y down.
class SymbolPen
{
public:
    explicit SymbolPen(Point place) : place_(crispPlace(place)), kanvas_(Picture1()) {}

    /// From (x, y) by (dx, dy).
    void line(double x, double y, double dx, double dy) const
    {
        kanvas_.lineRelative(place_.x + x, place_.y + y, dx, dy);
    }
    /// From where the last line ended.
    void lineOn(double dx, double dy) const { kanvas_.lineToRelative(dx, dy); }
    /// Moves that end sideways or up and down without a line.
    void shift(double dx, double dy) const
    {
        kanvas_.moveTo(kanvas_.currentX() + dx, kanvas_.currentY() + dy);
    }
    void moveTo(double x, double y) const { kanvas_.moveTo(place_.x + x, place_.y + y); }
    void circle(double x, double y, double radius) const
    {
        kanvas_.circle(place_.x + x, place_.y + y, radius);
    }
    void arc(double x, double y, double radius, double start, double end) const
    {
        kanvas_.arc(place_.x + x, place_.y + y, radius, start, end);
    }
    template <typename Printed>
    void print(double x, double y, const Printed &printed) const
    {
        printAt({place_.x + x, place_.y + y}, printed);
    }

private:
    Point place_;
    Kanvas &kanvas_;
};

} // namespace veskora
