#include "Analysis.h"
#include "Extremes.h"

#include <gtest/gtest.h>

namespace veskora {
namespace {

using Extremes = StoreTest;

TEST_F(Extremes, TheLargestDeflectionAndTheSmallestMomentAreFoundWithTheirPlaces)
{
    constexpr double EI = 20000, beam = 5 * 10 * 1296.0 / 384 / EI; // 5 q L^4 / (384 EI)
    for (const auto &[model, e, x, v, atM, M] :
         {// One element, whose nodes stay; upwards, and the second is larger; a cantilever's end.
          std::tuple{"N 0 0 xxo; N 6 0 oxo; E 1 2 1 0 0 0 -10", 1, 3., -beam, 0., 0.},
          {"N 0 0 xxo; N 6 0 xxo; N 12 0 oxo; E 1 2 1 0 0 0 -5; E 2 3 1 1 0 0 10", 2, 3., beam, 3.,
           -45.},
          {"N 0 0 xxx; N 6 0; E 1 2 1 0 0 0 -10", 1, 6., -10 * 1296.0 / 8 / EI, 0., -180.}}) {
        SCOPED_TRACE(model);
        buildModel(std::string("G 2e8 .01 1e-4; ") + model);
        analyse();
        const auto found = largestDeflection();
        ASSERT_TRUE(found);
        EXPECT_EQ(found->e, e);
        EXPECT_NEAR(found->x, x, 1e-9);
        EXPECT_NEAR(found->v, v, 1e-12);
        const auto [le, lx, least] = forceRange(resultantM)->smallest;
        EXPECT_EQ(le, e);
        EXPECT_NEAR(lx, atM, 1e-9);
        EXPECT_NEAR(least, M, 1e-6);
        Allagi_Montelou = true; // the loads may be others now
        EXPECT_FALSE(largestDeflection());
    }
}

} // namespace
} // namespace veskora
