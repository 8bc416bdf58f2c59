// The view: conversions, fits, zooms, history; grid, axes and sketch.

#include "Analysis.h"
#include "ColourWord.h"
#include "DiagramOutline.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <algorithm>

namespace veskora {
namespace {

class View : public DrawingTest
{
protected:
    static void expectView(double scale, double x, double y)
    {
        EXPECT_FLOAT_EQ(Klimaka, static_cast<float>(scale));
        EXPECT_NEAR(Arxi_X, x, 1e-5);
        EXPECT_NEAR(Arxi_Y, y, 1e-5);
    }
};

TEST_F(View, ConversionsAreEachOthersInverse)
{
    Klimaka = 50;
    Arxi_X = -3;
    Arxi_Y = 4;
    EXPECT_EQ(Kosmos_X(5), 13);
    EXPECT_EQ(Kosmos_Y_Orthio(1), 6);
    EXPECT_EQ(Kosmos_Y(1), 14);
    EXPECT_EQ(Mikos_Se_Othoni(2.5), 5);
    EXPECT_EQ(Othoni_X(13), 5);
    EXPECT_EQ(Othoni_Y(14), 1);
    EXPECT_EQ(Othoni_Y_Orthio(6), 1);
}

TEST_F(View, BestFitTakesTheCoarserDirection)
{
    struct Case
    {
        const char *nodes;
        double scale, x, y;
        const char *says = "";
        float from = 70;
    };
    for (const Case &c : {
             Case{"", 70, -2, 2},
             Case{"N 7 14", 70, 0, -10},                 // one node in the middle, same scale
             Case{"N 1 1; N 17.4 1", 100, -.8, 9},       // level: width 16.4 at 1:100
             Case{"N 3 2; N 3 34.8", 200, -8.5, .8},     // upright
             Case{"N 0 0; N 8.2 16.4", 100, -5.9, 1.8},  // tall: by height
             Case{"N 0 0; N 16.4 16.4", 100, -1.8, 1.8}, // a tie: by width
             Case{"N 0 0; N .1 .1", 70, 5, 6, "finer than 1:1"},
             Case{"N 4 4; N 4 4", 70, 5, 6, "finer than 1:1"}, // all at one point
             Case{"N 0 0; N 1e6 0", 70, 5, 6, "only the tool Zoom"},
             Case{"N 7 14", 100, -3, -4, "", 0}, // a damaged file
             Case{"", 100, -2, 2, "", 0},
         }) {
        SCOPED_TRACE(c.nodes);
        buildModel(c.nodes);
        Klimaka = c.from;
        Arxi_X = 5;
        Arxi_Y = 6;
        desktop.log.clear();
        Zoom_Best_Fit();
        expectView(c.scale, c.x, c.y);
        const std::string said = desktop.log.empty() ? "" : desktop.log.back().text;
        EXPECT_EQ(said.empty(), *c.says == '\0');
        EXPECT_NE(said.find(c.says), std::string::npos) << said;
    }
    kanvas.w = 3.6;
    buildModel("N 0 0; N 10 1");
    Zoom_Best_Fit();
    EXPECT_NE(desktop.log.at(0).text.find("drawing area"), std::string::npos);
}

TEST_F(View, TheZoomWindowTouchesTheEdges)
{
    struct Case
    {
        double x1, y1, x2, y2, scale, x, y;
    };
    for (const Case &c : {
             Case{5, 5, 15, 15, 50, 8,
                  -12}, // the middle quarter, twice as large; world x 4 .. 14, y 6 .. 16
             Case{15, 15, 5, 5, 50, 8, -12},      // drawn the other way
             Case{5, 5, 15, 10, 50, 8, -17},      // wide: centred in height
             Case{5, 5, 10, 15, 50, 3, -12},      // high: centred in width
             Case{7, 7, 7, 7, 100, -1, -1},       // a click
             Case{5, 5, 5.05, 5.05, 100, -1, -1}, // below 1:1
             Case{5, 5, 15, 5, 50, 8, -22},       // no height: by width
         }) {
        Klimaka = 100;
        Arxi_X = -1;
        Arxi_Y = -1;
        Zoom_Parathyrou(c.x1, c.y1, c.x2, c.y2);
        expectView(c.scale, c.x, c.y);
    }
}

TEST_F(View, TheDragZoomGoesByTwentiethsAndStopsAtOneToOne)
{
    Klimaka = 100;
    Arxi_X = -2;
    Arxi_Y = 2;
    Zoom_Syrsimatos(5, 7); // r = 1.1, out
    expectView(110, -2 - 8 * .1, 2 - (2 - 10) * .1);
    Klimaka = 1.01F;
    Arxi_X = -2;
    Arxi_Y = 2;
    Zoom_Syrsimatos(7, 5); // r = 1/1.1, in: the origin moves all the same
    const double r = 1 / 1.1;
    expectView(1.01, -2 - 8 * (r - 1), 2 - (2 - 10) * (r - 1));
}

TEST_F(View, AZoomAboutAPlaceLeavesWhatLiesThere)
{
    // Scale, factor, new scale: at a limit it stays, and beyond one it goes only back.
    constexpr double cases[][3] = {{100, 2, 50},
                                   {1.5, 2, 1},
                                   {1, 2, 1},
                                   {.5, 2, .5},
                                   {.5, .25, 2},
                                   {2e6, .5, 2147483},
                                   {2147483, .5, 2147483},
                                   {1e9, .5, 1e9},
                                   {1e9, 2, 5e8}};
    for (const auto &[from, factor, to] : cases) {
        SCOPED_TRACE(testing::Message() << "1:" << from << " times " << factor);
        resetView();
        Klimaka = static_cast<float>(from);
        const double x = Othoni_X(3), y = Othoni_Y(4);
        EXPECT_EQ(zoomAbout(3, 4, factor), from != to);
        EXPECT_EQ(Klimaka, static_cast<float>(to));
        EXPECT_NEAR(Othoni_X(3), x, 1e-12 * from);
        EXPECT_NEAR(Othoni_Y(4), y, 1e-12 * from);
    }
}

TEST_F(View, TheHistoryKeepsAHundredSteps)
{
    EXPECT_FALSE(Zoom_Proigoumeno());
    Apothikefsi_Zoom(); // the view on top is not pushed again
    EXPECT_EQ(Thesi_Istorikou, 0);
    for (int step = 1; step <= 103; ++step) {
        Arxi_X = step;
        Apothikefsi_Zoom();
        Apothikefsi_Zoom();
        EXPECT_EQ(Thesi_Istorikou, std::min(step, 100));
    }
    for (int step = 102; step >= 3; --step) {
        EXPECT_TRUE(Zoom_Proigoumeno());
        EXPECT_EQ(Arxi_X, step);
    }
    EXPECT_FALSE(Zoom_Proigoumeno());
    Arxi_Y = 99; // a new step overwrites those above
    Apothikefsi_Zoom();
    EXPECT_EQ(Thesi_Istorikou, 1);
    EXPECT_EQ(Istoriko_Zoom(1, 2), 99);
}

TEST_F(View, ADiagramThatIsCutOffIsToldOnceForEachViewAndCanBeFitted)
{
    buildModel("G 2e8 .01 1e-4; N 0 0 xxo; N 8 0 oxo; N 8 4 ooo 3; E 1 2 1 0 0 0 -10; E 2 3 1");
    analyse();
    desktop.log.clear();
    nai_grid = nai_aksones = false;
    Ena_cm_posa_KNm_M = 10; // 8 cm under the beam, which stands 4.1 cm above the edge
    Ena_cm_posa_KN_N = 1000;
    Ena_cm_posa_m_epi_1000 = 1;
    xroma_paramorfosis = 8; // not that of supports
    const auto draw = [this](std::int16_t mode, std::size_t lines) {
        Katastasi_Provolis = mode;
        Ananeosi_Sxediou();
        reportCutDiagram();
        EXPECT_EQ(std::exchange(desktop.log, {}).size(), lines) << mode;
    };
    Zoom_Best_Fit();
    draw(view::M, 1);
    draw(view::N, 0);
    draw(view::deformed, 1);
    nai_stoixeia = false; // what is not drawn is not cut
    EXPECT_FALSE(isDiagramCut());
    nai_stoixeia = true;
    draw(view::M, 0); // told already
    const CanvasView fitted = currentView();
    Arxi_X += 9; // nodes are out of the view too
    draw(view::M, 0);
    for (const std::int16_t mode : {view::M, view::deformed}) {
        setView(fitted);
        Katastasi_Provolis = mode;
        Zoom_Diagram();
        draw(mode, 0);
        double least = 20, most = 0;
        for (const Primitive &line : kanvas.of(Primitive::Kind::line))
            if (line.pen.colour != xroma_kombon) // supports stand outside
                for (const double place : {line.x, line.x2, line.y, line.y2}) {
                    least = std::min(least, place);
                    most = std::max(most, place);
                }
        EXPECT_NEAR(least, 1.8, 1e-3) << mode;
        EXPECT_NEAR(most, 18.2, 1e-3) << mode;
    }
    setView(fitted);
    Katastasi_Provolis = view::M;
    Ena_cm_posa_KNm_M = 1; // ordinates of 80 cm
    Zoom_Diagram();
    EXPECT_EQ(currentView(), fitted);
    EXPECT_EQ(desktop.log.size(), 1U);
}

TEST_F(View, NoViewAndNoModelEndsADrawing)
{
    buildModel("G 0 0 0; N 0 0 xxx 1 1 1; N 0 0 oxo 1e30 -1e30 3e38; N 3e38 -3e38; E 1 2 1 0 0 5 "
               "5; E 2 3 1 1 0 -5 3e38; E 3 3 1");
    Stoixeia(3, element::nodeJ) = 77; // no such node
    for (const float scale : {100.F, 0.F, -5.F, 1e-38F, 3e38F})
        for (const double origin : {0., 1e300, -1e300})
            for (const float step : {1.F, 0.F, -1.F, 1e-38F, 3e38F})
                for (std::int16_t mode = -1; mode <= 5; ++mode) {
                    Klimaka = scale;
                    Arxi_X = Arxi_Y = origin;
                    kannab = step;
                    Ena_cm_posa_KNm_M = Ena_cm_posa_m_epi_1000 = step - 1;
                    Katastasi_Provolis = mode;
                    EXPECT_NO_THROW(Ananeosi_Sxediou());
                    EXPECT_NO_THROW(reportCutDiagram());
                    EXPECT_NO_THROW(Sxedio_Grigoro());
                    EXPECT_LT(kanvas.drawn.size(), 5000U);
                }
}

TEST(Colours, AWordHasRedInItsLowByteOrNamesASystemColour)
{
    EXPECT_EQ(colourOf(255), (Rgb{255, 0, 0}));
    EXPECT_EQ(colourOf(14737632), (Rgb{0xE0, 0xE0, 0xE0}));
    EXPECT_EQ(colourOf(8388608), (Rgb{0, 0, 128}));
    EXPECT_EQ(colourOf(-2147483634.), (Rgb{255, 255, 255})); // 14, as a signed word
    EXPECT_EQ(colourOf(2147483648. + 15), (Rgb{0xF0, 0xF0, 0xF0}));
    for (const double nonsense : {1e300, -1e300, 2147483648. + 99})
        EXPECT_EQ(colourOf(nonsense), (Rgb{0, 0, 0}));
}

} // namespace
} // namespace veskora
