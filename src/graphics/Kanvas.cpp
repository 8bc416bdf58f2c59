#include "Kanvas.h"

#include "Fault.h"
#include "MathFunc.h"

#include <cmath>
#include <vector>

namespace veskora {

namespace {

Kanvas *current = nullptr;

template <typename... Values>
bool allSingles(Values... values)
{
    return (std::isfinite(static_cast<float>(values)) && ...);
}

template <typename Number>
std::string printedNumber(Number number)
{
    const std::string text = numberText(number);
    return (text.front() == '-' ? "" : " ") + text + " ";
}

} // namespace

Kanvas &Picture1()
{
    if (current == nullptr)
        throw Fault("no canvas has been set");
    return *current;
}

void setPicture1(Kanvas *kanvas)
{
    current = kanvas;
}

CanvasInUse::CanvasInUse(Kanvas &kanvas) : before_(current)
{
    setPicture1(&kanvas);
}

CanvasInUse::~CanvasInUse()
{
    setPicture1(before_);
}

void Kanvas::clear()
{
    doClear();
    moveTo(0, 0);
}

void Kanvas::moveTo(double x, double y)
{
    if (!allSingles(x, y))
        return;
    currentX_ = static_cast<float>(x);
    currentY_ = static_cast<float>(y);
}

double Kanvas::crisp(double centimetres) const
{
    // From the number that a line starts from: at the edge of a pixel the wider one may round to
    // the other side.
    return allSingles(centimetres) ? doCrisp(static_cast<float>(centimetres)) : centimetres;
}

void Kanvas::line(double x1, double y1, double x2, double y2)
{
    if (!allSingles(x1, y1, x2, y2))
        return;
    doLine(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
           static_cast<float>(y2));
    moveTo(x2, y2);
}

void Kanvas::polyline(std::span<const Point> places)
{
    std::vector<Point> run;
    const auto draw = [&] {
        if (run.size() >= 2) {
            doPolyline(run);
            moveTo(run.back().x, run.back().y);
        }
        run.clear();
    };
    for (const Point place : places)
        if (allSingles(place.x, place.y))
            run.push_back({static_cast<float>(place.x), static_cast<float>(place.y)});
        else
            draw();
    draw();
}

void Kanvas::doPolyline(std::span<const Point> places)
{
    for (std::size_t i = 1; i < places.size(); ++i)
        doLine(static_cast<float>(places[i - 1].x), static_cast<float>(places[i - 1].y),
               static_cast<float>(places[i].x), static_cast<float>(places[i].y));
}

void Kanvas::point(double x, double y)
{
    if (!allSingles(x, y))
        return;
    doPoint(static_cast<float>(x), static_cast<float>(y));
    moveTo(x, y);
}

void Kanvas::circle(double x, double y, double radius)
{
    if (!allSingles(x, y, radius))
        return;
    doCircle(static_cast<float>(x), static_cast<float>(y), static_cast<float>(radius));
    moveTo(x, y);
}

void Kanvas::arc(double x, double y, double radius, double start, double end)
{
    if (!allSingles(x, y, radius, start, end))
        return;
    doArc(static_cast<float>(x), static_cast<float>(y), static_cast<float>(radius), start, end);
    moveTo(x, y);
}

void Kanvas::print(const std::string &text)
{
    doPrint(text, currentX_, currentY_);
    moveTo(0, currentY_ + lineAdvance());
}

void Kanvas::printNote(const std::string &text)
{
    doPrintNote(text, currentX_, currentY_);
    moveTo(0, currentY_ + lineAdvance());
}

void Kanvas::print(float number)
{
    print(printedNumber(number));
}

void Kanvas::print(double number)
{
    print(printedNumber(number));
}

void Kanvas::printOnGround(const std::string &text)
{
    doPrintOnGround(text, currentX_, currentY_);
    moveTo(0, currentY_ + lineAdvance());
}

void Kanvas::printValue(double value, const Ordinate &ordinate)
{
    doPrintValue(printedNumber(value), currentX_, currentY_, ordinate);
    moveTo(0, currentY_ + lineAdvance());
}

void Kanvas::doPrintValue(const std::string &text, float x, float y, const Ordinate &)
{
    doPrint(text, x, y);
}

void Kanvas::printRotated(const std::string &text, double x, double y, const RotatedFont &font,
                          int angle)
{
    if (!allSingles(x, y))
        return;
    doPrintRotated(text, static_cast<float>(x), static_cast<float>(y), font, angle);
    moveTo(0, y + lineAdvance());
}

} // namespace veskora
