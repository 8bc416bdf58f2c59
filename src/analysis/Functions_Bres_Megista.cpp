#include "Functions_Bres_Megista.h"

#include "RowQueries.h"

#include <cmath>

namespace veskora {

namespace {

/// The greatest of `value(1)` to `value(count)`, beginning with the first and not with 0.
double largest(int count, auto value)
{
    double extreme = value(1);
    for (int k = 1; k <= count; ++k)
        if (const double candidate = value(k); candidate > extreme)
            extreme = candidate;
    return extreme;
}

double smallest(int count, auto value)
{
    return -largest(count, [=](int k) { return -value(k); });
}

auto magnitude(auto value)
{
    return [=](int k) { return std::abs(value(k)); };
}

double displacement(int n, int component)
{
    return Metatopiseis(freedomOf(n, component));
}

auto component(int k)
{
    return [k](int n) { return displacement(n, k); };
}

/// The values at all ends: both of element 1, both of element 2, ...
auto ends(const StressResultant &resultant)
{
    return [resultant](int k) {
        const int e = (k + 1) / 2;
        return k % 2 == 1 ? resultant.atI(e) : resultant.atJ(e);
    };
}

int endCount()
{
    return 2 * Arithmos_Stoixeion;
}

} // namespace

double Bres_Max_Abs_Ux()
{
    return largest(Arithmos_Kombon, magnitude(component(1)));
}
double Bres_Max_Ux()
{
    return largest(Arithmos_Kombon, component(1));
}
double Bres_Min_Ux()
{
    return smallest(Arithmos_Kombon, component(1));
}
double Bres_Max_Abs_Uy()
{
    return largest(Arithmos_Kombon, magnitude(component(2)));
}
double Bres_Max_Uy()
{
    return largest(Arithmos_Kombon, component(2));
}
double Bres_Min_Uy()
{
    return smallest(Arithmos_Kombon, component(2));
}

double Bres_Max_U()
{
    return largest(Arithmos_Kombon, [](int n) {
        const double x = displacement(n, 1);
        const double y = displacement(n, 2);
        return std::sqrt(x * x + y * y);
    });
}

double Bres_Max_Abs_Rot()
{
    return largest(Arithmos_Kombon, magnitude(component(3)));
}
double Bres_Max_Rot()
{
    return largest(Arithmos_Kombon, component(3));
}
double Bres_Min_Rot()
{
    return smallest(Arithmos_Kombon, component(3));
}

double Bres_Max_Abs_M()
{
    return largest(endCount(), magnitude(ends(resultantM)));
}
double Bres_Max_M()
{
    return largest(endCount(), ends(resultantM));
}
double Bres_Min_M()
{
    return smallest(endCount(), ends(resultantM));
}
double Bres_Max_Abs_Q()
{
    return largest(endCount(), magnitude(ends(resultantQ)));
}
double Bres_Max_Q()
{
    return largest(endCount(), ends(resultantQ));
}
double Bres_Min_Q()
{
    return smallest(endCount(), ends(resultantQ));
}
double Bres_Max_Abs_N()
{
    return largest(endCount(), magnitude(ends(resultantN)));
}
double Bres_Max_N()
{
    return largest(endCount(), ends(resultantN));
}
double Bres_Min_N()
{
    return smallest(endCount(), ends(resultantN));
}

void storeExtremes()
{
    using Search = double (*)();
    static constexpr std::array<std::pair<int, Search>, 19> searches = {{
        {extreme::absUx, Bres_Max_Abs_Ux},    {extreme::maxUx, Bres_Max_Ux},
        {extreme::minUx, Bres_Min_Ux},        {extreme::absUy, Bres_Max_Abs_Uy},
        {extreme::maxUy, Bres_Max_Uy},        {extreme::minUy, Bres_Min_Uy},
        {extreme::maxU, Bres_Max_U},          {extreme::absRotation, Bres_Max_Abs_Rot},
        {extreme::maxRotation, Bres_Max_Rot}, {extreme::minRotation, Bres_Min_Rot},
        {extreme::absM, Bres_Max_Abs_M},      {extreme::maxM, Bres_Max_M},
        {extreme::minM, Bres_Min_M},          {extreme::absQ, Bres_Max_Abs_Q},
        {extreme::maxQ, Bres_Max_Q},          {extreme::minQ, Bres_Min_Q},
        {extreme::absN, Bres_Max_Abs_N},      {extreme::maxN, Bres_Max_N},
        {extreme::minN, Bres_Min_N},
    }};
    for (const auto &[row, search] : searches) {
        Akrotata(row) = search();
        if (!std::isfinite(Akrotata(row))) // a square, say
            throw Fault("Overflow in the extreme values");
    }
}

} // namespace veskora
