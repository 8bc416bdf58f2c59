#include "AlongElement.h"

#include "element.h"
#include "Fault.h"
#include "Functions_Bres_Megista.h"
#include "RowQueries.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veskora {

namespace {

constexpr double rounding = 1e-9; ///< what may come out beside a value, as a part of what made it

std::optional<double> ifFinite(double value)
{
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// @p action over the stiffness against it; nothing acts on what needs none.
double strain(double action, double stiffness)
{
    return action == 0 ? 0 : action / stiffness;
}

/// The moments' second integral from i to @p x.
double bending(const AlongElement &a, double x)
{
    return x * x * (a.Mi / 2 + x * (a.Qi / 6 + x * a.q / 24));
}

/// What stands across the element when a straight line joins its ends.
double between(double atI, double atJ, double part)
{
    return atI * (1 - part) + atJ * part;
}

/// A rigidity of the element's group.
double rigidity(int e, int column)
{
    const int g = groupOf(e);
    return g == 0 ? std::numeric_limits<double>::quiet_NaN()
                  : static_cast<double>(Omades(g, group::E)) * Omades(g, column);
}

} // namespace

std::optional<double> AlongElement::u(double x) const
{
    return ifFinite(between(ui, uj, x / length) + strain(n * x * (length - x) / 2, EA));
}

std::optional<double> AlongElement::v(double x) const
{
    const double part = x / length;
    return ifFinite(between(vi, vj, part)
                    + strain(bending(*this, x) - part * bending(*this, length), EI));
}

std::optional<double> AlongElement::placeOfExtremeM() const
{
    const double x = -Qi / q; // not finite without a load
    const bool isRounding = std::max(std::abs(Qi), std::abs(Q(length))) <= leastQ;
    return !isRounding && x > nearness() && x < length - nearness() ? std::optional(x)
                                                                    : std::nullopt;
}

double AlongElement::nearness() const
{
    return 1e-6 * length;
}

AlongElement alongElement(int e)
{
    constexpr double part = 1e-12; // of the largest of the model
    const auto [length, c, s] = elementGeometry(e);
    const auto [ni, nj] = elementNodes(e);
    const auto along = [c = c, s = s](double x, double y) { return x * c + y * s; };
    const auto across = [c = c, s = s](double x, double y) { return -x * s + y * c; };
    const double wx = Stoixeia(e, element::wx), wy = Stoixeia(e, element::wy);
    const double xi = Metatopiseis(freedomOf(ni, 1)), yi = Metatopiseis(freedomOf(ni, 2));
    const double xj = Metatopiseis(freedomOf(nj, 1)), yj = Metatopiseis(freedomOf(nj, 2));
    AlongElement a{};
    a.length = length;
    a.c = c;
    a.s = s;
    a.Ni = resultantN.atI(e);
    a.Qi = resultantQ.atI(e);
    a.Mi = resultantM.atI(e);
    a.n = along(wx, wy);
    a.q = across(wx, wy);
    a.ui = along(xi, yi);
    a.uj = along(xj, yj);
    a.vi = across(xi, yi);
    a.vj = across(xj, yj);
    a.EA = rigidity(e, group::A);
    a.EI = rigidity(e, group::I);
    const double force = part * std::max(Akrotata(extreme::absN), Akrotata(extreme::absQ));
    const double shear = std::abs(a.Qi) + std::abs(a.q * length);
    const double moment = std::abs(a.Mi) + shear * length;
    const auto bent = ifFinite(strain(moment * length * length / 8, std::abs(a.EI)));
    a.leastN = std::max(force, rounding * (std::abs(a.Ni) + std::abs(a.n * length)));
    a.leastQ = std::max(force, rounding * shear);
    a.leastM = std::max({force * length, part * Akrotata(extreme::absM), rounding * moment});
    a.leastMove = part * std::max(Akrotata(extreme::maxU), bent.value_or(0));
    return a;
}

// ---------------------------------------------------------------------------------------- stations

namespace {

/// A curve along an element that counts as 0 up to @p least, and rises or falls all the way from
/// each of @p breaks to the next.
template <typename Curve>
struct Piecewise
{
    Curve value;
    double least;
    std::vector<double> breaks;

    int sign(double x) const
    {
        const double y = value(x);
        return y > least ? 1 : y < -least ? -1 : 0;
    }
    /// Where it changes its sign between two places.
    double crossing(double from, double to) const
    {
        const bool rises = value(to) > value(from);
        for (int halvings = 0; halvings < 60; ++halvings) {
            const double middle = from + (to - from) / 2;
            ((value(middle) < 0) == rises ? from : to) = middle;
        }
        return to;
    }
    /// Where it is 0; none where it is so at all breaks.
    std::vector<double> zeros() const
    {
        std::vector<double> found;
        if (std::none_of(breaks.begin(), breaks.end(), [&](double x) { return sign(x) != 0; }))
            return found;
        for (std::size_t k = 0; k < breaks.size(); ++k) {
            if (sign(breaks[k]) == 0)
                found.push_back(breaks[k]);
            if (k + 1 < breaks.size() && sign(breaks[k]) * sign(breaks[k + 1]) < 0)
                found.push_back(crossing(breaks[k], breaks[k + 1]));
        }
        return found;
    }
    /// Where it changes its sign.
    std::vector<double> changes() const
    {
        std::vector<double> found;
        std::optional<std::size_t> last; // that is not 0
        for (std::size_t k = 0; k < breaks.size(); ++k) {
            if (sign(breaks[k]) == 0)
                continue;
            if (last && sign(breaks[*last]) != sign(breaks[k]))
                found.push_back(k == *last + 1 ? crossing(breaks[*last], breaks[k])
                                               : breaks[*last + 1]);
            last = k;
        }
        return found;
    }
};
template <typename Curve>
Piecewise(Curve, double, std::vector<double>) -> Piecewise<Curve>;

/// @p first, those of @p inner that lie between, @p last.
std::vector<double> breaksOf(double first, const std::vector<double> &inner, double last)
{
    std::vector<double> all = {first};
    for (const double x : inner)
        if (x > first && x < last)
            all.push_back(x);
    all.push_back(last);
    return all;
}

/// Extremes of v: its slope, EI times, has its own where M changes its sign.
std::vector<double> extremesOfV(const AlongElement &a, const std::vector<double> &zerosOfM)
{
    const double L = a.length;
    const double atI = a.EI * (a.vj - a.vi) / L - bending(a, L) / L;
    const double size = std::abs(a.EI) * (std::abs(a.vi) + std::abs(a.vj)) / L
                        + L * (std::abs(a.Mi) + L * (std::abs(a.Qi) + L * std::abs(a.q)));
    if (!std::isfinite(size) || a.EI == 0)
        return {};
    const auto slope = [&a, atI](double x) {
        return atI + x * (a.Mi + x * (a.Qi / 2 + x * a.q / 6));
    };
    const double least = std::max(rounding * size, a.leastM * L);
    std::vector<double> places = Piecewise{slope, least, breaksOf(0, zerosOfM, L)}.changes();
    // Beside an end the slope, a difference of displacements, leaves its zero less certain.
    constexpr double beside = 1e-4, equal = 1e-7; // of the length, of the displacement
    std::erase_if(places, [&a, L](double x) {
        const double end = x < L / 2 ? 0 : L, way = std::abs(x - end);
        const double v = a.v(x).value_or(0), atEnd = a.v(end).value_or(0);
        return way < a.nearness()
               || (way < beside * L && std::abs(v - atEnd) <= equal * std::abs(v));
    });
    return places;
}

class StationList
{
public:
    StationList(const AlongElement &along, int parts)
        : length_(along.length), nearness_(along.nearness())
    {
        for (int k = 0; k <= parts; ++k)
            list_.push_back({k == parts ? length_ : k * length_ / parts});
    }
    void mark(const std::vector<double> &places, unsigned as)
    {
        for (const double place : places) {
            const double x = std::clamp(place, 0.0, length_);
            auto at = std::find_if(list_.begin(), list_.end(),
                                   [&](const Station &s) { return s.x >= x - nearness_; });
            if (at == list_.end() || at->x > x + nearness_)
                at = list_.insert(at, {x});
            at->marks |= as;
        }
    }
    std::vector<Station> take() { return std::move(list_); }

private:
    double length_, nearness_;
    std::vector<Station> list_;
};

/// 0 for what does not exceed @p least.
std::optional<double> roundedOff(double value, double least)
{
    return std::abs(value) <= least ? 0 : ifFinite(value);
}

} // namespace

std::vector<Station> stations(const AlongElement &a, int parts)
{
    // What is 0 just beyond an end is 0 at it, and so at the end of the element that goes on there.
    const double first = -a.nearness(), last = a.length + a.nearness();
    const Piecewise shear{[&a](double x) { return a.Q(x); }, a.leastQ, breaksOf(first, {}, last)};
    const Piecewise moment{[&a](double x) { return a.M(x); }, a.leastM,
                           breaksOf(first, {-a.Qi / a.q}, last)};
    const std::vector<double> zerosOfM = moment.zeros();
    StationList list(a, parts);
    if (const auto top = a.placeOfExtremeM())
        list.mark({*top}, placeMark::extremeM);
    list.mark(shear.zeros(), placeMark::zeroQ);
    list.mark(zerosOfM, placeMark::zeroM);
    list.mark(extremesOfV(a, zerosOfM), placeMark::extremeV);
    return list.take();
}

Station stationAt(const AlongElement &a, const std::vector<Station> &all, double x)
{
    const auto at = std::find_if(all.begin(), all.end(), [&](const Station &s) {
        return std::abs(s.x - x) <= a.nearness();
    });
    return at == all.end() ? Station{x} : *at;
}

StationValues valuesAt(const AlongElement &a, const Station &station)
{
    const double x = station.x;
    const auto has = [&station](unsigned mark) { return (station.marks & mark) != 0; };
    StationValues values;
    values.N = roundedOff(a.N(x), a.leastN);
    values.Q = roundedOff(has(placeMark::zeroQ) ? 0 : a.Q(x), a.leastQ);
    values.M = roundedOff(has(placeMark::zeroM) ? 0 : a.M(x), a.leastM);
    const auto u = a.u(x), v = a.v(x);
    if (v)
        values.v = roundedOff(*v, a.leastMove);
    if (u && v) {
        values.dx = roundedOff(*u * a.c - *v * a.s, a.leastMove);
        values.dy = roundedOff(*u * a.s + *v * a.c, a.leastMove);
    }
    return values;
}

std::string markNames(unsigned marks, const std::array<std::string, 4> &names,
                      const char *separator)
{
    std::string text;
    for (std::size_t bit = 0; bit < names.size(); ++bit)
        if ((marks >> bit & 1U) != 0)
            (text += text.empty() ? "" : separator) += names[bit];
    return text;
}

// ------------------------------------------------------------------------------- between the ends

std::optional<SpanMoment> extremeBetweenEnds(int e)
try {
    const AlongElement along = alongElement(e);
    const std::optional<double> x = along.placeOfExtremeM();
    return x ? std::optional(SpanMoment{e, *x, along.M(*x)}) : std::nullopt;
} catch (const Fault &) {
    return std::nullopt;
}

bool isLarger(double M, double other)
{
    return M - other > rounding * std::max(std::abs(M), std::abs(other));
}

SpanMoments spanMoments()
{
    SpanMoments found;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (const std::optional<SpanMoment> extreme = extremeBetweenEnds(e)) {
            if (!found.greatest || isLarger(extreme->M, found.greatest->M))
                found.greatest = extreme;
            if (!found.least || isLarger(found.least->M, extreme->M))
                found.least = extreme;
        }
    return found;
}

} // namespace veskora
