// The model defined on the canvas, without a window.

#include "Metablites.h"
#include "Models.h"
#include "RecordingKanvas.h"
#include "RowQueries.h"
#include "Settings.h"
#include "Sketching.h"
#include "Zoom.h"

namespace veskora {
namespace {

class Sketching : public DrawingTest
{
protected:
    static Point at(double x, double y) { return {Kosmos_X(x), Kosmos_Y(y)}; }
};

TEST_F(Sketching, ANodeStandsOnTheGridOrAtFourDecimals)
{
    for (const bool grid : {true, false}) {
        nai_grid = grid;
        kannab = .5F;
        const int n = sketchNode(at(1.234567, -2.76));
        EXPECT_EQ(Komboi(n, node::x), grid ? 1 : 1.2346F);
        EXPECT_EQ(Komboi(n, node::y), grid ? -3 : -2.76F);
    }
    Klimaka = 3e11F; // beyond what coordinates can be rounded to
    EXPECT_EQ(sketchNode({9, 9}), 0);
    EXPECT_EQ(Arithmos_Kombon, 2);
}

TEST_F(Sketching, AnElementNeedsAGroupTwoNodesAndRoom)
{
    buildModel("N 0 0; N 1 0; N 2 0");
    EXPECT_EQ(sketchElement(1, 2), 0); // no group
    putGroup(1, 1, 1);
    EXPECT_EQ(sketchElement(1, 2), 1);
    EXPECT_TRUE(Allagi_Montelou);
    for (const auto &[from, to] : {std::pair{2, 1}, {1, 1}, {0, 3}, {4, 3}}) // joined, or no start
        EXPECT_EQ(sketchElement(from, to), 0) << from;
    putGroup(2, 2, 2);
    drawnGroup = 2;
    EXPECT_EQ(sketchElement(2, 3), 2);
    EXPECT_EQ(groupOf(2), 2);
    while (Arithmos_Stoixeion < maxElements)
        putElement(1, 2);
    EXPECT_EQ(sketchElement(1, 3), 0);
    while (Arithmos_Kombon < maxNodes)
        putNode(5, 5);
    desktop.log.clear();
    EXPECT_EQ(sketchNode({9, 9}), 0);
    EXPECT_EQ(Arithmos_Kombon, maxNodes);
    EXPECT_TRUE(desktop.log.empty()); // full tables say nothing
}

TEST_F(Sketching, TheSupportOfTheNearestNodeStepsWithinTwoCentimetres)
{
    buildModel("N 0 0; N 5 0");
    EXPECT_EQ(sketchSupport(at(4, 1)), 2);
    EXPECT_EQ(desktop.log.back().text, "* Node #2, x=5, y=0, Constraints: xoo");
    EXPECT_EQ(sketchSupport(at(5, 2.1)), 0); // too far
    EXPECT_EQ(sketchSupport(at(0, 0), true), 1);
    EXPECT_EQ(restraintCode(1) + restraintCode(2), "xxxxoo");
}

} // namespace
} // namespace veskora
