#include "MomentAlongElement.h"

#include "element.h"
#include "Functions_Bres_Megista.h"

namespace veskora {

std::optional<PlacedMoment> momentBetweenEnds(int e)
{
    constexpr double tolerance = 1e-9; // of the length
    const auto [L, c, s] = elementGeometry(e);
    const double q = Stoixeia(e, element::wy) * c - Stoixeia(e, element::wx) * s;
    const double M = resultantM.atI(e);
    const double Q = resultantQ.atI(e);
    const double x = -Q / q;
    if (!(x > tolerance * L && x < (1 - tolerance) * L))
        return std::nullopt;
    return PlacedMoment{e, x, M + Q * x / 2};
}

std::optional<MomentRange> momentRange()
{
    std::optional<MomentRange> range;
    const auto widen = [&range](const PlacedMoment &moment) {
        if (!range)
            range = {moment, moment};
        if (moment.value > range->largest.value)
            range->largest = moment;
        if (moment.value < range->smallest.value)
            range->smallest = moment;
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        widen({e, 0, resultantM.atI(e)});
        if (const auto between = momentBetweenEnds(e))
            widen(*between);
        widen({e, elementGeometry(e).length, resultantM.atJ(e)});
    }
    return range;
}

} // namespace veskora
