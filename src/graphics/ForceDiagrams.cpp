// The diagrams of M, Q and N, and the buttons that change their scale.

#include "AlongElement.h"
#include "Functions_Bres_Megista.h"
#include "Kanvas.h"
#include "Reach.h"
#include "ResultTexts.h"
#include "RowQueries.h"
#include "Settings.h"
#include "skip.h"
#include "Sxediastika.h"
#include "SymbolPen.h"

#include <array>

namespace veskora {

namespace {

/// One element's diagram: its ends and its ordinates' ends, in upright canvas coordinates.
struct Ordinates
{
    int e;
    ElementLine axis;
    Point endI, endJ;
    Point atI, atJ;
    Point normal; ///< unit vector to the left, seen from i to j
    double valueI, valueJ;
};

/// What tells one diagram from another.
struct Diagram
{
    const char *letter;
    double colour;
    bool positiveSide; ///< positive values on the right-hand side, seen from i to j
    double scale;      ///< what one centimetre stands for
    bool printsValues;
    std::int16_t decimals;
    StressResultant resultant;
    double (*greatest)();
    double (*least)();
    void (*drawElement)(const Diagram &, const Ordinates &, ShownValues &);
    bool isCurved = false; ///< between the ends it can go beyond them
};

double sideOf(const Diagram &diagram)
{
    return diagram.positiveSide ? 1 : -1;
}

Point shifted(Point from, double distance, Point direction)
{
    return {from.x + distance * direction.x, from.y + distance * direction.y};
}

Ordinates ordinates(const Diagram &diagram, int e)
{
    const ElementLine line = elementLine(e);
    Ordinates o{};
    o.e = e;
    o.axis = line;
    o.endI = toUprightCanvas(line.i);
    o.endJ = toUprightCanvas(line.j);
    o.normal = {-line.dy / line.length, line.dx / line.length};
    o.valueI = diagram.resultant.atI(e);
    o.valueJ = diagram.resultant.atJ(e);
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

/// That at @p end, i or j, on the canvas.
Ordinate ordinateAt(char end, const Ordinates &o)
{
    const auto [i, j] = elementNodes(o.e);
    const bool isI = end == 'i';
    const Point foot = isI ? o.endI : o.endJ, tip = isI ? o.atI : o.atJ;
    return {isI ? i : j, {foot.x, Anastrofi_Y(foot.y)}, {tip.x, Anastrofi_Y(tip.y)}};
}

void printValue(double shown, const Ordinate &ordinate)
{
    if (!isReachable(ordinate.tip))
        return;
    Picture1().moveTo(ordinate.tip.x, ordinate.tip.y);
    Picture1().printValue(shown, ordinate);
}

/// Prints at the current point, which stays.
void printValueHere(double shown, const Ordinate &ordinate)
{
    Kanvas &kanvas = Picture1();
    const double x = kanvas.currentX();
    const double y = kanvas.currentY();
    kanvas.printValue(shown, ordinate);
    kanvas.moveTo(x, y);
}

/// With the element a closed quadrilateral.
void drawStraight(const Diagram &diagram, const Ordinates &o, ShownValues &shown)
{
    line(o.endI, o.atI);
    if (diagram.printsValues)
        printValueHere(shown(o.valueI), ordinateAt('i', o));
    lineTo(o.atJ);
    if (diagram.printsValues)
        printValueHere(shown(o.valueJ), ordinateAt('j', o));
    lineTo(o.endJ);
}

/// The same for a moment without load, the values over the lines.
void drawStraightMoment(const Diagram &diagram, const Ordinates &o, ShownValues &shown)
{
    line(o.endI, o.atI);
    lineTo(o.atJ);
    if (diagram.printsValues) {
        printValue(shown(o.valueI), ordinateAt('i', o));
        printValue(shown(o.valueJ), ordinateAt('j', o));
    }
    line(o.atJ, o.endJ);
}

constexpr std::size_t parabolaChords = 16;
using Parabola = std::array<Point, parabolaChords + 1>;

/// The parabola over a loaded element, by repeated midpoints: each lies beyond the middle of its
/// chord by the moment that the load alone gives at the middle of a beam as long as the chord.
Parabola parabola(const Diagram &diagram, const Ordinates &o)
{
    Parabola points;
    points.front() = o.atI;
    points.back() = o.atJ;
    const double wholeX = o.axis.dx, wholeY = o.axis.dy;
    const double a = wholeX != 0 ? Stoixeia(o.e, element::wy) * o.axis.length / wholeX : 0;
    const double b = wholeY != 0 ? Stoixeia(o.e, element::wx) * o.axis.length / wholeY : 0;
    double dx = wholeX; // of a chord
    double dy = wholeY;
    for (std::size_t reach = parabolaChords / 2; reach > 0; reach /= 2) {
        const double sag = sideOf(diagram) * (a * (dx * dx) - b * (dy * dy)) / 8 / diagram.scale;
        for (std::size_t k = reach; k < parabolaChords; k += 2 * reach) {
            const Point before = points[k - reach];
            const Point after = points[k + reach];
            points[k] =
                shifted({(before.x + after.x) / 2, (before.y + after.y) / 2}, sag, o.normal);
        }
        dx /= 2;
        dy /= 2;
    }
    return points;
}

void drawParabola(const Diagram &diagram, const Ordinates &o, ShownValues &shown)
{
    Parabola points = parabola(diagram, o);
    line(o.endI, points.front());
    line(o.endJ, points.back());
    for (Point &point : points)
        point.y = Anastrofi_Y(point.y);
    Picture1().polyline(points);
    if (diagram.printsValues) {
        printValue(shown(o.valueI), ordinateAt('i', o));
        printValue(shown(o.valueJ), ordinateAt('j', o));
    }
}

void drawMoment(const Diagram &diagram, const Ordinates &o, ShownValues &shown)
{
    (isLoadedElement(o.e) ? drawParabola : drawStraightMoment)(diagram, o, shown);
}

void drawElements(const Diagram &diagram, ShownValues &shown)
{
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        skipFaults([&, e] {
            const Ordinates o = ordinates(diagram, e);
            if (isDrawable(o))
                diagram.drawElement(diagram, o, shown);
        });
}

void printSpan(const SpanMoment &span, ShownValues &shown)
{
    constexpr std::int16_t decimals = 3;
    printLine(Metafrasi(1832, "between the ends:") + " " + numberText(shown(span.M)) + ", "
              + Metafrasi(1833, "element") + " " + numberText(span.e)
              + ", x = " + numberText(Stroggylopoiisi(span.x, decimals)));
}

/// The heading's extremes are those of the ends; where the curve shows more, it says how much.
void printSpans(double greatest, double least, ShownValues &shown)
{
    if (Allagi_Montelou)
        return; // the loads may not be those of the end forces
    const SpanMoments spans = spanMoments();
    if (spans.greatest && shown(spans.greatest->M) > greatest)
        printSpan(*spans.greatest, shown);
    if (spans.least && shown(spans.least->M) < least)
        printSpan(*spans.least, shown);
}

void draw(const Diagram &diagram)
{
    Kanvas &kanvas = Picture1();
    kanvas.clear();
    Sxedio_Grid();
    Sxedio_Aksonon();
    kanvas.setPenColour(diagram.colour);
    ShownValues shown(diagram.decimals);
    drawElements(diagram, shown);
    Sxedio_Stoixeion(); // the frame lies over the diagrams
    printHeading(diagram.letter);
    const double greatest = shown(diagram.greatest());
    const double least = shown(diagram.least());
    printExtreme("max.= ", greatest);
    printExtreme("min.= ", least);
    if (diagram.isCurved)
        printSpans(greatest, least, shown);
    printWarnings();
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
    if (const auto shown = shownScale())
        rescale(shown->setting, shown->greatest(), growth * shown->setting / shown->divisor);
}

Diagram diagramM()
{
    return {.letter = "M",
            .colour = xroma_M,
            .positiveSide = M_sin_Tension,
            .scale = Ena_cm_posa_KNm_M,
            .printsValues = nai_times_M,
            .decimals = dekadika_M,
            .resultant = resultantM,
            .greatest = Bres_Max_M,
            .least = Bres_Min_M,
            .drawElement = drawMoment,
            .isCurved = true};
}

Diagram diagramQ()
{
    return {.letter = "Q",
            .colour = xroma_Q,
            .positiveSide = Q_sin_Ina,
            .scale = Ena_cm_posa_KN_Q,
            .printsValues = nai_times_Q,
            .decimals = dekadika_Q,
            .resultant = resultantQ,
            .greatest = Bres_Max_Q,
            .least = Bres_Min_Q,
            .drawElement = drawStraight};
}

Diagram diagramN()
{
    return {.letter = "N",
            .colour = xroma_N,
            .positiveSide = N_sin_Ina,
            .scale = Ena_cm_posa_KN_N,
            .printsValues = nai_times_N,
            .decimals = dekadika_N,
            .resultant = resultantN,
            .greatest = Bres_Max_N,
            .least = Bres_Min_N,
            .drawElement = drawStraight};
}

/// Of one element, upright: at its ends, and along it where a moment is curved.
std::vector<Reach> elementReaches(const Diagram &diagram, const Ordinates &o)
{
    if (!diagram.isCurved || !isLoadedElement(o.e))
        return {{o.endI, o.atI}, {o.endJ, o.atJ}};
    std::vector<Reach> reaches;
    for (const Point &tip : parabola(diagram, o)) {
        const double t = static_cast<double>(reaches.size()) / parabolaChords;
        reaches.push_back(
            {{o.endI.x + t * (o.endJ.x - o.endI.x), o.endI.y + t * (o.endJ.y - o.endI.y)}, tip});
    }
    return reaches;
}

std::vector<Reach> reachesOf(const Diagram &diagram)
{
    std::vector<Reach> all;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        skipFaults([&, e] {
            const Ordinates o = ordinates(diagram, e);
            if (!isDrawable(o))
                return;
            for (const auto &[foot, tip] : elementReaches(diagram, o))
                all.push_back({{foot.x, Anastrofi_Y(foot.y)}, {tip.x, Anastrofi_Y(tip.y)}});
        });
    return all;
}

} // namespace

void Diagramma_M()
{
    draw(diagramM());
}

void Diagramma_Q()
{
    draw(diagramQ());
}

void Diagramma_N()
{
    draw(diagramN());
}

std::vector<Reach> diagramReaches()
{
    switch (Katastasi_Provolis) {
    case view::M:
        return reachesOf(diagramM());
    case view::Q:
        return reachesOf(diagramQ());
    case view::N:
        return reachesOf(diagramN());
    case view::deformed:
        return displacementReaches();
    default:
        return {};
    }
}

std::optional<DiagramScale> shownScale()
{
    switch (Katastasi_Provolis) {
    case view::M:
        return DiagramScale{Ena_cm_posa_KNm_M, Bres_Max_Abs_M, dekadika_M};
    case view::Q:
        return DiagramScale{Ena_cm_posa_KN_Q, Bres_Max_Abs_Q, dekadika_Q};
    case view::N:
        return DiagramScale{Ena_cm_posa_KN_N, Bres_Max_Abs_N, dekadika_N};
    case view::deformed:
        return DiagramScale{Ena_cm_posa_m_epi_1000, Bres_Max_U, displacementDecimals, 1000};
    default:
        return std::nullopt;
    }
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
