#include "RecordingKanvas.h"

#include "Metablites.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <sstream>

namespace veskora {

namespace {

std::string fixed(double value)
{
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.4f", std::abs(value) < 0.00005 ? 0.0 : value);
    return text.data();
}

std::string record(const std::string &kind, std::initializer_list<double> numbers,
                   const std::string &rest = "")
{
    std::string text = kind;
    for (const double number : numbers)
        text.append(" ").append(fixed(number));
    return rest.empty() ? text + "\n" : text + " " + rest + "\n";
}

std::string quoted(const std::string &text)
{
    return "'" + text + "'";
}

std::string penRecord(const Pen &pen)
{
    return record(
        "pen", {pen.colour, static_cast<double>(pen.width), static_cast<double>(pen.fontSize)},
        std::string(pen.bold ? "bold" : "") + (pen.style == PenStyle::dotted ? "dotted" : ""));
}

std::string primitiveRecord(const Primitive &p, double x, double y)
{
    switch (p.kind) {
    case Primitive::Kind::line:
        return record("line", {x, y, p.x2 - p.x, p.y2 - p.y});
    case Primitive::Kind::point:
        return record("point", {x, y});
    case Primitive::Kind::circle:
        return p.pen.fillOn ? record("circle", {x, y, p.radius}, "fill " + fixed(p.pen.fillColour))
                            : record("circle", {x, y, p.radius});
    case Primitive::Kind::arc:
        return record("arc", {x, y, p.radius, p.start, p.end});
    case Primitive::Kind::text:
        return record("text", {x, y}, quoted(p.text));
    default:
        return record("turned",
                      {x, y, static_cast<double>(p.angle), static_cast<double>(p.font.height),
                       static_cast<double>(p.font.weight)},
                      quoted(p.text));
    }
}

std::vector<std::string> split(const std::string &text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);)
        parts.push_back(part);
    return parts;
}

/// One primitive written by hand, moved, then mirrored.
std::string byHand(const std::string &text, double moveX, double moveY, double signX, double signY)
{
    std::istringstream in(text);
    std::string kind, token, rest;
    in >> kind;
    std::string line = kind;
    for (int index = 0; in >> token; ++index) {
        char *end = nullptr;
        double number = std::strtod(token.c_str(), &end);
        if (token.front() == '\'') { // words, blanks and all
            std::getline(in, rest);
            return line + " " + token + rest + "\n";
        }
        if (*end != '\0') {
            line.append(" ").append(token);
            continue;
        }
        const bool isPlace = kind != "pen" && index < 2;
        const bool isExtent = kind == "line" && index >= 2;
        if (isPlace)
            number += index == 0 ? moveX : moveY;
        if (isPlace || isExtent)
            number *= index % 2 == 0 ? signX : signY;
        line.append(" ").append(fixed(number));
    }
    return line + "\n";
}

} // namespace

std::vector<Primitive> RecordingKanvas::of(Primitive::Kind kind) const
{
    std::vector<Primitive> found;
    for (const Primitive &p : drawn)
        if (p.kind == kind)
            found.push_back(p);
    return found;
}

std::vector<Primitive> RecordingKanvas::linesOf(double colour) const
{
    std::vector<Primitive> found;
    for (const Primitive &p : of(Primitive::Kind::line))
        if (p.pen.colour == colour)
            found.push_back(p);
    return found;
}

std::string RecordingKanvas::picture(double x0, double y0, Pens pens) const
{
    std::string text;
    std::string last;
    for (const Primitive &p : drawn) {
        if (const std::string now = penRecord(p.pen); pens == Pens::shown && now != last) {
            text += now;
            last = now;
        }
        text += primitiveRecord(p, p.x - x0, p.y - y0);
    }
    return text;
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

std::string picture(const std::string &records, double signX, double signY)
{
    std::string text;
    for (std::string part : split(records, ';')) {
        int times = 1;
        double stepX = 0, stepY = 0;
        if (const std::size_t colon = part.find(": "); colon != std::string::npos) {
            std::istringstream head(part.substr(0, colon));
            std::string by;
            head >> times >> by >> stepX >> stepY;
            part = part.substr(colon + 1);
        }
        for (int i = 0; i < times; ++i)
            for (const std::string &one : split(part, '&'))
                text += byHand(one, stepX * i, stepY * i, signX, signY);
    }
    return text;
}

void DrawingTest::originAt(double x, double y, float scale)
{
    Klimaka = scale;
    Arxi_X = -x;
    Arxi_Y = kanvas.h - y;
}

} // namespace veskora
