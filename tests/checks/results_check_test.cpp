#include "Analysis.h"
#include "CorrectDigits.h"
#include "DataCases.h"
#include "Equilibrium.h"
#include "IndependentSolution.h"

#include <cmath>

namespace veskora {
namespace {

using ResultChecks = StoreTest;

TEST(DoubleDouble, KeepsWhatADoubleLoses)
{
    const DoubleDouble one(1), tiny(1e-25), third = one / 3, root = sqrt(DoubleDouble(2));
    EXPECT_TRUE((one + tiny) - one == tiny && one + tiny > one && -one - tiny < -one);
    EXPECT_EQ(abs(-one - tiny), one + tiny);
    EXPECT_LT(std::abs(static_cast<double>(third * 3 - 1)), 1e-31);
    EXPECT_LT(std::abs(static_cast<double>(one / 3e20 * 3e20 - 1)), 1e-31);
    EXPECT_LT(std::abs(static_cast<double>(root * root - 2)), 1e-31);
    EXPECT_FALSE(isfinite(one / 0));
}

/// @param tolerance  relative
template <typename Real>
void expectClosedForms(double tolerance)
{
    for (const auto &[model, values] : dataCases("exact_forms.txt")) {
        SCOPED_TRACE(model);
        const auto expectations = buildModel("G 8 4 2;" + model + ";" + values);
        const auto solution = solveIndependently<Real>();
        ASSERT_TRUE(solution);
        for (const auto &[table, row, column, value] : expectations) {
            const auto freedom = static_cast<std::size_t>(freedomOf(row, column) - 1);
            const auto e = static_cast<std::size_t>(row - 1),
                       r = static_cast<std::size_t>(column - 1);
            const Real found = table == 'u'   ? solution->displacements[freedom]
                               : table == 'r' ? solution->reactions[freedom]
                                              : solution->endForces[e][r];
            EXPECT_LE(std::abs(static_cast<double>(found / Real(std::stod(value)) - Real(1))),
                      tolerance)
                << table << row << column << " " << static_cast<double>(found);
        }
    }
}

TEST_F(ResultChecks, TheSecondComputationIsRightToItsOwnDigits)
{
    expectClosedForms<DoubleDouble>(1e-29);
    if (std::is_same_v<Extended, long double>)
        expectClosedForms<long double>(1e-17);
}

TEST_F(ResultChecks, SumsAreThoseOfStatics)
{
    // Loads of 10 and 3 at node 2, 25 upon the member of length 5, half of it at each end.
    buildModel("G 2e8 .01 1e-4; N 1 0 xxx; N 4 4 ooo 10 0 3; S 2 0 50 0; E 1 2 1 0 0 0 -5");
    analyse();
    const auto facts = std::get<Equilibrium>(checkEquilibrium().facts);
    EXPECT_DOUBLE_EQ(facts.y.loads, -25);
    EXPECT_DOUBLE_EQ(facts.moment.loads, -4 * 10 + 3 - 2.5 * 25);
    EXPECT_NEAR(facts.y.reactions, 25, 1e-9);
    EXPECT_NEAR(facts.moment.reactions, 99.5, 1e-9);
}

// Sums and nodes where rounding is all there is, and large frames.
TEST_F(ResultChecks, SoundResultsPassItAndAgreeInTheirDigits)
{
    std::mt19937 random(5);
    for (const auto &[model, kind] : dataCases("sound_results.txt")) {
        buildModel("G 2e8 .01 1e-4;" + model);
        if (model.empty())
            buildStoreyFrame();
        analyse();
        EXPECT_EQ(checkEquilibrium().severity, Severity::good) << kind;
        EXPECT_EQ(checkDigits().severity, Severity::good) << kind;
    }
    for (int nodes = 3; nodes <= 200; nodes += 5) { // far better than what is told
        buildRandomFrame(random, nodes);
        analyse();
        const auto facts = std::get<Equilibrium>(checkEquilibrium().facts);
        for (const double relative : {facts.x.relative, facts.y.relative, facts.moment.relative,
                                      facts.force.relative, facts.nodeMoment.relative})
            EXPECT_LT(relative, 1e-7) << nodes;
        EXPECT_EQ(checkDigits().severity, Severity::good) << nodes;
    }
}

// Digits are those of displacements, end forces and reactions; three are no longer enough.
TEST_F(ResultChecks, TellWhatIsSpoiled)
{
    struct Case
    {
        void (*spoil)();
        std::array<int, 3> digits; ///< at most; none where they cannot be told
        std::vector<int> nodes;    ///< out of balance
        bool sums;                 ///< they are off as well
    };
    constexpr int all = 18;
    for (const Case &c : {
             Case{[] {}, {all, all, all}, {}, false},
             {[] { Metatopiseis(6) *= 1 + 1e-5; }, {6, all, all}, {}, false},
             {[] { Entasi_Topiki(1, 3) *= 1 + 1e-7; }, {all, 8, all}, {}, false},
             {[] { Entasi_Topiki(2, 3) += .1; }, {all, 3, all}, {2}, false},
             {[] { Antidraseis(4, 2) += .1; }, {all, all, 3}, {4}, true},
             {[] { Antidraseis(3, 2) += 5; }, {all, all, all}, {}, false}, // nothing holds there
             {[] { Antidraseis(4, 2) = NAN; }, {}, {}, true},
             {[] { putElement(2, 9); }, {}, {}, false},
             {[] { putNode(9, 9); }, {}, {}, false},
         }) {
        buildModel("G 2e8 .01 1e-4; N 0 0 xxx; N 1 4 ooo 10; N 7 5; N 7 0 xxo; E 1 2 1;"
                   "E 2 3 1 0 1 0 -20; E 3 4 1; S 4 0 0 500");
        analyse();
        c.spoil();
        const Finding balance = checkEquilibrium(), digits = checkDigits();
        const auto &sums = std::get<Equilibrium>(balance.facts);
        EXPECT_EQ(balance.severity == Severity::warning, c.sums || !c.nodes.empty());
        EXPECT_EQ(!(sums.y.relative < tolerableImbalance), c.sums);
        EXPECT_EQ(balance.nodes, c.nodes);
        ASSERT_EQ(digits.kind == FindingKind::digits, c.digits[0] != 0);
        if (const auto *facts = std::get_if<CorrectDigits>(&digits.facts)) {
            const std::array found = {facts->displacements, facts->endForces, facts->reactions};
            for (std::size_t table = 0; table < 3; ++table) {
                EXPECT_LE(found[table], c.digits[table]);
                EXPECT_GE(found[table], std::min(c.digits[table] - 2, 11));
            }
            const bool enough = *std::min_element(found.begin(), found.end()) >= enoughDigits;
            EXPECT_EQ(digits.severity, enough ? Severity::good : Severity::warning);
        }
    }
}

} // namespace
} // namespace veskora
