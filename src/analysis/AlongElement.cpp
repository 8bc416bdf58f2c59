#include "AlongElement.h"

#include "element.h"
#include "Fault.h"
#include "Functions_Bres_Megista.h"

#include <algorithm>
#include <cmath>

namespace veskora {

std::optional<double> AlongElement::placeOfExtremeM() const
{
    constexpr double rounding = 1e-9;     // what an extreme at an end may come out beside it
    const double part = -Qi / q / length; // not finite without a load
    return part > rounding && part < 1 - rounding ? std::optional(-Qi / q) : std::nullopt;
}

AlongElement alongElement(int e)
{
    const auto [length, c, s] = elementGeometry(e);
    const double wx = Stoixeia(e, element::wx);
    const double wy = Stoixeia(e, element::wy);
    return {length,          resultantN.atI(e), resultantQ.atI(e), resultantM.atI(e),
            wx * c + wy * s, -wx * s + wy * c};
}

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
    constexpr double rounding = 1e-9;
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
