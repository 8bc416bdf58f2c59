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

constexpr double rounding = 1e-9; ///< what may come out beside a place or a value, as a part

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
    const double part = -Qi / q / length; // not finite without a load
    return part > rounding && part < 1 - rounding ? std::optional(-Qi / q) : std::nullopt;
}

AlongElement alongElement(int e)
{
    constexpr double part = 1e-12; // of the largest forces of the model
    const auto [length, c, s] = elementGeometry(e);
    const auto [ni, nj] = elementNodes(e);
    const auto along = [c = c, s = s](double x, double y) { return x * c + y * s; };
    const auto across = [c = c, s = s](double x, double y) { return -x * s + y * c; };
    const double wx = Stoixeia(e, element::wx), wy = Stoixeia(e, element::wy);
    const double xi = Metatopiseis(freedomOf(ni, 1)), yi = Metatopiseis(freedomOf(ni, 2));
    const double xj = Metatopiseis(freedomOf(nj, 1)), yj = Metatopiseis(freedomOf(nj, 2));
    const double force = part * std::max(Akrotata(extreme::absN), Akrotata(extreme::absQ));
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
    a.leastQ = std::max(force, rounding * (std::abs(a.Qi) + std::abs(a.q * length)));
    a.leastM = std::max(
        {force * length, part * Akrotata(extreme::absM),
         rounding * (std::abs(a.Mi) + std::abs(a.Qi * length) + std::abs(a.q * length * length))});
    return a;
}

// ---------------------------------------------------------------------------------------- stations

namespace {

/// A curve along an element that counts as 0 up to @p least, and rises or falls all the way from
/// each of @p breaks, which begin and end with the ends, to the next.
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
    /// Where it is 0, ends included; none where it is so at all breaks.
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
    /// Where it changes its sign between the ends.
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

std::vector<double> withEnds(const std::vector<double> &inner, double length)
{
    std::vector<double> all = {0};
    for (const double x : inner)
        if (x > 0 && x < length)
            all.push_back(x);
    all.push_back(length);
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
    return Piecewise{slope, least, withEnds(zerosOfM, L)}.changes();
}

class StationList
{
public:
    StationList(double length, int parts) : nearness_(rounding * length)
    {
        for (int k = 0; k <= parts; ++k)
            list_.push_back({k == parts ? length : k * length / parts});
    }
    void mark(const std::vector<double> &places, unsigned as)
    {
        for (const double x : places) {
            auto at = std::find_if(list_.begin(), list_.end(),
                                   [&](const Station &s) { return s.x >= x - nearness_; });
            if (at == list_.end() || at->x > x + nearness_)
                at = list_.insert(at, {x});
            at->marks |= as;
        }
    }
    std::vector<Station> take() { return std::move(list_); }

private:
    double nearness_;
    std::vector<Station> list_;
};

} // namespace

std::vector<Station> stations(const AlongElement &a, int parts)
{
    const Piecewise shear{[&a](double x) { return a.Q(x); }, a.leastQ, withEnds({}, a.length)};
    const std::vector<double> zerosOfQ = shear.zeros();
    std::vector<double> tops;
    if (const auto top = a.placeOfExtremeM(); top && !zerosOfQ.empty()) // else q is rounding
        tops.push_back(*top);
    const Piecewise moment{[&a](double x) { return a.M(x); }, a.leastM, withEnds(tops, a.length)};
    const std::vector<double> zerosOfM = moment.zeros();
    StationList list(a.length, parts);
    list.mark(tops, placeMark::extremeM);
    list.mark(zerosOfQ, placeMark::zeroQ);
    list.mark(zerosOfM, placeMark::zeroM);
    list.mark(extremesOfV(a, zerosOfM), placeMark::extremeV);
    return list.take();
}

StationValues valuesAt(const AlongElement &a, const Station &station)
{
    const double x = station.x;
    StationValues values;
    values.N = ifFinite(a.N(x));
    values.Q = ifFinite((station.marks & placeMark::zeroQ) != 0 ? 0 : a.Q(x));
    values.M = ifFinite((station.marks & placeMark::zeroM) != 0 ? 0 : a.M(x));
    values.v = a.v(x);
    if (const auto u = a.u(x); u && values.v) {
        values.dx = ifFinite(*u * a.c - *values.v * a.s);
        values.dy = ifFinite(*u * a.s + *values.v * a.c);
    }
    return values;
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
