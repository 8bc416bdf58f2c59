#include "AlongElement.h"
#include "Analysis.h"
#include "DataCases.h"
#include "Functions_Bres_Megista.h"

#include <map>
#include <sstream>

namespace veskora {
namespace {

class Along : public StoreTest
{
protected:
    std::mt19937 random{18};
};

/// The derivatives of a polynomial up to degree 4, by differences that are exact for it.
double firstDerivative(auto f, double x, double h)
{
    return (8 * (f(x + h) - f(x - h)) - (f(x + 2 * h) - f(x - 2 * h))) / (12 * h);
}
double secondDerivative(auto f, double x, double h)
{
    return (16 * (f(x + h) + f(x - h)) - (f(x + 2 * h) + f(x - 2 * h)) - 30 * f(x)) / (12 * h * h);
}

// All four types under loads along and across, on supports, springs and each other.
TEST_F(Along, TheElasticLineMeetsTheNodesAndCarriesTheLoad)
{
    for (int round = 0; round < 12; ++round) {
        buildRandomFrame(random, 4 + 8 * round);
        analyse();
        const double force = 1 + Bres_Max_Abs_N() + Bres_Max_Abs_Q(), moment = 1 + Bres_Max_Abs_M();
        const double turn = Bres_Max_Abs_Rot() + Bres_Max_U(), move = Bres_Max_U();
        for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
            const AlongElement a = alongElement(e);
            const double L = a.length, h = L / 8;
            const auto u = [&](double x) { return *a.u(x); };
            const auto v = [&](double x) { return *a.v(x); };
            for (int k = 0; k <= 100; ++k) {
                const double x = k * L / 100, rest = L - x;
                EXPECT_NEAR(a.N(x), resultantN.atJ(e) + a.n * rest, 1e-7 * force);
                EXPECT_NEAR(a.Q(x), resultantQ.atJ(e) - a.q * rest, 1e-7 * force);
                EXPECT_NEAR(a.M(x),
                            resultantM.atJ(e) - resultantQ.atJ(e) * rest + a.q * rest * rest / 2,
                            1e-6 * (moment + force));
                EXPECT_NEAR(a.EA * firstDerivative(u, x, h), a.N(x),
                            1e-6 * force + 1e-13 * a.EA * move / h);
                EXPECT_NEAR(a.EI * secondDerivative(v, x, h), a.M(x),
                            1e-6 * moment + 1e-13 * a.EI * move / (h * h));
            }
            for (const auto &[x, node, hinge] : {std::tuple{0.0, element::nodeI, element::hingeI},
                                                 {L, element::nodeJ, element::hingeJ}}) {
                const int n = nodeOf(e, node);
                const StationValues at = valuesAt(a, {x});
                EXPECT_NEAR(*at.dx, displacement(n, 1), 1e-13 * move);
                EXPECT_NEAR(*at.dy, displacement(n, 2), 1e-13 * move);
                if (Stoixeia(e, hinge) == 0) {
                    EXPECT_NEAR(firstDerivative(v, x, h), displacement(n, 3), 1e-7 * turn) << e;
                }
            }
        }
    }
}

TEST_F(Along, MarksStandWhereAFineScanFindsThem)
{
    constexpr int steps = 4000;
    int found = 0;
    for (int round = 0; round < 10; ++round) {
        buildRandomFrame(random, 5 + 6 * round);
        analyse();
        for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
            const AlongElement a = alongElement(e);
            const double step = a.length / steps;
            const auto all = stations(a, 1);
            const auto slope = [&](double x) { return *a.v(x + step / 9) - *a.v(x - step / 9); };
            const auto Q = [&](double x) { return a.Q(x); };
            const auto M = [&](double x) { return a.M(x); };
            const auto compare = [&](unsigned mark, auto curve) {
                std::vector<double> marked;
                for (const Station &s : all)
                    if ((s.marks & mark) != 0 && s.x > 1.4 * step && s.x < a.length - 1.6 * step)
                        marked.push_back(s.x);
                std::size_t next = 0;
                for (int k = 1; k < steps - 2; ++k) {
                    const double x = (k + 0.4) * step; // beside the places of symmetry
                    if ((curve(x) < 0) == (curve(x + step) < 0))
                        continue;
                    ASSERT_LT(next, marked.size()) << e << ' ' << mark << ' ' << x;
                    EXPECT_NEAR(marked[next++], x, 2 * step) << e << ' ' << mark;
                }
                EXPECT_EQ(next, marked.size()) << e << ' ' << mark;
                found += static_cast<int>(next);
            };
            compare(placeMark::zeroQ, Q);
            compare(placeMark::extremeM, Q);
            compare(placeMark::zeroM, M);
            compare(placeMark::extremeV, slope);
        }
    }
    EXPECT_GT(found, 300);
}

TEST_F(Along, SpecialPlacesOfKnownBeams)
{
    for (const auto &[given, expected] : dataCases("special_places.txt")) {
        const auto bar = given.find('|');
        buildModel("N 0 0 xxx; N 8 0 xxx; " + given.substr(0, bar));
        Entasi_Topiki.clear();
        Entasi_Topiki(1, 2) = Entasi_Topiki(1, 5) = -4 * Stoixeia(1, element::wy);
        Entasi_Topiki(1, 6) = std::stod(given.substr(bar + 1));
        Entasi_Topiki(1, 3) = -Entasi_Topiki(1, 6);
        Metatopiseis.clear();
        storeExtremes();
        std::map<double, unsigned> marks;
        for (const Station &s : stations(alongElement(1), 8))
            marks[s.x] |= s.marks;
        std::ostringstream told;
        told.precision(12);
        for (const auto &[x, mark] : marks) {
            if (mark == 0)
                continue;
            told << x;
            for (const auto &[name, one] : {std::pair{" zeroQ", placeMark::zeroQ},
                                            {" zeroM", placeMark::zeroM},
                                            {" extremeM", placeMark::extremeM},
                                            {" extremeV", placeMark::extremeV}})
                told << ((mark & one) != 0 ? name : "");
            told << "; ";
        }
        if (const auto v = alongElement(1).v(4))
            told << *v;
        else
            told << "none";
        EXPECT_EQ(told.str(), expected) << given;
    }
}

// Halves of a beam whose node in the middle is there but for the digits of Singles.
TEST_F(Along, PlacesAtANodeAreMarkedAtBothElementsAndOnce)
{
    for (const auto &[first, middle, last] :
         {std::tuple{"1.3", "3.65", "6.0"}, {"2.2", "4.95", "7.7"}, {"10.1", "13.4", "16.7"}}) {
        buildModel(std::string("G 2e8 .01 1e-4; N ") + first + " 0 xx-; N " + middle + " 0; N "
                   + last + " 0 -x-; E 1 2 1 0 0 0 -10; E 2 3 1 0 0 0 -10");
        analyse();
        for (const int e : {1, 2}) {
            const AlongElement a = alongElement(e);
            const auto all = stations(a, maxParts);
            ASSERT_EQ(all.size(), maxParts + 1U) << middle;
            for (const auto &[at, mark] :
                 {std::pair{&all.front(), placeMark::zeroM}, {&all.back(), placeMark::zeroQ}})
                EXPECT_EQ((e == 1 ? at : &all.back() - (at - &all.front()))->marks, mark) << middle;
            EXPECT_EQ(valuesAt(a, stationAt(a, all, e == 1 ? a.length * (1 - 1e-7) : 0)).Q, 0);
            EXPECT_FALSE(extremeBetweenEnds(e));
        }
    }
}

// A column on the axis of a symmetric frame carries rounding across, which is no place and no
// value.
TEST_F(Along, RoundingHasNoMarksAndIsZero)
{
    buildModel("G 2e8 .01 1e-4; N 0 0 xxx; N 5 0 xxx; N 10 0 xxx; N 0 3.1; N 5 3.3; N 10 3.1;"
               "E 1 4 1; E 2 5 1; E 3 6 1; E 4 5 1 0 0 0 -7; E 5 6 1 0 0 0 -7");
    analyse();
    EXPECT_EQ(stations(alongElement(2), 4).size(), 5U);
    for (const Station &station : stations(alongElement(2), 4)) {
        EXPECT_EQ(station.marks, 0U) << station.x;
        const StationValues at = valuesAt(alongElement(2), station);
        EXPECT_EQ(std::tuple(at.Q, at.M, at.v), std::tuple(0.0, 0.0, 0.0)) << station.x;
    }
}

} // namespace
} // namespace veskora
