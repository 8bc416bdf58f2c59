#include "Functions_Bres_Megista.h"

#include "Metablites.h"
#include "RowQueries.h"

#include <cmath>

namespace veskora {

namespace {

enum class Wanted { largest, smallest };

/// The extreme of @p value over all nodes, beginning with node 1 and not with 0.
template <typename Value>
double overNodes(Wanted wanted, Value value)
{
    double extreme = value(1);
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (const double candidate = value(n);
            wanted == Wanted::largest ? candidate > extreme : candidate < extreme)
            extreme = candidate;
    return extreme;
}

/// The extreme of @p atI and @p atJ over all elements.
template <typename AtI, typename AtJ>
double overEnds(Wanted wanted, AtI atI, AtJ atJ)
{
    double extreme = atI(1);
    const auto consider = [&](double candidate) {
        if (wanted == Wanted::largest ? candidate > extreme : candidate < extreme)
            extreme = candidate;
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        consider(atI(e));
        consider(atJ(e));
    }
    return extreme;
}

double displacement(int n, int component)
{
    return Metatopiseis(freedomOf(n, component));
}

double nodeExtreme(Wanted wanted, int component)
{
    return overNodes(wanted, [=](int n) { return displacement(n, component); });
}

double largestOfNodes(int component)
{
    return overNodes(Wanted::largest, [=](int n) { return std::abs(displacement(n, component)); });
}

/// The extreme of a stress resultant whose columns at i and j are given with their signs.
double endExtreme(Wanted wanted, double signI, int columnI, double signJ, int columnJ)
{
    return overEnds(
        wanted, [=](int e) { return signI * Entasi_Topiki(e, columnI); },
        [=](int e) { return signJ * Entasi_Topiki(e, columnJ); });
}

double largestOfEnds(int columnI, int columnJ)
{
    return overEnds(
        Wanted::largest, [=](int e) { return std::abs(Entasi_Topiki(e, columnI)); },
        [=](int e) { return std::abs(Entasi_Topiki(e, columnJ)); });
}

} // namespace

double Bres_Max_Abs_Ux()
{
    return largestOfNodes(1);
}
double Bres_Max_Ux()
{
    return nodeExtreme(Wanted::largest, 1);
}
double Bres_Min_Ux()
{
    return nodeExtreme(Wanted::smallest, 1);
}
double Bres_Max_Abs_Uy()
{
    return largestOfNodes(2);
}
double Bres_Max_Uy()
{
    return nodeExtreme(Wanted::largest, 2);
}
double Bres_Min_Uy()
{
    return nodeExtreme(Wanted::smallest, 2);
}

double Bres_Max_U()
{
    return overNodes(Wanted::largest, [](int n) {
        const double x = displacement(n, 1);
        const double y = displacement(n, 2);
        return std::sqrt(x * x + y * y);
    });
}

double Bres_Max_Abs_Rot()
{
    return largestOfNodes(3);
}
double Bres_Max_Rot()
{
    return nodeExtreme(Wanted::largest, 3);
}
double Bres_Min_Rot()
{
    return nodeExtreme(Wanted::smallest, 3);
}

double Bres_Max_Abs_M()
{
    return largestOfEnds(3, 6);
}
double Bres_Max_M()
{
    return endExtreme(Wanted::largest, -1, 3, 1, 6);
}
double Bres_Min_M()
{
    return endExtreme(Wanted::smallest, -1, 3, 1, 6);
}
double Bres_Max_Abs_Q()
{
    return largestOfEnds(2, 5);
}
double Bres_Max_Q()
{
    return endExtreme(Wanted::largest, 1, 2, -1, 5);
}
double Bres_Min_Q()
{
    return endExtreme(Wanted::smallest, 1, 2, -1, 5);
}
double Bres_Max_Abs_N()
{
    return largestOfEnds(1, 4);
}
double Bres_Max_N()
{
    return endExtreme(Wanted::largest, -1, 1, 1, 4);
}
double Bres_Min_N()
{
    return endExtreme(Wanted::smallest, -1, 1, 1, 4);
}

void storeExtremes()
{
    constexpr std::array functions = {
        Bres_Max_Abs_Ux, Bres_Max_Ux,    Bres_Min_Ux,      Bres_Max_Abs_Uy, Bres_Max_Uy,
        Bres_Min_Uy,     Bres_Max_U,     Bres_Max_Abs_Rot, Bres_Max_Rot,    Bres_Min_Rot,
        Bres_Max_Abs_M,  Bres_Max_M,     Bres_Min_M,       Bres_Max_Abs_Q,  Bres_Max_Q,
        Bres_Min_Q,      Bres_Max_Abs_N, Bres_Max_N,       Bres_Min_N,
    };
    for (int i = 0; const auto function : functions)
        if (!std::isfinite(Akrotata(++i) = function())) // a square, say
            throw Fault("Overflow in the extreme values");
}

} // namespace veskora
