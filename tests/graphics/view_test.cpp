// The view: conversions, zooms, history; views and models that no picture has room for.

#include "Analysis.h"
#include "ColourWord.h"
#include "DataCases.h"
#include "DiagramOutline.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <algorithm>
#include <sstream>

namespace veskora {
namespace {

using View = DrawingTest;

TEST_F(View, ConversionsAreEachOthersInverse)
{
    setView({50, -3, 4});
    EXPECT_EQ(Kosmos_X(5), 13);
    EXPECT_EQ(Kosmos_Y_Orthio(1), 6);
    EXPECT_EQ(Kosmos_Y(1), 14);
    EXPECT_EQ(Mikos_Se_Othoni(2.5), 5);
    EXPECT_EQ(Othoni_X(13), 5);
    EXPECT_EQ(Othoni_Y(14), 1);
    EXPECT_EQ(Othoni_Y_Orthio(6), 1);
}

TEST_F(View, AZoomAboutAPlaceLeavesWhatLiesThere)
{
    for (const auto &[given, expected] : dataCases("zooms_about.txt")) {
        SCOPED_TRACE(given);
        std::istringstream numbers(given + ' ' + expected);
        double from = 0, factor = 0, to = 0;
        numbers >> from >> factor >> to;
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
