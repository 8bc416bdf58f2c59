#include "DataCases.h"
#include "FreeMotions.h"
#include "Metablites.h"
#include "Models.h"
#include "RowQueries.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

namespace veskora {
namespace {

/// "count shape: cause, nodes", a line for each.
std::string told(const std::vector<Finding> &findings)
{
    constexpr const char *shapes[] = {"turning", "shift", "turn", "linkage"};
    constexpr const char *causes[] = {"no element", "only hinges", "no stiffness", "no support",
                                      "hinges",     "softness",    "negative"};
    constexpr const char *kinds[] = {"", "nearly ", "unstable "};
    std::string all;
    for (const Finding &finding : findings) {
        const auto *motion = std::get_if<Motion>(&finding.facts);
        if (motion == nullptr)
            continue;
        all += (all.empty() ? "" : "; ") + std::string(kinds[static_cast<int>(finding.kind)])
               + std::to_string(motion->count) + " " + shapes[static_cast<int>(motion->shape)]
               + ": " + causes[static_cast<int>(motion->cause)] + ",";
        for (const int n : finding.nodes)
            all += " " + std::to_string(n);
    }
    return all;
}

TEST(FreeMotions, AreToldWithTheirCause)
{
    for (const auto &[model, says] : dataCases("free_motions.txt")) {
        SCOPED_TRACE(model);
        resetStore();
        buildModel("G 2.1e8 0.01 1e-4; " + model);
        for (int e = 1; e <= Arithmos_Stoixeion; ++e)
            if (Stoixeia(e, element::group) == 0)
                Stoixeia(e, element::group) = 1;
        EXPECT_EQ(told(findMotions()), says);
        const char first = says.empty() ? 's' : says[0];
        EXPECT_EQ(quickTest(), first == 'u'  ? FreeMotion::unstable
                               : first > '9' ? FreeMotion::none
                                             : FreeMotion::unloaded);
    }
}

// ------------------------------------------------------------------- counted in exact arithmetic

/// Integers are taken modulo a prime so large that hardly a minor of small ones is a multiple by
/// chance, and so small that the difference of two products is in range.
constexpr std::int64_t prime = (std::int64_t{1} << 31) - 1;

/// Free freedoms less the rank of what strains members and springs: for positive stiffnesses the
/// rank of the stiffness. Coordinates are whole numbers.
int exactFreeMotions()
{
    std::map<int, std::size_t> columns;
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            if (Komboi(n, node::fixedX - 1 + k) == 0)
                columns.emplace(freedomOf(n, k), columns.size());
    std::vector<std::vector<std::int64_t>> rows;
    const auto add = [&](std::initializer_list<std::pair<int, std::int64_t>> entries) {
        rows.emplace_back(columns.size());
        for (const auto &[freedom, value] : entries)
            if (columns.contains(freedom))
                rows.back()[columns[freedom]] = value;
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const int i = nodeOf(e, element::nodeI), j = nodeOf(e, element::nodeJ);
        const auto dx = std::llround(Komboi(j, node::x) - Komboi(i, node::x));
        const auto dy = std::llround(Komboi(j, node::y) - Komboi(i, node::y));
        const int xi = freedomOf(i, 1), yi = freedomOf(i, 2), xj = freedomOf(j, 1),
                  yj = freedomOf(j, 2);
        add({{xi, -dx}, {yi, -dy}, {xj, dx}, {yj, dy}});
        for (const auto &[n, hinge] : {std::pair{i, element::hingeI}, {j, element::hingeJ}})
            if (Stoixeia(e, hinge) == 0)
                add({{freedomOf(n, 3), dx * dx + dy * dy},
                     {xi, -dy},
                     {yi, dx},
                     {xj, dy},
                     {yj, -dx}});
    }
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            if (Elatiria(n, k) != 0)
                add({{freedomOf(n, k), 1}});

    std::size_t rank = 0;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        std::size_t pivot = rank;
        while (pivot < rows.size() && rows[pivot][column] == 0)
            ++pivot;
        if (pivot == rows.size())
            continue;
        std::swap(rows[pivot], rows[rank]);
        const auto above = rows[rank][column];
        for (std::size_t row = rank + 1; row < rows.size(); ++row)
            if (const auto factor = rows[row][column]; factor != 0)
                for (std::size_t c = column; c < columns.size(); ++c)
                    rows[row][c] = (rows[row][c] * above - factor * rows[rank][c]) % prime;
        ++rank;
    }
    return static_cast<int>(columns.size() - rank);
}

/// A connected frame on a lattice: hinges, springs and supports at random.
void buildIntegerFrame(std::mt19937 &random)
{
    const auto isOneOf = [&](unsigned times) { return random() % times == 0; };
    buildRandomFrame(random, 2 + static_cast<int>(random() % 11));
    const unsigned hinges = 1 + random() % 4, supports = 1 + random() % 4;
    const bool holdsRotations = isOneOf(2), hasSprings = isOneOf(4);
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        Komboi(n, node::x) = static_cast<float>(n % 4);
        Komboi(n, node::y) = static_cast<float>(n / 4);
        for (int k = 1; k <= 3; ++k) {
            Komboi(n, node::fixedX - 1 + k) = isOneOf(2 * supports) ? 1.F : 0.F;
            Elatiria(n, k) *= hasSprings ? 1.F : 0.F;
        }
        if (holdsRotations)
            Komboi(n, node::fixedRotation) = 1;
    }
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (const int hinge : {element::hingeI, element::hingeJ})
            Stoixeia(e, hinge) = isOneOf(hinges) ? 1.F : 0.F;
}

TEST(FreeMotions, AreAsManyAsTheExactRankLeaves)
{
    std::mt19937 random(1);
    std::array<int, 2> frames{};
    for (int trial = 0; trial < 300; ++trial) {
        buildIntegerFrame(random);
        const int expected = exactFreeMotions();
        ++frames[expected > 0 ? 1 : 0];
        int count = 0;
        for (const Finding &finding : findMotions())
            if (finding.kind == FindingKind::freeMotion)
                count += std::get<Motion>(finding.facts).count;
        ASSERT_EQ(count, expected) << "trial " << trial;
        ASSERT_EQ(quickTest() != FreeMotion::none, expected > 0) << "trial " << trial;
    }
    EXPECT_GT(std::min(frames[0], frames[1]), 50);
}

} // namespace
} // namespace veskora
