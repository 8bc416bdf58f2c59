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

using Pens = RecordingKanvas::Pens;

constexpr double nearly = 2e-5; // centimetres held in Singles

class Diagrams : public DrawingTest
{
protected:
    Diagrams()
    {
        originAt(0, 0);
        nai_grid = nai_aksones = nai_arithmisi_stoixeion = nai_arithmisi_kombon = false;
        Ena_cm_posa_KNm_M = Ena_cm_posa_KN_Q = Ena_cm_posa_KN_N = 10;
    }

    static void setEndForces(int e, const std::array<double, 6> &forces)
    {
        std::ranges::copy(forces, Entasi_Topiki.row(e).begin());
        Allagi_Montelou = false;
    }
};

TEST_F(Diagrams, PositiveValuesStandOnTheRightSeenFromIToJ)
{
    struct Case
    {
        void (*draw)();
        bool &side;
        bool &values;
        const char *picture;
    };
    buildModel("N 0 0; N 3 4; E 1 2");
    setEndForces(1, {-10, 20, -30, 12.1234, -5, -8});
    nai_stoixeia = false;
    for (const Case &c : {
             Case{Diagramma_M, M_sin_Tension, nai_times_M,
                  "pen 3557577 1 7; line 0 0 2.4 1.8; line 2.4 1.8 -.04 -6.28;"
                  "text 2.4 1.8 ' 30 '; text 2.36 -4.48 '-8 '; line 2.36 -4.48 .64 .48;"
                  "pen 0 1 12 bold; text .1 .07 'M'; pen 0 1 8; text .1 .55 'max.= 30';"
                  "text .1 .87 'min.= -8'"},
             {Diagramma_Q, Q_sin_Ina, nai_times_Q,
              "pen 10499638 1 7; line 0 0 1.6 1.2; text 1.6 1.2 ' 20 ';"
              "line 1.6 1.2 1.8 -4.9; text 3.4 -3.7 ' 5 '; line 3.4 -3.7 -.4 -.3;"
              "pen 0 1 12 bold; text .1 .07 'Q'; pen 0 1 8; text .1 .55 'max.= 20';"
              "text .1 .87 'min.= 5'"},
             {Diagramma_N, N_sin_Ina, nai_times_N,
              "pen 2852397 1 7; line 0 0 .8 .6; text .8 .6 ' 10 ';"
              "line .8 .6 3.1699 -3.8726; text 3.9699 -3.2726 ' 12.123 ';"
              "line 3.9699 -3.2726 -.9699 -.7274; pen 0 1 12 bold; text .1 .07 'N';"
              "pen 0 1 8; text .1 .55 'max.= 12.123'; text .1 .87 'min.= 10'"},
         }) {
        kanvas.pen = Pen{};
        c.draw();
        EXPECT_EQ(kanvas.picture(0, 0, Pens::shown), picture(c.picture));
        EXPECT_EQ(kanvas.pen.fontSize, 8);

        // The other side, at a zoom that the ordinates do not follow.
        const auto before = kanvas.of(Primitive::Kind::line).at(0);
        const auto texts = kanvas.of(Primitive::Kind::text);
        c.side = false;
        originAt(0, 0, 50);
        c.draw();
        const auto after = kanvas.of(Primitive::Kind::line).at(0);
        EXPECT_NEAR(after.x2, -before.x2, nearly);
        EXPECT_NEAR(after.y2, -before.y2, nearly);
        EXPECT_EQ(kanvas.of(Primitive::Kind::text).at(0).text, texts.at(0).text);
        c.values = false;
        c.draw();
        EXPECT_EQ(kanvas.linesOf(after.pen.colour).size(), 3U);
        EXPECT_EQ(kanvas.of(Primitive::Kind::text).size(), 3U);
        originAt(0, 0);
    }
}

// Beams between two clamps, q per length across them, positive towards the right-hand side: end
// moments -q L^2/12, with one hinge -q L^2/8 at the other end, and between them
// M(x) = Mi (1 - x/L) + Mj x/L + q x (L - x)/2.
TEST_F(Diagrams, MomentsOfLoadedBeamsAreTheParabolasOfTheTextbook)
{
    struct Case
    {
        double dx, dy;
        int hingeI, hingeJ;
        double wx, wy;
    };
    for (const Case &c : {
             Case{6, 0, 0, 0, 0, -10},
             {6, 0, 0, 1, 3, -10},
             {6, 0, 1, 0, 0, 10},
             {6, 0, 1, 1, 0, -10},
             {3, 4, 0, 0, 0, -10},
             {-4, 3, 0, 1, 7, 2},
             {-4, -3, 1, 0, -7, 2},
             {0, 5, 0, 0, 10, 0},
             {0, -5, 0, 0, 10, 4},
             {0, 5, 0, 0, 0, -10}, // along the element: straight
             {3, 4, 0, 0, 3, 4},
         }) {
        Katharismos_Montelou();
        putGroup(3e7, 0.1, 0.001);
        putNode(0, 0, "xxx");
        putNode(c.dx, c.dy, "xxx");
        putElement(1, 2, 1, c.hingeI, c.hingeJ, c.wx, c.wy);
        putElement(2, putNode(9, 9)); // something to solve
        analyse();
        for (const double side : {1, -1}) {
            M_sin_Tension = side > 0;
            Diagramma_M();
            const double L = std::hypot(c.dx, c.dy);
            const double q = (c.wx * c.dy - c.wy * c.dx) / L;
            const double fixedEnd = -q * L * L / (c.hingeI == c.hingeJ ? 12 : 8);
            const double Mi = c.hingeI == 1 ? 0 : fixedEnd;
            const double Mj = c.hingeJ == 1 ? 0 : fixedEnd;
            const auto lines = kanvas.linesOf(xroma_M);
            ASSERT_EQ(lines.size(), 18U + 3);
            const auto texts = kanvas.of(Primitive::Kind::text);
            EXPECT_NEAR(std::stod(texts.at(0).text), Mi, 0.0005);
            EXPECT_NEAR(std::stod(texts.at(1).text), Mj, 0.0005);
            for (int k = 0; k <= 16; ++k) {
                SCOPED_TRACE(testing::Message() << c.dx << ' ' << c.dy << " at " << k);
                const double t = k / 16.0;
                const double M = Mi * (1 - t) + Mj * t + q * L * L * t * (1 - t) / 2;
                const double x = c.dx * t + side * M / 10 * c.dy / L;
                const double y = -(c.dy * t - side * M / 10 * c.dx / L);
                const auto isThere = [&](double foundX, double foundY) {
                    EXPECT_NEAR(foundX, x, nearly);
                    EXPECT_NEAR(foundY, y, nearly);
                };
                const std::size_t chord = static_cast<std::size_t>(k) + 1; // that ends here
                if (k > 0)
                    isThere(lines[chord].x2, lines[chord].y2);
                if (k < 16)
                    isThere(lines[chord + 1].x, lines[chord + 1].y);
                if (k % 16 != 0)
                    continue;
                const std::size_t end = k == 0 ? 0 : 1; // from the element to the parabola's ends
                EXPECT_NEAR(lines[end].x, c.dx * t, nearly);
                EXPECT_NEAR(lines[end].y, -c.dy * t, nearly);
                isThere(lines[end].x2, lines[end].y2);
                isThere(texts[end].x, texts[end].y);
            }
        }
    }
}

TEST_F(Diagrams, WhatMustBeToldStandsInRedBelowTheHeading)
{
    const std::string changed = "The model has been changed since these results.;";
    const std::string mechanism = "The structure is probably a mechanism.;";
    buildModel("N 0 0; N 4 0; E 1 2");
    for (const auto &[isChanged, isAnalysed, isMechanism, lines] :
         {std::tuple{false, true, false, std::string()},
          {true, true, false, changed},
          {true, false, false, "The model has not been analysed: these are no results.;"},
          {true, true, true, changed + mechanism},
          {false, true, true, mechanism}})
        for (void (*draw)() : {Diagramma_M, Diagramma_Q, Diagramma_N, Sxedio_Paramorfosis}) {
            std::tie(Allagi_Montelou, hasResults, mechanismSuspected) =
                std::tie(isChanged, isAnalysed, isMechanism);
            draw();
            std::string red;
            for (const Primitive &text : kanvas.of(Primitive::Kind::text))
                if (text.pen.colour == 255)
                    red += text.text + ";";
            EXPECT_EQ(red, lines);
            EXPECT_EQ(kanvas.pen.colour, xroma_stoixeion);
        }
}

// Moments of textbook beams: q L^2 / 24 and 9 q L^2 / 128 in the span; a cantilever has its vertex
// at its tip.
TEST_F(Diagrams, TheHeadingTellsWhatTheCurveShowsBeyondItsEnds)
{
    const std::string clamps = "G 3e7 .1 .001; N 0 0 xxx; N 6 0 xxx; N 6 3; E 2 3 1; ";
    struct Case
    {
        std::string model, lines;
        std::int16_t decimals = 3;
    };
    for (const auto &[model, lines, decimals] :
         {Case{clamps + "E 1 2 1 0 0 0 -10", "between the ends: 15, element 2, x = 3;"},
          {clamps + "E 2 1 1 1 0 0 -10", "between the ends: -25.3125, element 2, x = 2.25;", 4},
          {clamps + "E 1 2 1 1 1 0 -10; N 0 9 xxx; N 6 9 xxx; E 4 5 1 1 1 0 4",
           "between the ends: 45, element 2, x = 3;between the ends: -18, element 3, x = 3;"},
          {clamps + "N 0 9 xxx; N 4 9; E 4 5 1 0 0 0 -10", ""},
          {clamps + "E 1 2 1 1 1 0 -.1", "", 0}, // .45
          {clamps + "E 1 2 1 0 0 -10 0", ""}}) {
        buildModel(model);
        analyse();
        dekadika_M = decimals;
        for (const bool isOld : {false, true}) { // end forces of other loads
            Allagi_Montelou = isOld;
            Diagramma_M();
            std::string told;
            for (const Primitive &text : kanvas.of(Primitive::Kind::text))
                if (text.text.starts_with("between"))
                    told += text.text + ";";
            EXPECT_EQ(told, isOld ? "" : lines) << model;
        }
    }
}

TEST_F(Diagrams, WhatHasNoOrdinateSpoilsNothingElse)
{
    buildModel("N 0 0; N 0 0; N 4 0; E 1 2; E 1 3");
    setEndForces(1, {1, 1, 1, 1, 1, 1});
    setEndForces(2, {-10, 20, -30, 10, -20, 30});
    for (const auto &[draw, scale, colour] : {std::tuple{&Diagramma_M, &Ena_cm_posa_KNm_M, xroma_M},
                                              {&Diagramma_Q, &Ena_cm_posa_KN_Q, xroma_Q},
                                              {&Diagramma_N, &Ena_cm_posa_KN_N, xroma_N}}) {
        draw();
        EXPECT_EQ(kanvas.linesOf(colour).size(), 3U);
        *scale = 0;
        draw();
        EXPECT_TRUE(kanvas.linesOf(colour).empty());
        EXPECT_EQ(kanvas.of(Primitive::Kind::line).size(), 2U);
        EXPECT_EQ(kanvas.of(Primitive::Kind::text).size(), 3U);
    }
}

TEST_F(Diagrams, AValueTooLargeToBeRoundedIsReportedOnceAPicture)
{
    buildModel("N 0 0; N 4 0; E 1 2");
    setEndForces(1, {0, 0.0001, -3e6, 0, 0, 4e6});
    Diagramma_Q(); // rounds to 0 by itself
    EXPECT_TRUE(desktop.log.empty());
    Diagramma_M();
    ASSERT_EQ(desktop.log.size(), 1U);
    EXPECT_EQ(desktop.log.at(0),
              (LogLine{"Values beyond this limit are shown as 0; use fewer decimals or larger "
                       "units: 2147483.647",
                       255}));
    dekadika_M = 2;
    Diagramma_M();
    EXPECT_EQ(desktop.log.size(), 1U);
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
        setEndForces(1, {0, c.Q, -c.M, 0, -c.Q, 0});
        Metatopiseis(1) = -c.u;
        Ena_cm_posa_KNm_M = Ena_cm_posa_KN_Q = Ena_cm_posa_KN_N = Ena_cm_posa_m_epi_1000 = 10;
        Katastasi_Provolis = c.mode;
        EXPECT_EQ(isDiagramCut(), c.leaves);
        fitDiagramScale(longest, {.right = c.right});
        const std::array<float, 5> fitted = {10, Ena_cm_posa_KNm_M, Ena_cm_posa_KN_Q,
                                             Ena_cm_posa_KN_N, Ena_cm_posa_m_epi_1000};
        EXPECT_FLOAT_EQ(fitted.at(static_cast<std::size_t>(c.mode)), c.fitted);
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
    const std::array<float *, 5> scales = {nullptr, &Ena_cm_posa_KNm_M, &Ena_cm_posa_KN_Q,
                                           &Ena_cm_posa_KN_N, &Ena_cm_posa_m_epi_1000};
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
        Entasi_Topiki(1, std::array{1, 3, 2, 1, 1}.at(static_cast<std::size_t>(c.mode))) =
            -c.greatest;
        Metatopiseis(1) = -c.greatest;
        for (const bool enlarge : {true, false}) {
            for (float *scale : scales)
                if (scale != nullptr)
                    *scale = c.scale;
            enlarge ? enlargeDiagram() : reduceDiagram();
            for (std::size_t mode = 1; mode < scales.size(); ++mode)
                EXPECT_EQ(*scales.at(mode), mode != static_cast<std::size_t>(c.mode) ? c.scale
                                            : enlarge                                ? c.enlarged
                                                                                     : c.reduced)
                    << c.mode << ' ' << c.scale << ' ' << c.greatest;
        }
    }
}

} // namespace
} // namespace veskora
