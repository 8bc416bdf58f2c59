// The deformed model over the undeformed one.

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

/// What is computed station by station. A value that cannot be (a zero E, I or scale) stays as the
/// station before left it, across elements too.
struct ShapeStation
{
    double EA = 0, EI = 0;
    double N1 = 0, N2 = 0, N3 = 0, N4 = 0; ///< shape functions of v and rotation at i, then at j
    double u = 0, v = 0;                   ///< along and across the element
    Point displaced;                       ///< world
};

void setIfFinite(double &value, double computed)
{
    if (std::isfinite(computed))
        value = computed;
}

/// End displacements and load of one element in local axes.
struct ElementState
{
    ElementLine line;
    double c, z; ///< cosine and sine of its direction
    double ui, vi, rotationI, uj, vj, rotationJ;
    double qx, qy;
    ElementType type;
};

ElementState elementState(int e, const ElementLine &line)
{
    ElementState s{};
    s.line = line;
    s.c = line.dx / line.length;
    s.z = line.dy / line.length;
    const auto along = [&](double x, double y) { return x * s.c + y * s.z; };
    const auto across = [&](double x, double y) { return -x * s.z + y * s.c; };
    const auto [ni, nj] = elementNodes(e);
    const double xi = Metatopiseis(freedomOf(ni, 1));
    const double yi = Metatopiseis(freedomOf(ni, 2));
    const double xj = Metatopiseis(freedomOf(nj, 1));
    const double yj = Metatopiseis(freedomOf(nj, 2));
    s.ui = along(xi, yi);
    s.vi = across(xi, yi);
    s.rotationI = Metatopiseis(freedomOf(ni, 3));
    s.uj = along(xj, yj);
    s.vj = across(xj, yj);
    s.rotationJ = Metatopiseis(freedomOf(nj, 3));
    const double wx = Stoixeia(e, element::wx);
    const double wy = Stoixeia(e, element::wy);
    s.qx = along(wx, wy);
    s.qy = across(wx, wy);
    s.type = elementType(e);
    return s;
}

void setRigidities(int e, ShapeStation &station)
{
    skipFaults([&] {
        const int g = elementGroup(e);
        setIfFinite(station.EA, Omades(g, group::E) * Omades(g, group::A));
        setIfFinite(station.EI, Omades(g, group::E) * Omades(g, group::I));
    });
}

/// The shape functions at @p x. Those of one hinge are quadratics through the end values and the
/// slope at the rigid end.
void setShapeFunctions(const ElementState &s, double x, ShapeStation &at)
{
    const double L = s.line.length;
    switch (s.type) {
    case ElementType::P2:
        at.N1 = 1 - 3 * x * x / (L * L) + 2 * x * x * x / (L * L * L);
        at.N2 = x - 2 * x * x / L + x * x * x / (L * L);
        at.N3 = 3 * x * x / (L * L) - 2 * x * x * x / (L * L * L);
        at.N4 = -x * x / L + x * x * x / (L * L);
        return;
    case ElementType::hingeAtJ:
        at.N1 = 1 - x * x / (L * L);
        at.N2 = x - x * x / L;
        at.N3 = x * x / (L * L);
        at.N4 = 0;
        return;
    case ElementType::hingeAtI:
        at.N1 = 1 - 2 * x / L + x * x / (L * L);
        at.N2 = 0;
        at.N3 = 2 * x / L - x * x / (L * L);
        at.N4 = x * x / L - x;
        return;
    case ElementType::P1:
        at.N1 = 1 - x / L;
        at.N2 = 0;
        at.N3 = x / L;
        at.N4 = 0;
        return;
    case ElementType::none:
        return;
    }
}

/// The deflection at @p x that the load gives the element by itself, its ends held.
double loadTerm(const ElementState &s, double x, double EI)
{
    const double L = s.line.length;
    const double rest = L - x;
    switch (s.type) {
    case ElementType::P2:
        return s.qy * x * x * rest * rest / (24 * EI);
    case ElementType::P1:
        return s.qy * x * (x - L) * (x * x - L * x - L * L) / (24 * EI);
    case ElementType::hingeAtI:
        return s.qy * x * rest * rest * (2 * x + L) / (48 * EI);
    case ElementType::hingeAtJ:
        return s.qy * x * x * (3 * L - 2 * x) * rest / (48 * EI);
    case ElementType::none:
        break;
    }
    return 0;
}

void moveTo(const ElementState &s, double x, ShapeStation &at)
{
    const double L = s.line.length;
    setShapeFunctions(s, x, at);
    setIfFinite(at.u, (1 - x / L) * s.ui + x / L * s.uj + s.qx * x * (L - x) / (2 * at.EA));
    setIfFinite(at.v, at.N1 * s.vi + at.N2 * s.rotationI + at.N3 * s.vj + at.N4 * s.rotationJ
                          + loadTerm(s, x, at.EI));
    const double U = at.u * s.c - at.v * s.z;
    const double V = at.u * s.z + at.v * s.c;
    const double scale = static_cast<double>(Ena_cm_posa_m_epi_1000) / 1000;
    setIfFinite(at.displaced.x, s.line.i.x + x / L * s.line.dx + U / scale);
    setIfFinite(at.displaced.y, s.line.i.y + x / L * s.line.dy + V / scale);
}

constexpr std::size_t chords = 20; ///< of an element

/// Hands the canvas places of each deformed element to @p take, and its axis.
template <typename Take>
void forDeformedElements(Take take)
{
    ShapeStation station;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        skipFaults([&, e] {
            const ElementLine line = elementLine(e);
            if (line.length == 0)
                return;
            const ElementState state = elementState(e, line);
            setRigidities(e, station);
            std::array<Point, chords + 1> places;
            for (std::size_t k = 0; k <= chords; ++k) {
                moveTo(state, static_cast<double>(k) * line.length / chords, station);
                places[k] = toCanvas(station.displaced);
            }
            take(line, places);
        });
}

/// The same for the picture, which has the shapes only with the lines of the elements.
template <typename Take>
void forDrawnElements(Take take)
{
    if (nai_stoixeia)
        forDeformedElements(take);
}

} // namespace

void Sxedio_Paramorfosis()
{
    Kanvas &kanvas = Picture1();
    kanvas.clear();
    Sxedio_Grid();
    Sxedio_Aksonon();
    Sxedio_Stoixeion();
    Sxedio_Kombon();
    kanvas.setPenColour(xroma_paramorfosis);
    kanvas.setPenWidth(2);
    forDrawnElements([&](const ElementLine &, const auto &places) { kanvas.polyline(places); });
    ShownValues shown(displacementDecimals);
    printHeading("D");
    printExtreme("max.= ", shown(Bres_Max_U()));
    printExtreme("max.|x|= ", shown(Bres_Max_Abs_Ux()));
    printExtreme("max.|y|= ", shown(Bres_Max_Abs_Uy()));
    printWarnings();
    kanvas.setPenWidth(1);
    shown.report();
}

std::vector<Reach> displacementReaches()
{
    std::vector<Reach> all;
    forDrawnElements([&](const ElementLine &line, const auto &places) {
        for (std::size_t k = 0; k <= chords; ++k) {
            const double t = static_cast<double>(k) / chords;
            const Point foot = toCanvas({line.i.x + t * line.dx, line.i.y + t * line.dy});
            if (isReachable(foot) && isReachable(places[k]))
                all.push_back({foot, places[k]});
        }
    });
    return all;
}

} // namespace veskora
