#include "Analysis.h"
#include "Extremes.h"

#include <gtest/gtest.h>

namespace veskora {
namespace {

class Extremes : public StoreTest
{};

TEST_F(Extremes, TheLargestDeflectionAcrossAnElementIsFoundWithItsPlace)
{
    struct Case
    {
        const char *name, *model;
        PlacedDeflection largest;
    };
    constexpr double EI = 20000, beam = 5 * 10 * 1296.0 / 384 / EI; // 5 q L^4 / (384 EI)
    for (const Case &c : std::initializer_list<Case>{
             {"one element, whose nodes stay",
              "G 2e8 .01 1e-4; N 0 0 xxo; N 6 0 oxo; E 1 2 1 0 0 0 -10",
              PlacedDeflection{1, 3, -beam}},
             {"upwards, and the second is larger",
              "G 2e8 .01 1e-4; N 0 0 xxo; N 6 0 xxo; N 12 0 oxo; E 1 2 1 0 0 0 -5;"
              "E 2 3 1 1 0 0 10",
              PlacedDeflection{2, 3, beam}},
             {"a cantilever has it at its end",
              "G 2e8 .01 1e-4; N 0 0 xxx; N 6 0; E 1 2 1 0 0 0 -10",
              PlacedDeflection{1, 6, -10 * 1296.0 / 8 / EI}},
         }) {
        buildModel(c.model);
        analyse();
        const auto found = largestDeflection();
        ASSERT_TRUE(found) << c.name;
        EXPECT_EQ(found->e, c.largest.e) << c.name;
        EXPECT_NEAR(found->x, c.largest.x, 1e-9) << c.name;
        EXPECT_NEAR(found->v, c.largest.v, 1e-12) << c.name;
        Allagi_Montelou = true; // the loads may be others now
        EXPECT_FALSE(largestDeflection()) << c.name;
    }
}

} // namespace
} // namespace veskora
