#include "RecordingKanvas.h"

#include "Metablites.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace veskora {

namespace {

std::string shortest(double value)
{
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.4f", std::abs(value) < 0.00005 ? 0.0 : value);
    std::string number = text.data();
    number.erase(number.find_last_not_of('0') + 1);
    return number.ends_with('.') ? number.substr(0, number.size() - 1) : number;
}

} // namespace

std::string record(std::string text, std::initializer_list<double> numbers)
{
    for (const double number : numbers)
        text.append(" ").append(shortest(number));
    return text;
}

namespace {

std::string penRecord(const Pen &pen)
{
    return record("pen", {pen.colour, 1.0 * pen.width, 1.0 * pen.fontSize})
           + (pen.bold ? " bold" : "") + (pen.style == PenStyle::dotted ? " dotted" : "");
}

std::string primitiveRecord(const Primitive &p)
{
    const std::string words = " '" + p.text + "'";
    switch (p.kind) {
    case Primitive::Kind::line:
        return record("line", {p.x, p.y, p.x2 - p.x, p.y2 - p.y});
    case Primitive::Kind::point:
        return record("point", {p.x, p.y});
    case Primitive::Kind::circle:
        return record("circle", {p.x, p.y, p.radius})
               + (p.pen.fillOn ? record(" fill", {p.pen.fillColour}) : "");
    case Primitive::Kind::arc:
        return record("arc", {p.x, p.y, p.radius, p.start, p.end});
    case Primitive::Kind::turnedText:
        return record(record("turned", {p.x, p.y, 1.0 * p.angle}) + words + " " + p.font.face,
                      {1.0 * p.font.height, 1.0 * p.font.weight});
    default:
        break;
    }
    if (!p.ordinate)
        return record("text", {p.x, p.y}) + words;
    const auto &[node, foot, tip] = *p.ordinate;
    return record(record("text", {p.x, p.y}) + words + " node",
                  {1.0 * node, foot.x, foot.y, tip.x, tip.y});
}

} // namespace

std::vector<Primitive> RecordingKanvas::linesOf(double colour) const
{
    std::vector<Primitive> found;
    for (const Primitive &p : drawn)
        if (p.kind == Primitive::Kind::line && p.pen.colour == colour)
            found.push_back(p);
    return found;
}

std::string RecordingKanvas::text() const
{
    std::string text, last;
    for (const Primitive &p : drawn) {
        if (const std::string now = penRecord(p.pen); now != last) {
            text += now + "\n";
            last = now;
        }
        text += primitiveRecord(p) + "\n";
    }
    return text + "left" + penRecord(pen).substr(3)
           + (pen.fillOn ? record(" fill", {pen.fillColour}) : "") + "\n";
}

Primitive &RecordingKanvas::add(Primitive::Kind kind, float x, float y)
{
    return drawn.emplace_back(Primitive{.kind = kind, .pen = pen, .x = x, .y = y});
}

void RecordingKanvas::doLine(float x1, float y1, float x2, float y2)
{
    Primitive &p = add(Primitive::Kind::line, x1, y1);
    p.x2 = x2;
    p.y2 = y2;
}

void RecordingKanvas::doPoint(float x, float y)
{
    add(Primitive::Kind::point, x, y);
}

void RecordingKanvas::doCircle(float x, float y, float radius)
{
    add(Primitive::Kind::circle, x, y).radius = radius;
}

void RecordingKanvas::doArc(float x, float y, float radius, double start, double end)
{
    Primitive &p = add(Primitive::Kind::arc, x, y);
    p.radius = radius;
    p.start = start;
    p.end = end;
}

void RecordingKanvas::doPrint(const std::string &text, float x, float y)
{
    if (!text.empty())
        add(Primitive::Kind::text, x, y).text = text;
}

void RecordingKanvas::doPrintValue(const std::string &text, float x, float y,
                                   const Ordinate &ordinate)
{
    add(Primitive::Kind::text, x, y).text = text;
    drawn.back().ordinate = ordinate;
}

void RecordingKanvas::doPrintRotated(const std::string &text, float x, float y,
                                     const RotatedFont &font, int angle)
{
    if (text.empty())
        return;
    Primitive &p = add(Primitive::Kind::turnedText, x, y);
    p.text = text;
    p.font = font;
    p.angle = angle;
}

void DrawingTest::originAt(double x, double y, float scale)
{
    Klimaka = scale;
    Arxi_X = -x;
    Arxi_Y = kanvas.h - y;
}

} // namespace veskora
