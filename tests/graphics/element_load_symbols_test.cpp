#include "Metablites.h"
#include "Models.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"

namespace veskora {
namespace {

using Pens = RecordingKanvas::Pens;

using ElementSymbols = DrawingTest;
using LoadSymbols = DrawingTest;

TEST_F(ElementSymbols, LabelsFollowTheElementAndNeverStandUpsideDown)
{
    struct Case
    {
        double dx, dy;
        const char *labels; ///< from the middle
    };
    nai_miki = nai_omades = true;
    for (const Case &c : {
             Case{2, 0, "turned 0 0 0 11 200 ' 1 (3)'; turned 0 .3 0 11 200 ' 2'"},
             {0, 2, "turned 0 0 2700 11 200 ' 1 (3)'; turned .3 0 2700 11 200 ' 2'"},
             {0, -2, "turned 0 0 2700 11 200 ' 1 (3)'; turned -.3 0 2700 11 200 ' 2'"},
             {-2, 0, "turned 0 0 3600 11 200 ' 1 (3)'; turned 0 -.3 3600 11 200 ' 2'"},
             {3, 4, "turned 0 0 530 11 200 ' 1 (3)'; turned .24 .18 530 11 200 ' 5'"},
             {-3, 4, "turned 0 0 3070 11 200 ' 1 (3)'; turned .24 -.18 3070 11 200 ' 5'"},
             {-3, -4, "turned 0 0 4130 11 200 ' 1 (3)'; turned -.24 -.18 4130 11 200 ' 5'"},
             {3, -4, "turned 0 0 3070 11 200 ' 1 (3)'; turned -.24 .18 3070 11 200 ' 5'"},
             {1, 1, "turned 0 0 450 11 200 ' 1 (3)'; turned .2121 .2121 450 11 200 ' 1.4142'"},
         }) {
        Katharismos_Montelou();
        originAt(-1, 2);
        putNode(1, 2);
        putNode(1 + c.dx, 2 + c.dy);
        putElement(1, 2, 3);
        kanvas.clear();
        Sxedio_Stoixeiou(1);
        ASSERT_EQ(kanvas.drawn.size(), 3U);
        kanvas.drawn.erase(kanvas.drawn.begin());
        EXPECT_EQ(kanvas.picture(c.dx / 2, -c.dy / 2), picture(c.labels)) << c.dx << ' ' << c.dy;
    }
}

TEST_F(ElementSymbols, HingeMarksTouchTheNodesAndHideTheLine)
{
    originAt(-2, 4, 50); // so that canvas and world lengths differ
    buildModel("N 1 2; N 4 6; N 4 6; E 1 2 1 1 1; E 1 2 1 2 0; E 2 3 1 1 0");
    nai_arithmisi_stoixeion = false;
    xroma_background = 255;
    Sxedio_Stoixeion();
    EXPECT_EQ(kanvas.picture(), picture("line 0 0 6 -8; circle .06 -.08 .1 fill 255.0000;"
                                        "circle 5.94 -7.92 .1 fill 255.0000;"
                                        "line 0 0 6 -8; line 6 -8 0 0"));

    kanvas.clear();
    kanvas.setFillColour(7);
    nai_stoixeia = nai_eleftheroseis = false;
    Sxedio_Stoixeion();
    EXPECT_EQ(kanvas.picture(), "");
    EXPECT_EQ(kanvas.pen.fillColour, 7);
}

TEST_F(LoadSymbols, NodalLoadsPointTheWayTheyAct)
{
    struct Case
    {
        const char *loads;
        const char *symbol;
        const char *value;
    };
    for (const Case &c : {
             Case{"5 0 0",
                  "line -1.2 0 1.2 0; line 0 0 -.35 .06; line -.35 .06 0 -.12;"
                  "line -.35 -.06 .35 .06",
                  "text -.8 .1 ' 5 '"},
             {"-5 0 0",
              "line 1.2 0 -1.2 0; line 0 0 .35 .06; line .35 .06 0 -.12; line .35 -.06 -.35 .06",
              "text .4 .1 ' 5 '"},
             {"0 .5 0",
              "line 0 1.2 0 -1.2; line 0 0 .06 .35; line .06 .35 -.12 0; line -.06 .35 .06 -.35",
              "text .1 .3 ' 0.5 '"},
             {"0 -.5 0",
              "line 0 -1.2 0 1.2; line 0 0 .06 -.35; line .06 -.35 -.12 0;"
              "line -.06 -.35 .06 .35",
              "text .1 -.6 ' 0.5 '"},
             {"0 0 5",
              "line 0 0 -.2451 -.4358; arc 0 0 .5 2.1 4.2; line -.2524 .4316 -.12 0;"
              "line -.2524 .4316 0 -.12",
              "text -.7524 .4616 ' 5 '"},
             {"0 0 -5",
              "line 0 0 .2451 -.4358; arc 0 0 .5 5.2416 1.0584; line .2524 .4316 .12 0;"
              "line .2524 .4316 0 -.12",
              "text .5476 .4616 ' 5 '"},
         }) {
        buildModel(std::string("N 0 0 ooo ") + c.loads);
        originAt(0, 0);
        const auto drawn = [&](bool symbols, bool values) {
            nai_fortiseis_si = symbols;
            nai_times_fortiseon_si = values;
            kanvas.clear();
            Sxedio_Fortiseon_Si();
            EXPECT_EQ(kanvas.pen.width, 1);
            return kanvas.picture(0, 0, Pens::shown);
        };
        const std::string pen = "pen 41984 2 7;";
        EXPECT_EQ(drawn(true, true), picture(pen + c.symbol + ";" + c.value)) << c.loads;
        EXPECT_EQ(drawn(true, false), picture(pen + c.symbol)) << c.loads;
        EXPECT_EQ(drawn(false, true), picture(pen + c.value)) << c.loads;
    }
}

TEST_F(LoadSymbols, UniformLoadsStandAboveAndLeftOfTheElement)
{
    struct Case
    {
        const char *element;
        const char *picture;
    };
    for (const Case &c : {
             Case{"N 0 0; N 5 0; E 1 2 1 0 0 0 -2",
                  "text 5 -.6 ' 2 '; line 0 -.6 5 0;"
                  "6 by 1 0: line 0 -.6 0 .6 & line 0 0 .05 -.2 & line -.05 -.2 .05 .2"},
             {"N 0 0; N 3 4; E 1 2 1 0 0 0 2",
              "text 3 -4.6 ' 2 '; line 0 -.6 3 -4;"
              "6 by .6 -.8: line 0 0 0 -.6 & line 0 -.6 .05 .2 & line -.05 -.4 .05 -.2"},
             {"N 0 0; N 0 2.9; E 1 2 1 0 0 2",
              "text -.6 -2.9 ' 2 '; line -.6 0 0 -2.9;"
              "3 by 0 -1.45: line -.6 0 .6 0 & line 0 0 -.2 .05 & line -.2 -.05 .2 .05"},
             {"N 0 0; N 0 .5; E 2 1 1 0 0 -2", // never fewer than two bays
              "text -.6 0 ' 2 '; line -.6 -.5 0 .5;"
              "3 by 0 .25: line 0 -.5 -.6 0 & line -.6 -.5 .2 .05 & line -.4 -.55 -.2 .05"},
         }) {
        buildModel(c.element);
        originAt(5, 10);
        kanvas.clear();
        Sxedio_Fortiseon_Om();
        EXPECT_EQ(kanvas.picture(5, 10), picture(c.picture)) << c.element;
    }
    buildModel("N 0 0; N 2 0; E 1 2 1 0 0 4 5");
    nai_fortiseis_om = false;
    kanvas.clear();
    Sxedio_Fortiseon_Om();
    EXPECT_EQ(kanvas.picture(5, 10), picture("text 2 -.6 ' 5 '; text 1.4 0 ' 4 '"));
}

TEST_F(LoadSymbols, ADeepZoomDrawsOnlyTheArrowsInSight)
{
    nai_times_fortiseon_om = false;
    buildModel("N 0 0; N 1000 0; E 1 2 1 0 0 0 -2; N 500 50; N 1000 50; E 3 4 1 0 0 0 -2");
    Klimaka = 1;
    Arxi_X = 50000;
    Arxi_Y = 10;
    Sxedio_Fortiseon_Om();
    const auto lines = kanvas.of(Primitive::Kind::line);
    ASSERT_EQ(lines.size(), 2U + 3 * 23); // of the row in sight, from -1 to 21; two top lines
    EXPECT_EQ(lines[1].x, -1);
    EXPECT_EQ(lines[1].y2, 10);
    EXPECT_EQ(lines[3 * 22 + 1].x, 21);

    kanvas.clear();
    Komboi(2, node::x) = 3e38F;
    Komboi(3, node::x) = -1e15F;
    Sxedio_Fortiseon_Om();
    EXPECT_LT(kanvas.drawn.size(), 100U);
}

} // namespace
} // namespace veskora
