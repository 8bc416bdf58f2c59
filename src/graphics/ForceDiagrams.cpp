// The diagrams of M, Q and N, and the buttons that change their scale.

#include "Functions_Bres_Megista.h"
#include "Kanvas.h"
#include "ResultTexts.h"
#include "RowQueries.h"
#include "Settings.h"
#include "skip.h"
#include "Sxediastika.h"
#include "SymbolPen.h"

#include <array>

namespace veskora {

namespace {

/// What tells one diagram from another.
struct Diagram
{
    const char *letter;
    double colour;
    bool positiveSide; ///< positive values on the right-hand side, seen from i to j
    double scale;      ///< what one centimetre stands for
    bool printsValues;
    std::int16_t decimals;
    double signI; ///< of the value in `column` at end i; at j the sign is the other one
    int column;   ///< of `Entasi_Topiki` at end i; at j three more
    double (*greatest)();
    double (*least)();
};

/// One element's diagram: its ends and its ordinates' ends, in upright canvas coordinates.
struct Ordinates
{
    Point endI, endJ;
    Point atI, atJ;
    Point normal; ///< unit vector to the left, seen from i to j
    double valueI, valueJ;
};

double sideOf(const Diagram &diagram)
{
    return diagram.positiveSide ? 1 : -1;
}

Point shifted(Point from, double distance, Point direction)
{
    return {from.x + distance * direction.x, from.y + distance * direction.y};
}

Ordinates ordinates(const Diagram &diagram, int e, const ElementLine &line)
{
    Ordinates o{};
    o.endI = toUprightCanvas(line.i);
    o.endJ = toUprightCanvas(line.j);
    o.normal = {-line.dy / line.length, line.dx / line.length};
    o.valueI = diagram.signI * Entasi_Topiki(e, diagram.column);
    o.valueJ = -diagram.signI * Entasi_Topiki(e, diagram.column + 3);
    const double s = sideOf(diagram);
    o.atI = shifted(o.endI, -s * (o.valueI / diagram.scale), o.normal);
    o.atJ = shifted(o.endJ, -s * (o.valueJ / diagram.scale), o.normal);
    return o;
}

/// Whether there is anything to draw: a scale or a length of 0 gives no ordinates.
bool isDrawable(const Ordinates &o)
{
    return isReachable(o.endI) && isReachable(o.endJ) && isReachable(o.atI) && isReachable(o.atJ);
}

void line(Point from, Point to)
{
    Picture1().line(from.x, Anastrofi_Y(from.y), to.x, Anastrofi_Y(to.y));
}

void lineTo(Point to)
{
    Picture1().lineTo(to.x, Anastrofi_Y(to.y));
}

void printValue(double shown, Point at)
{
    printAt({at.x, Anastrofi_Y(at.y)}, shown);
}

/// Prints at the current point, which stays.
void printValueHere(double shown)
{
    Kanvas &kanvas = Picture1();
    const double x = kanvas.currentX();
    const double y = kanvas.currentY();
    kanvas.print(shown);
    kanvas.moveTo(x, y);
}

/// With the element a closed quadrilateral.
void drawStraight(const Diagram &diagram, int, const ElementLine &, const Ordinates &o,
                  ShownValues &shown)
{
    line(o.endI, o.atI);
    if (diagram.printsValues)
        printValueHere(shown(o.valueI));
    lineTo(o.atJ);
    if (diagram.printsValues)
        printValueHere(shown(o.valueJ));
    lineTo(o.endJ);
}

/// The same for a moment without load, the values over the lines.
void drawStraightMoment(const Diagram &diagram, const Ordinates &o, ShownValues &shown)
{
    line(o.endI, o.atI);
    lineTo(o.atJ);
    if (diagram.printsValues) {
        printValue(shown(o.valueI), o.atI);
        printValue(shown(o.valueJ), o.atJ);
    }
    line(o.atJ, o.endJ);
}

/// The parabola over a loaded element, by repeated midpoints: each lies beyond the middle of its
/// chord by the moment that the load alone gives at the middle of a beam as long as the chord.
void drawParabola(const Diagram &diagram, int e, const ElementLine &element, const Ordinates &o,
                  ShownValues &shown)
{
    constexpr std::size_t chords = 16;
    std::array<Point, chords + 1> points;
    points.front() = o.atI;
    points.back() = o.atJ;
    const double a = element.dx != 0 ? Stoixeia(e, element::wy) * element.length / element.dx : 0;
    const double b = element.dy != 0 ? Stoixeia(e, element::wx) * element.length / element.dy : 0;
    double dx = element.dx; // of a chord
    double dy = element.dy;
    for (std::size_t reach = chords / 2; reach > 0; reach /= 2) {
        const double sag = sideOf(diagram) * (a * (dx * dx) - b * (dy * dy)) / 8 / diagram.scale;
        for (std::size_t k = reach; k < chords; k += 2 * reach) {
            const Point before = points[k - reach];
            const Point after = points[k + reach];
            points[k] =
                shifted({(before.x + after.x) / 2, (before.y + after.y) / 2}, sag, o.normal);
        }
        dx /= 2;
        dy /= 2;
    }

    line(o.endI, points.front());
    line(o.endJ, points.back());
    for (Point &point : points)
        point.y = Anastrofi_Y(point.y);
    Picture1().polyline(points);
    if (diagram.printsValues) {
        printValue(shown(o.valueI), o.atI);
        printValue(shown(o.valueJ), o.atJ);
    }
}

using DrawElement = void (*)(const Diagram &, int e, const ElementLine &, const Ordinates &,
                             ShownValues &);

void drawMoment(const Diagram &diagram, int e, const ElementLine &element, const Ordinates &o,
                ShownValues &shown)
{
    if (isLoadedElement(e))
        drawParabola(diagram, e, element, o, shown);
    else
        drawStraightMoment(diagram, o, shown);
}

void draw(const Diagram &diagram, DrawElement drawElement)
{
    Kanvas &kanvas = Picture1();
    kanvas.clear();
    Sxedio_Grid();
    Sxedio_Aksonon();
    kanvas.setPenColour(diagram.colour);
    ShownValues shown(diagram.decimals);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        skipFaults([&, e] {
            const ElementLine element = elementLine(e);
            const Ordinates o = ordinates(diagram, e, element);
            if (isDrawable(o))
                drawElement(diagram, e, element, o, shown);
        });
    Sxedio_Stoixeion(); // the frame lies over the diagrams
    printHeading(diagram.letter);
    printExtreme("max.= ", shown(diagram.greatest()));
    printExtreme("min.= ", shown(diagram.least()));
    shown.report();
}

/// Makes the ordinate of @p greatest longer, where @p growth is what that takes in its own unit.
void rescale(float &scale, double greatest, double growth)
{
    const double T = Stroggylopoiisi(scale * greatest / (greatest + growth), 2);
    if (T > 0)
        scale = static_cast<float>(T);
}

/// @param growth  of the longest ordinate, centimetres
void changeScale(double growth)
{
    switch (Katastasi_Provolis) {
    case 1:
        return rescale(Ena_cm_posa_KNm_M, Bres_Max_Abs_M(), growth * Ena_cm_posa_KNm_M);
    case 2:
        return rescale(Ena_cm_posa_KN_Q, Bres_Max_Abs_Q(), growth * Ena_cm_posa_KN_Q);
    case 3:
        return rescale(Ena_cm_posa_KN_N, Bres_Max_Abs_N(), growth * Ena_cm_posa_KN_N);
    case 4:
        return rescale(Ena_cm_posa_m_epi_1000, Bres_Max_U(),
                       growth * Ena_cm_posa_m_epi_1000 / 1000);
    default:
        return;
    }
}

} // namespace

void Diagramma_M()
{
    draw({"M", xroma_M, M_sin_Tension, Ena_cm_posa_KNm_M, nai_times_M, dekadika_M, -1, 3,
          Bres_Max_M, Bres_Min_M},
         drawMoment);
}

void Diagramma_Q()
{
    draw({"Q", xroma_Q, Q_sin_Ina, Ena_cm_posa_KN_Q, nai_times_Q, dekadika_Q, 1, 2, Bres_Max_Q,
          Bres_Min_Q},
         drawStraight);
}

void Diagramma_N()
{
    draw({"N", xroma_N, N_sin_Ina, Ena_cm_posa_KN_N, nai_times_N, dekadika_N, -1, 1, Bres_Max_N,
          Bres_Min_N},
         drawStraight);
}

void enlargeDiagram()
{
    changeScale(0.2);
}

void reduceDiagram()
{
    changeScale(-0.2);
}

} // namespace veskora
