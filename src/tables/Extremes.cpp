#include "Extremes.h"

#include "AlongElement.h"
#include "element.h"
#include "Fault.h"
#include "RowQueries.h"

#include <cmath>
#include <vector>

namespace veskora {

namespace {

std::vector<PlacedForce> placedForces(const StressResultant &resultant, int e)
try {
    std::vector<PlacedForce> forces = {{e, 0, resultant.atI(e)}};
    const double length = elementGeometry(e).length;
    if (resultant.column == resultantM.column && !Allagi_Montelou)
        if (const auto between = extremeBetweenEnds(e))
            forces.push_back({e, between->x, between->M});
    forces.push_back({e, length, resultant.atJ(e)});
    return forces;
} catch (const Fault &) { // of a model that has changed since
    return {};
}

} // namespace

std::optional<ForceRange> forceRange(const StressResultant &resultant)
{
    std::optional<ForceRange> range;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (const PlacedForce &force : placedForces(resultant, e)) {
            if (!range)
                range = {force, force};
            if (isLarger(force.value, range->largest.value))
                range->largest = force;
            if (isLarger(range->smallest.value, force.value))
                range->smallest = force;
        }
    return range;
}

namespace {

std::vector<PlacedDeflection> deflections(int e)
try {
    std::vector<PlacedDeflection> found;
    const AlongElement along = alongElement(e);
    for (const Station &station : stations(along, 1))
        if (const auto v = along.v(station.x))
            found.push_back({e, station.x, *v});
    return found;
} catch (const Fault &) { // of an element without length
    return {};
}

} // namespace

std::optional<PlacedDeflection> largestDeflection()
{
    std::optional<PlacedDeflection> largest;
    for (int e = 1; e <= Arithmos_Stoixeion && !Allagi_Montelou; ++e)
        for (const PlacedDeflection &one : deflections(e))
            if (!largest || isLarger(std::abs(one.v), std::abs(largest->v)))
                largest = one;
    return largest;
}

NodeRange displacementRange(int k)
{
    NodeRange range = {1, 1};
    for (int n = 2; n <= Arithmos_Kombon; ++n) {
        if (Metatopiseis(freedomOf(n, k)) > Metatopiseis(freedomOf(range.largest, k)))
            range.largest = n;
        if (Metatopiseis(freedomOf(n, k)) < Metatopiseis(freedomOf(range.smallest, k)))
            range.smallest = n;
    }
    return range;
}

double displacementOf(int n)
{
    const double x = Metatopiseis(freedomOf(n, 1));
    const double y = Metatopiseis(freedomOf(n, 2));
    return std::sqrt(x * x + y * y);
}

int nodeOfLargestDisplacement()
{
    int most = 1;
    for (int n = 2; n <= Arithmos_Kombon; ++n)
        if (displacementOf(n) > displacementOf(most))
            most = n;
    return most;
}

} // namespace veskora
