// Nodal load arrows and the fields of uniform element loads. The sign is in the arrow, the printed
// value is a magnitude.

#include "Kanvas.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Settings.h"
#include "skip.h"
#include "Sxediastika.h"
#include "SymbolPen.h"

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

double signOf(float load)
{
    return load < 0 ? -1 : 1;
}

void drawForceX(const SymbolPen &pen, float force)
{
    const double s = signOf(force);
    if (nai_fortiseis_si) {
        pen.line(-1.2 * s, 0, 1.2 * s, 0);
        pen.lineOn(-0.35 * s, 0.06);
        pen.lineOn(0, -0.12);
        pen.lineOn(0.35 * s, 0.06);
    }
    if (nai_times_fortiseon_si)
        pen.print(s > 0 ? -0.8 : 0.4, 0.1, std::abs(force));
}

void drawForceY(const SymbolPen &pen, float force)
{
    const double s = signOf(force);
    if (nai_fortiseis_si) {
        pen.line(0, 1.2 * s, 0, -1.2 * s);
        pen.lineOn(0.06, 0.35 * s);
        pen.lineOn(-0.12, 0);
        pen.lineOn(0.06, -0.35 * s);
    }
    if (nai_times_fortiseon_si)
        pen.print(0.1, s > 0 ? 0.3 : -0.6, std::abs(force));
}

/// An arc around the node. The lead line meets its upper end only nearly: it goes by the angle of
/// the other end, mirrored.
void drawMoment(const SymbolPen &pen, float moment)
{
    constexpr double radius = 0.5;
    constexpr double upper = 2.1;
    constexpr double lower = 4.2;
    constexpr double half = 3.14159265358979;
    const double s = signOf(moment);
    if (nai_fortiseis_si) {
        pen.line(0, 0, s * radius * std::cos(lower), radius * std::sin(lower));
        if (s > 0) {
            pen.arc(0, 0, radius, upper, lower);
            pen.moveTo(radius * std::cos(upper), radius * std::sin(upper));
        } else {
            pen.arc(0, 0, radius, half + upper, lower - half);
            pen.moveTo(radius * std::cos(half + upper), -radius * std::sin(half + upper));
        }
        pen.lineOn(-0.12 * s, 0);
        pen.shift(0.12 * s, 0);
        pen.lineOn(0, -0.12);
    }
    if (nai_times_fortiseon_si)
        pen.print(radius * std::cos(upper) + (s > 0 ? -0.5 : 0.8), radius * std::sin(upper) + 0.03,
                  std::abs(moment));
}

/// The arrows of a load field that can be seen, out of the hundreds of thousands that a deep zoom
/// gives an element.
class ArrowRow
{
public:
    /// @param i,j     the element's ends on the canvas
    /// @param length  between them; told by itself, since the difference of two places that move
    ///                with every pan rounds now to one number of bays and now to the next
    ArrowRow(Point i, Point j, double length) : start_(i)
    {
        const double bays = std::max(2.0, std::floor(length));
        step_ = {(j.x - i.x) / bays, (j.y - i.y) / bays};
        double last = bays;
        narrow(last, start_.x, step_.x, Picture1().width());
        narrow(last, start_.y, step_.y, Picture1().height());
        // A step is about a centimetre, so that more is no number at all.
        constexpr double most = 1e6;
        if (last - first_ >= 0 && last - first_ < most)
            arrows_ = static_cast<int>(last - first_) + 1;
    }

    /// Calls @p draw with a pen at the place of each arrow.
    template <typename Draw>
    void each(Draw draw) const
    {
        for (int arrow = 0; arrow < arrows_; ++arrow) {
            const double k = first_ + arrow;
            draw(SymbolPen({start_.x + k * step_.x, start_.y + k * step_.y}));
        }
    }

private:
    /// Leaves of the places start + k * step those from -1 to size + 1: no arrow is longer than a
    /// centimetre.
    void narrow(double &last, double start, double step, double size)
    {
        constexpr double margin = 1;
        if (step == 0) {
            if (!(start >= -margin && start <= size + margin))
                last = -1;
            return;
        }
        const auto [from, to] =
            std::minmax({(-margin - start) / step, (size + margin - start) / step});
        first_ = std::max(first_, std::ceil(from));
        last = std::min(last, std::floor(to));
    }

    Point start_;
    Point step_;
    double first_ = 0;
    int arrows_ = 0;
};

/// Above the element on the screen, whatever its slope.
void drawFieldY(Point i, Point j, double length, float load)
{
    constexpr double depth = 0.6;
    const double s = signOf(load);
    if (nai_times_fortiseon_om)
        printAt({j.x, j.y - depth}, std::abs(load));
    if (!nai_fortiseis_om)
        return;
    const Point from = crispPlace(i);
    const Point to = crispPlace(j);
    Picture1().line(from.x, from.y - depth, to.x, to.y - depth);
    ArrowRow(i, j, length).each([=](const SymbolPen &pen) {
        if (s < 0)
            pen.line(0, -depth, 0, depth);
        else
            pen.line(0, 0, 0, -depth);
        pen.lineOn(0.05, 0.2 * s);
        pen.shift(-0.1, 0);
        pen.lineOn(0.05, -0.2 * s);
    });
}

/// Left of the element.
void drawFieldX(Point i, Point j, double length, float load)
{
    constexpr double depth = 0.6;
    const double s = signOf(load);
    if (nai_times_fortiseon_om)
        printAt({j.x - depth, j.y}, std::abs(load));
    if (!nai_fortiseis_om)
        return;
    const Point from = crispPlace(i);
    const Point to = crispPlace(j);
    Picture1().line(from.x - depth, from.y, to.x - depth, to.y);
    ArrowRow(i, j, length).each([=](const SymbolPen &pen) {
        if (s < 0)
            pen.line(0, 0, -depth, 0);
        else
            pen.line(-depth, 0, depth, 0);
        pen.lineOn(-0.2 * s, 0.05);
        pen.shift(0, -0.1);
        pen.lineOn(0.2 * s, 0.05);
    });
}

} // namespace

void Sxedio_Fortiseon_Si()
{
    Kanvas &kanvas = Picture1();
    kanvas.setPenColour(xroma_sigkentromenon);
    kanvas.setPenWidth(2);
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const Point at = toCanvas(nodePlace(n));
        if (!isReachable(at))
            continue;
        const SymbolPen pen(at);
        if (Komboi(n, node::Fx) != 0)
            drawForceX(pen, Komboi(n, node::Fx));
        if (Komboi(n, node::Fy) != 0)
            drawForceY(pen, Komboi(n, node::Fy));
        if (Komboi(n, node::M) != 0)
            drawMoment(pen, Komboi(n, node::M));
    }
    kanvas.setPenWidth(1);
}

void Sxedio_Fortiseon_Om()
{
    Picture1().setPenColour(xroma_omoiomorfon);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        skipFaults([e] {
            if (!isLoadedElement(e))
                return;
            const float wx = Stoixeia(e, element::wx);
            const float wy = Stoixeia(e, element::wy);
            const ElementLine line = elementLine(e);
            const Point i = toCanvas(line.i);
            const Point j = toCanvas(line.j);
            const double length = Mikos_Se_Othoni(line.length);
            if (wy != 0)
                drawFieldY(i, j, length, wy);
            if (wx != 0)
                drawFieldX(i, j, length, wx);
        });
}

} // namespace veskora
