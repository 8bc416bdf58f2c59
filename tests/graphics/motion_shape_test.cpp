#include "Models.h"
#include "MotionShape.h"
#include "RecordingKanvas.h"
#include "RowMarks.h"
#include "Settings.h"

#include <array>

namespace veskora {
namespace {

class MotionShape : public DrawingTest
{
protected:
    MotionShape() { originAt(2, 10); }
    /// Lines of the shape itself, which is drawn thicker than its arrows.
    std::vector<Primitive> linesAsWideAs(int width)
    {
        auto lines = kanvas.linesOf(xroma_paramorfosis);
        std::erase_if(lines, [=](const Primitive &line) { return line.pen.width != width; });
        return lines;
    }
};

// An element of length 10, a node of which goes across it by 1.2 cm on the canvas and turns with it
// or not; places in t = x/L.
TEST_F(MotionShape, AHingedEndTurnsSoThatNoMomentActsThere)
{
    using Polynomial = std::array<double, 4>;
    for (const auto &[hinges, moved, turned] :
         {std::tuple{"0 0", Polynomial{0, 0, 3, -2}, Polynomial{0, 10, -20, 10}},
          {"0 1", Polynomial{0, 0, 1.5, -.5}, Polynomial{0, 10, -15, 5}},
          {"1 0", Polynomial{0, 1.5, 0, -.5}, Polynomial{}},
          {"1 1", Polynomial{0, 1}, Polynomial{}}}) {
        buildModel(std::string("N 0 0; N 10 0; E 1 2 1 ") + hinges);
        for (const double rotation : {0., .03}) {
            kanvas.drawn.clear();
            drawMotion(std::array{0., 0., 2 * rotation, 0., 2., 0.});
            const auto chords = linesAsWideAs(2);
            ASSERT_EQ(chords.size(), 20U) << hinges;
            for (std::size_t k = 0; k < 20; ++k) {
                const double t = static_cast<double>(k + 1) / 20;
                double v = 0;
                for (std::size_t power = 4; power-- > 0;)
                    v = v * t + moved[power] + rotation * turned[power];
                EXPECT_NEAR(chords[k].y2, 10 - 1.2 * v, 1e-5) << hinges << k;
                EXPECT_NEAR(chords[k].x2, 2 + 10 * t, 1e-5);
            }
        }
    }
}

TEST_F(MotionShape, ArrowsShowWhatTheShapeDoesNot)
{
    constexpr double noise = 1e-16;
    const std::string line = "N 0 0; N 10 0; E 1 2 1 ";
    const struct
    {
        std::string model;
        std::vector<double> motion;
        std::size_t curves, arrows, turns;
    } cases[] = {
        {line + "1 1", {0, noise, 1, 0, -noise, 0}, 0, 0, 1},        // nothing but a node
        {line + "0 0", {1, 0, noise, 1, 0, -noise}, 1, 2, 0},        // shift
        {line + "0 0", {0, 0, .1, noise, 1, .1}, 1, 1, 1},           // turn about node 1
        {line + "0 0", {0, 0, 1, 0, noise, 0}, 1, 0, 1},             // strained by rotations
        {line + "0 0; N 5 5", {0, 0, 0, 0, 0, 0, 0, 1, 0}, 0, 1, 0}, // joined to nothing
        {"N 0 0", {0, 0, 1}, 0, 0, 1},                               // all alone
        {line + "0 0; E 2 1; E 1 9", {1, 0, 0, 1, 0, 0}, 2, 2, 0},   // an element without its node
    };
    for (const auto &c : cases) {
        buildModel(c.model);
        kanvas.drawn.clear();
        drawMotion(c.motion);
        EXPECT_EQ(linesAsWideAs(2).size(), 20 * c.curves) << c.model;
        EXPECT_EQ(linesAsWideAs(1).size(), 4 * c.arrows + 2 * c.turns) << c.model;
        EXPECT_EQ(kanvas.of(Primitive::Kind::arc).size(), c.turns) << c.model;
    }
    buildStoreyFrame();
    kanvas.drawn.clear();
    drawMotion(std::vector(600, 1.));
    EXPECT_EQ(linesAsWideAs(1).size(), 0U) << "of too many nodes";
    EXPECT_EQ(kanvas.pen.width, 1);
}

TEST_F(MotionShape, MarkedRowsStandInTheColoursOfThePointersMarks)
{
    buildModel("N 0 0; N 4 3; E 1 2; E 1 9");
    markRows(std::array{2}, std::array{1, 2});
    EXPECT_EQ(kanvas.picture(2, 10, RecordingKanvas::Pens::shown),
              picture("pen 255 3 7; line 0 0 4 -3; pen 33023 2 7; circle 4 -3 .225"));
}

} // namespace
} // namespace veskora
