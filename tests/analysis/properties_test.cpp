// What holds of every frame: equilibrium, and results that do not depend on how it was described.

#include "Analysis.h"
#include "Functions_Bres_Megista.h"

#include <algorithm>
#include <cmath>

namespace veskora {
namespace {

class Properties : public StoreTest
{
protected:
    std::mt19937 random{99};

    /// An end force in global axes.
    static double global(int e, int end, int component)
    {
        const int i = static_cast<int>(Stoixeia(e, element::nodeI));
        const int j = static_cast<int>(Stoixeia(e, element::nodeJ));
        const double dx = Komboi(j, 1) - Komboi(i, 1), dy = Komboi(j, 2) - Komboi(i, 2);
        const double c = dx / std::hypot(dx, dy), s = dy / std::hypot(dx, dy);
        const double along = Entasi_Topiki(e, 3 * end + 1), across = Entasi_Topiki(e, 3 * end + 2);
        return component == 1   ? c * along - s * across
               : component == 2 ? s * along + c * across
                                : Entasi_Topiki(e, 3 * end + 3);
    }
};

TEST_F(Properties, EveryNodeAndTheWholeAreInEquilibrium)
{
    double worst = 0;
    for (int round = 0; round < 40; ++round) {
        buildRandomFrame(random, 3 + 5 * round);
        analyse();
        std::array<double, 3> whole{}, size{};
        for (int n = 1; n <= Arithmos_Kombon; ++n) {
            std::array<double, 3> support{};
            for (int k = 1; k <= 3; ++k) {
                double balance = Komboi(n, node::Fx - 1 + k);
                double largest = std::abs(balance);
                const auto add = [&](double force) {
                    balance += force;
                    largest = std::max(largest, std::abs(force));
                };
                for (int e = 1; e <= Arithmos_Stoixeion; ++e)
                    for (int end = 0; end < 2; ++end)
                        if (Stoixeia(e, 1 + end) == static_cast<float>(n))
                            add(-global(e, end, k));
                const double held = Komboi(n, node::fixedX - 1 + k) == 1
                                        ? Antidraseis(n, k)
                                        : -Elatiria(n, k) * displacement(n, k);
                if (Komboi(n, node::fixedX - 1 + k) != 1) {
                    EXPECT_EQ(Antidraseis(n, k), -Komboi(n, node::Fx - 1 + k));
                }
                add(held);
                EXPECT_LE(std::abs(balance), 1e-7 * std::max(1.0, largest))
                    << round << " node " << n;
                worst = std::max(worst, std::abs(balance) / std::max(1.0, largest));
                support[static_cast<std::size_t>(k - 1)] = held + Komboi(n, node::Fx - 1 + k);
            }
            whole[0] += support[0];
            whole[1] += support[1];
            whole[2] += support[2] + Komboi(n, 1) * support[1] - Komboi(n, 2) * support[0];
        }
        for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
            const int i = static_cast<int>(Stoixeia(e, 1)), j = static_cast<int>(Stoixeia(e, 2));
            const double L = std::hypot(Komboi(j, 1) - Komboi(i, 1), Komboi(j, 2) - Komboi(i, 2));
            const double X = Stoixeia(e, element::wx) * L, Y = Stoixeia(e, element::wy) * L;
            const double x = (Komboi(i, 1) + Komboi(j, 1)) / 2,
                         y = (Komboi(i, 2) + Komboi(j, 2)) / 2;
            whole[0] += X;
            whole[1] += Y;
            whole[2] += x * Y - y * X;
            size[0] += std::abs(X) + std::abs(Y);
        }
        for (const double sum : whole)
            EXPECT_LE(std::abs(sum), 1e-5 * std::max(1.0, size[0])) << round;
    }
    std::cout << "worst imbalance of a node: " << worst << "\n";
}

TEST_F(Properties, ReleasedEndsCarryNoMomentToTheBit)
{
    buildRandomFrame(random, 100);
    analyse();
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (const auto &[hinge, column] : {std::pair{element::hingeI, 3}, {element::hingeJ, 6}})
            if (Stoixeia(e, hinge) == 1) {
                EXPECT_EQ(Entasi_Topiki(e, column), 0) << e;
            }
}

// Reversing a member exchanges its ends: local axial and transverse signs turn, the moments too
// stay.
TEST_F(Properties, DirectionNumberingAndPositionOfTheModelDoNotMatter)
{
    for (int round = 0; round < 12; ++round) {
        SCOPED_TRACE(round);
        buildRandomFrame(random, 6 + 4 * round);
        analyse();
        const auto u = Metatopiseis;
        const auto f = Entasi_Topiki;
        const double scale = Bres_Max_U() + Bres_Max_Abs_Rot();
        const double forces = std::max({Bres_Max_Abs_M(), Bres_Max_Abs_N(), Bres_Max_Abs_Q()});

        for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
            std::swap(Stoixeia(e, element::nodeI), Stoixeia(e, element::nodeJ));
            std::swap(Stoixeia(e, element::hingeI), Stoixeia(e, element::hingeJ));
        }
        analyse();
        for (int d = 1; d <= 3 * Arithmos_Kombon; ++d)
            EXPECT_NEAR(Metatopiseis(d), u(d), 1e-7 * scale);
        for (int e = 1; e <= Arithmos_Stoixeion; ++e)
            for (int k = 1; k <= 6; ++k)
                EXPECT_NEAR(Entasi_Topiki(e, k) * (k % 3 == 0 ? 1 : -1), f(e, (k + 2) % 6 + 1),
                            1e-7 * forces);

        shuffleNodes(random);
        analyse();
        for (int e = 1; e <= Arithmos_Stoixeion; ++e)
            for (int k = 1; k <= 6; ++k)
                EXPECT_NEAR(Entasi_Topiki(e, k) * (k % 3 == 0 ? 1 : -1), f(e, (k + 2) % 6 + 1),
                            1e-7 * forces);
    }
}

// By the angle of the 3-4-5 triangle, all on whole numbers: (x, y) becomes (3x - 4y, 4x + 3y), five
// times as large. Restraints turn only when both directions are held or free.
TEST_F(Properties, TurningTheModelTurnsTheResults)
{
    for (int round = 0; round < 12; ++round) {
        buildRandomFrame(random, 10 + 5 * round);
        for (int g = 1; g <= Arithmos_Omadon; ++g) { // the model becomes fifty times as large
            Omades(g, group::E) *= 2500;
            Omades(g, group::I) *= 2500;
        }
        for (int n = 1; n <= Arithmos_Kombon; ++n) {
            Komboi(n, node::fixedY) = Komboi(n, node::fixedX);
            Elatiria(n, 2) = Elatiria(n, 1);
            for (const int column : {node::x, node::y, node::Fx, node::Fy})
                Komboi(n, column) = std::round(10 * Komboi(n, column));
        }
        for (int e = 1; e <= Arithmos_Stoixeion; ++e)
            for (const int column : {element::wx, element::wy})
                Stoixeia(e, column) = std::round(Stoixeia(e, column));
        const auto turn = [](float &x, float &y, float length) {
            const float turned = (3 * x - 4 * y) / length;
            y = (4 * x + 3 * y) / length;
            x = turned;
        };
        const auto scaleToFive = [](float &x, float &y) {
            x *= 5;
            y *= 5;
        };
        for (int n = 1; n <= Arithmos_Kombon; ++n)
            for (const int column : {node::x, node::Fx})
                scaleToFive(Komboi(n, column), Komboi(n, column + 1));
        for (int e = 1; e <= Arithmos_Stoixeion; ++e)
            scaleToFive(Stoixeia(e, element::wx), Stoixeia(e, element::wy));
        analyse();
        const auto u = Metatopiseis;
        const auto f = Entasi_Topiki;
        const auto reactions = Antidraseis;
        const double scale = Bres_Max_U();
        const double forces = std::max({Bres_Max_Abs_M(), Bres_Max_Abs_N(), Bres_Max_Abs_Q()});
        for (int n = 1; n <= Arithmos_Kombon; ++n)
            for (const int column : {node::x, node::Fx})
                turn(Komboi(n, column), Komboi(n, column + 1), 5);
        for (int e = 1; e <= Arithmos_Stoixeion; ++e)
            turn(Stoixeia(e, element::wx), Stoixeia(e, element::wy), 5);
        analyse();
        for (int n = 1; n <= Arithmos_Kombon; ++n) {
            const double x = u(3 * n - 2), y = u(3 * n - 1);
            EXPECT_NEAR(displacement(n, 1), (3 * x - 4 * y) / 5, 1e-7 * scale);
            EXPECT_NEAR(displacement(n, 2), (4 * x + 3 * y) / 5, 1e-7 * scale);
            EXPECT_NEAR(displacement(n, 3), u(3 * n), 1e-7 * scale);
            if (Komboi(n, node::fixedX) == 1) {
                EXPECT_NEAR(Antidraseis(n, 1), (3 * reactions(n, 1) - 4 * reactions(n, 2)) / 5,
                            1e-7 * forces);
            }
        }
        for (int e = 1; e <= Arithmos_Stoixeion; ++e)
            for (int k = 1; k <= 6; ++k)
                EXPECT_NEAR(Entasi_Topiki(e, k), f(e, k), 1e-7 * forces);
    }
}

} // namespace
} // namespace veskora
