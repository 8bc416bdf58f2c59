// One element: line, hinge marks, labels along it.

#include "ElementLine.h"
#include "Kanvas.h"
#include "MathFunc.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "SymbolPen.h"

#include <string>

namespace veskora {

namespace {

constexpr std::int16_t Dekadika_Mikous = 4; // decimals of the length label

void drawHinges(int e, const ElementLine &line)
{
    Kanvas &kanvas = Picture1();
    constexpr double radius = 0.1;
    const Point a = toUprightCanvas(line.i);
    const Point b = toUprightCanvas(line.j);
    const double length = Mikos_Se_Othoni(line.length);
    kanvas.setFillColour(xroma_background); // hides the element line under the mark
    const auto mark = [&](double distance) {
        const double part = distance / length;
        const Point centre =
            crispPlace({a.x + part * (b.x - a.x), Anastrofi_Y(a.y - part * (a.y - b.y))});
        kanvas.circle(centre.x, centre.y, radius);
    };
    if (Stoixeia(e, element::hingeI) == 1)
        mark(radius);
    if (Stoixeia(e, element::hingeJ) == 1)
        mark(length - radius);
}

/// Tenths of a degree, turned where the text would stand upside down.
int labelAngle(double direction)
{
    double degrees = Se_Moires(direction);
    if (degrees > 90 && degrees < 270)
        degrees += 180;
    return 10 * static_cast<int>(std::nearbyint(degrees));
}

} // namespace

void Sxedio_Stoixeiou(int e)
{
    Kanvas &kanvas = Picture1();
    const ElementLine line = elementLine(e);
    const Point i = toCanvas(line.i);
    const Point j = toCanvas(line.j);
    if (nai_stoixeia) {
        kanvas.setPenColour(xroma_stoixeion);
        kanvas.line(i.x, i.y, j.x, j.y);
    }
    if (nai_eleftheroseis)
        drawHinges(e, line);
    kanvas.setPenColour(xroma_stoixeion);

    std::string number;
    if (nai_arithmisi_stoixeion)
        number.append(" ").append(numberText(e));
    if (nai_omades)
        number.append(" (").append(numberText(Stoixeia(e, element::group))).append(")");
    std::string length;
    if (nai_miki)
        length.append(" ").append(numberText(Stroggylopoiisi(line.length, Dekadika_Mikous)));

    const Point middle =
        toCanvas({line.i.x * 0.5 + line.j.x * 0.5, line.i.y * 0.5 + line.j.y * 0.5});
    const double direction = Gonia_Dianysmatos(line.dx, line.dy);
    const int angle = labelAngle(direction);
    const auto print = [&](const std::string &text, double x, double y) {
        DrawRotatedText(text, x, y, canvasFontFace, 11, 200, angle, false, false, false);
    };
    print(number, middle.x, middle.y);
    // Across the element from the number, by the angle as it was before any turn.
    print(length, middle.x + 0.3 * std::sin(direction), middle.y + 0.3 * std::cos(direction));
}

} // namespace veskora
