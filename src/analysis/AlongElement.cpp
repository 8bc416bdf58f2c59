#include "AlongElement.h"

#include "element.h"
#include "Fault.h"
#include "Functions_Bres_Megista.h"

namespace veskora {

std::optional<double> AlongElement::placeOfExtremeM() const
{
    const double x = -Qi / q; // not finite without a load
    return x > 0 && x < length ? std::optional(x) : std::nullopt;
}

AlongElement alongElement(int e)
{
    const auto [length, c, s] = elementGeometry(e);
    const double wx = Stoixeia(e, element::wx);
    const double wy = Stoixeia(e, element::wy);
    return {length,          resultantN.atI(e), resultantQ.atI(e), resultantM.atI(e),
            wx * c + wy * s, -wx * s + wy * c};
}

namespace {

std::optional<SpanMoment> extremeOfSpan(int e)
try {
    const AlongElement along = alongElement(e);
    const std::optional<double> x = along.placeOfExtremeM();
    return x ? std::optional(SpanMoment{e, *x, along.M(*x)}) : std::nullopt;
} catch (const Fault &) {
    return std::nullopt;
}

} // namespace

SpanMoments spanMoments()
{
    SpanMoments found;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (const std::optional<SpanMoment> extreme = extremeOfSpan(e)) {
            if (!found.greatest || extreme->M > found.greatest->M)
                found.greatest = extreme;
            if (!found.least || extreme->M < found.least->M)
                found.least = extreme;
        }
    return found;
}

} // namespace veskora
