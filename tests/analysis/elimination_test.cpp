// The fast elimination and the fast analysis against the plain loops, bit by bit.

#include "elimination.h"
#include "epilisi.h"
#include "LiteralSolver.h"
#include "Models.h"
#include "ScriptedDesktop.h"

#include <bit>
#include <cmath>
#include <functional>

namespace veskora {
namespace {

std::uint64_t bits(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

class EliminationTest : public testing::Test
{
protected:
    void TearDown() override { K_ff.clear(); }

    double uniform(double low, double high)
    {
        return std::uniform_real_distribution(low, high)(random);
    }
    int pick(int low, int high) { return std::uniform_int_distribution(low, high)(random); }

    std::mt19937 random{20240517};
};

// How often each kind must solve and must fail, so that a generator gone dull is noticed.
TEST_F(EliminationTest, GivesTheBitsAndTheFaultsOfThePlainLoops)
{
    struct Kind
    {
        const char *name;
        bool mustSolve, mustFail;
        std::function<double(int k, int j)> entry;
    };
    int n = 0;
    const auto sparse = [&](int k, int j) { return j - k < 1 + k % 7 || pick(0, 9) == 0; };
    const auto any = [&](int k, int j) { return sparse(k, j) ? uniform(-1, 1) : 0; };
    const auto zero = [&](int k, int j) { return k == j && pick(0, 9) == 0 ? 0 : any(k, j); };
    const std::vector<Kind> kinds = {
        {"dominant", true, false,
         [&](int k, int j) { return k == j ? uniform(50, 90) : any(k, j); }},
        {"any sign", true, false, any},
        {"zero pivots", true, true, zero},
        {"small integers", true, true,
         [&](int k, int j) { return sparse(k, j) ? pick(-1, 1) : 0; }},
        {"huge", true, true, [&](int k, int j) { return any(k, j) * std::pow(10, pick(0, 306)); }},
        {"tiny", true, true, [&](int k, int j) { return any(k, j) * std::pow(10, -pick(0, 320)); }},
        {"infinite pivot", false, true,
         [&](int k, int j) { return k != j           ? 0
                                    : k == 1 + n / 2 ? HUGE_VAL
                                                     : 1; }},
        {"not a number last", false, true,
         [&](int k, int j) { return k != j   ? 0
                                    : k == n ? std::nan("")
                                             : 1; }},
        {"negative zeros", true, false,
         [&](int k, int j) {
             return k == j ? 9 : pick(0, 3) == 0 ? any(k, k) : pick(-1, 0) * 0.0;
         }},
    };
    for (const Kind &kind : kinds) {
        int solved = 0;
        constexpr int rounds = 150;
        for (int round = 0; round < rounds; ++round) {
            n = pick(1, round % 10 == 0 ? 90 : 20);
            literal::Table A(n, n), b(n), x(n);
            std::vector<double> rightSide, solution(static_cast<std::size_t>(n));
            K_ff.clear();
            for (int k = 1; k <= n; ++k) {
                b(k) = uniform(-100, 100);
                rightSide.push_back(b(k));
                for (int j = k; j <= n; ++j)
                    if (const double value = kind.entry(k, j); bits(value) != 0)
                        A(k, j) = K_ff(k, j) = value;
            }
            const bool works = literal::eliminate(A, b, x, n);
            bool fastWorks = true;
            try {
                solveSymmetric(K_ff, rightSide, solution);
            } catch (const Fault &) {
                fastWorks = false;
            }
            ASSERT_EQ(fastWorks, works) << kind.name << " " << round;
            solved += works ? 1 : 0;
            for (int k = 1; k <= n && works; ++k) {
                const auto at = static_cast<std::size_t>(k - 1);
                ASSERT_EQ(bits(solution[at]), bits(x(k))) << kind.name << " x " << k;
                ASSERT_EQ(bits(rightSide[at]), bits(b(k))) << kind.name << " b " << k;
                for (int j = 1; j <= n; ++j)
                    ASSERT_EQ(bits(std::as_const(K_ff)(k, j)), bits(A(k, j)))
                        << kind.name << " A " << k << ", " << j;
            }
        }
        EXPECT_EQ(solved > 0, kind.mustSolve) << kind.name;
        EXPECT_EQ(solved < rounds, kind.mustFail) << kind.name;
    }
    EXPECT_THROW(solveSymmetric(K_ff, {}, {}), Fault);
}

class WholeAnalysis : public StoreTest
{
protected:
    /// Analyses the store's model both ways and compares every result table to the bit.
    /// @return whether it was solved
    static bool compare()
    {
        const literal::Results literal = literal::analyse();
        Epilisi();
        EXPECT_EQ(Sfalma_Epilisis, !literal.solved);
        if (!literal.solved)
            return false;
        const auto same = [](const char *name, const auto &table, const literal::Table &expected) {
            for (int row = 1; row <= table.rows; ++row)
                for (int column = 1; column <= table.columns; ++column) {
                    const double found = table(row, column);
                    ASSERT_EQ(bits(found), bits(expected(row, column)))
                        << name << " " << row << ", " << column;
                }
        };
        same("Metatopiseis", Metatopiseis, literal.displacements);
        same("Entasi_Topiki", Entasi_Topiki, literal.endForces);
        same("Antidraseis", Antidraseis, literal.reactions);
        return true;
    }
};

TEST_F(WholeAnalysis, GivesTheBitsOfThePlainLoopsOnRandomFrames)
{
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        buildRandomFrame(random, round < 50 ? 2 + round : 200);
        ASSERT_TRUE(compare());
    }
    buildStoreyFrame();
    EXPECT_EQ(Arithmos_Kombon, 200);
    EXPECT_EQ(Arithmos_Stoixeion, 300);
    EXPECT_TRUE(compare());
    shuffleNodes(random);
    EXPECT_TRUE(compare());
}

// A failed analysis leaves its working tables behind; the next one of the mended model must not see
// them.
TEST_F(WholeAnalysis, DoesNotDependOnTheOneThatFailedBefore)
{
    std::mt19937 random(11);
    desktop.answerAnything = [] { return Answer::ok; };
    for (int round = 0; round < 5; ++round) {
        buildRandomFrame(random, 40);
        putNode(99, 99); // loose: singular
        EXPECT_FALSE(compare());
        --Arithmos_Kombon;
        Arithmos_Stoixeion = static_cast<std::int16_t>(Arithmos_Stoixeion - round);
        for (int n = 1; n <= Arithmos_Kombon; n += 3) // other freedoms than before
            Komboi(n, node::fixedX) = Komboi(n, node::fixedX) == 0 ? 1.0F : 0.0F;
        EXPECT_TRUE(compare());
    }
}

} // namespace
} // namespace veskora
