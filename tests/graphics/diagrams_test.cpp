#include "AlongElement.h"
#include "Analysis.h"
#include "DiagramFit.h"
#include "Functions.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"

#include <array>
#include <cmath>

namespace veskora {
namespace {

constexpr double nearly = 2e-5; // centimetres held in Singles

class Diagrams : public DrawingTest
{
protected:
    Diagrams()
    {
        originAt(0, 0);
        nai_grid = nai_aksones = nai_arithmisi_stoixeion = nai_arithmisi_kombon = false;
        setScales(10);
    }

    static void setScales(float scale)
    {
        Ena_cm_posa_KNm_M = Ena_cm_posa_KN_Q = Ena_cm_posa_KN_N = Ena_cm_posa_m_epi_1000 = scale;
    }
    /// By the mode of the view; that of the model alone has none.
    static std::array<float, 5> scales()
    {
        return {10, Ena_cm_posa_KNm_M, Ena_cm_posa_KN_Q, Ena_cm_posa_KN_N, Ena_cm_posa_m_epi_1000};
    }
};

// Against the values at stations, which are found in another way; between two nodes on springs. The
// deformed shape of an element with one hinge is not its elastic line.
TEST_F(Diagrams, CurvesAreThoseOfTheValuesAlongTheElement)
{
    nai_eleftheroseis = false;
    xroma_paramorfosis = 0x123456; // no symbol's
    Ena_cm_posa_m_epi_1000 = 500;
    for (const std::string line : {
             "N 6 0 ooo .1 .2 .3; E 1 2 1 0 0 0 -10",
             "N 6 0 ooo .1 .2 .3; E 1 2 1 0 1 3 -10",
             "N 6 0 ooo .1 .2 .3; E 1 2 1 1 0 0 10",
             "N 6 0 ooo .1 .2 .3; E 1 2 1 1 1 0 -10",
             "N 3 4 ooo .1 .2 .3; E 1 2 1 0 0 .1 -3",
             "N -4 3 ooo .1 .2 .3; E 1 2 1 0 1 7 2",
             "N -4 -3 ooo .1 .2 .3; E 1 2 1 1 0 -7 2",
             "N 0 5 ooo .1 .2 .3; E 1 2 1 0 0 10 0",
             "N 0 -5 ooo .1 .2 .3; E 1 2 1 1 1 10 4",
             "N 0 5 ooo .1 .2 .3; E 1 2 1 0 0 0 -10", // along the element: straight
             "N 3 4 ooo .1 .2 .3; E 1 2 1 0 0 3 4",
         }) {
        buildModel("G 1 8 5; N 0 0; " + line + "; S 1 20 30 40; S 2 25 35 45");
        analyse();
        const AlongElement along = alongElement(1);
        const auto isAt = [&](double x, double y, double t, double u, double v) {
            const double part = t * along.length + u;
            EXPECT_NEAR(x, part * along.c - v * along.s, nearly) << line << " at " << t;
            EXPECT_NEAR(-y, part * along.s + v * along.c, nearly) << line << " at " << t;
        };
        for (const double side : {1, -1}) {
            M_sin_Tension = side > 0;
            Diagramma_M();
            const auto lines = kanvas.linesOf(xroma_M);
            ASSERT_EQ(lines.size(), 18U); // the first two from the element to the ends of the curve
            for (std::size_t k = 1; k <= 16; ++k) {
                const double t = static_cast<double>(k) / 16;
                isAt(lines[k + 1].x2, lines[k + 1].y2, t, 0,
                     -side * along.M(t * along.length) / 10);
            }
        }
        Sxedio_Paramorfosis();
        const auto chords = kanvas.linesOf(xroma_paramorfosis);
        ASSERT_EQ(chords.size(), 20U);
        for (std::size_t k = 1;
             k <= 20 && Stoixeia(1, element::hingeI) == Stoixeia(1, element::hingeJ); ++k) {
            const double t = static_cast<double>(k) / 20, x = t * along.length;
            isAt(chords[k - 1].x2, chords[k - 1].y2, t, 2 * *along.u(x), 2 * *along.v(x));
        }
    }
}

// On a canvas of 20 by 20 cm with one world unit a centimetre.
TEST_F(Diagrams, AFittedScaleIsTheFinestRoundOneThatStaysInside)
{
    struct Case
    {
        const char *model;
        std::int16_t mode;
        double M, Q, u; ///< moment at end i, shear force along, displacement of node 1
        float fitted;   ///< 10 at first
        bool leaves;    ///< before
        double right = 0;
    };
    constexpr double longest = 3;
    originAt(0, 20);
    const char *const middle = "N 2 10; N 18 10; E 1 2";
    const char *const elastic = "G 1 1 1; N 2 10; N 18 10; E 1 2 1";
    const char *const top = "N 2 19; N 18 19; E 1 2";
    const char *const loaded = "N 2 10; N 18 10; E 1 2 0 0 0 0 -10"; // 320 in the middle
    const char *const upright = "N 16 15; N 16 2; E 1 2";            // values to the right
    for (const Case &c : {
             Case{middle, view::M, 30, 0, 0, 10, false},
             {middle, view::M, 30.1, 0, 0, 20, false},
             {middle, view::M, 0.003, 0, 0, 0.001F, false},
             {middle, view::Q, 0, -70, 0, 50, false},
             {middle, view::Q, 0, 130, 0, 50, true},
             {top, view::M, -30, 0, 0, 50, true},
             {top, view::M, 30, 0, 0, 10, false},
             {loaded, view::M, 0, 80, 0, 200, true},
             {upright, view::M, -30, 0, 0, 10, false},
             {upright, view::M, -30, 0, 0, 20, false, 2.5},
             {upright, view::M, -30, 0, 0, 10, false, 4.5}, // the frame itself is in the way
             {middle, view::M, 1e-12, 100, 0, 10, false},   // rounding
             {middle, view::M, 1e-12, 0, 0, 5e-13F, false},
             {middle, view::N, 0, 30, 0, 10, false},
             {elastic, view::deformed, 0, 0, 0.01, 5, false},
             {elastic, view::deformed, 0, 0, 0.1, 50, true},
             {middle, view::model, 30, 30, 1, 10, false},
         }) {
        SCOPED_TRACE(testing::Message()
                     << c.model << ' ' << c.mode << ' ' << c.M << ' ' << c.right);
        buildModel(c.model);
        std::ranges::copy(std::array{0., c.Q, -c.M, 0., -c.Q, 0.}, Entasi_Topiki.row(1).begin());
        Metatopiseis(1) = -c.u;
        setScales(10);
        Katastasi_Provolis = c.mode;
        EXPECT_EQ(isDiagramCut(), c.leaves);
        fitDiagramScale(longest, {.right = c.right});
        EXPECT_FLOAT_EQ(scales().at(static_cast<std::size_t>(c.mode)), c.fitted);
    }
}

TEST_F(Diagrams, EnlargeAndReduceMoveTheLongestOrdinateByTwoMillimetres)
{
    struct Case
    {
        std::int16_t mode;
        float scale;
        double greatest;
        float enlarged, reduced;
    };
    for (const Case &c : {
             Case{view::M, 10, 10, 8.33F, 12.5F},
             {view::Q, 10, 10, 8.33F, 12.5F},
             {view::N, 10, 10, 8.33F, 12.5F},
             {view::deformed, 10, 0.01, 8.33F, 12.5F},
             {view::M, 0.8F, 1, 0.69F, 0.95F},
             {view::M, 10, 0, 10, 10},
             {view::M, 0, 0, 0, 0},
             {view::M, 50, 10, 25, 50},       // no divisor
             {view::M, 100, 10, 33.33F, 100}, // a negative scale
             {view::M, 0.01F, 10, 0.01F, 0.01F},
             {view::Q, 2e7F, 4.1e6, 10123457, 2e7F}, // beyond what can be rounded
             {view::model, 10, 10, 10, 10},
         }) {
        Katastasi_Provolis = c.mode;
        Entasi_Topiki.clear();
        const auto mode = static_cast<std::size_t>(c.mode);
        Entasi_Topiki(1, std::array{1, 3, 2, 1, 1}.at(mode)) = -c.greatest;
        Metatopiseis(1) = -c.greatest;
        for (const bool enlarge : {true, false}) {
            setScales(c.scale);
            std::array<float, 5> expected = scales();
            enlarge ? enlargeDiagram() : reduceDiagram();
            expected.at(mode) = enlarge ? c.enlarged : c.reduced;
            EXPECT_EQ(scales(), expected) << c.mode << ' ' << c.scale << ' ' << c.greatest;
        }
    }
}

} // namespace
} // namespace veskora
