#include "Metablites.h"
#include "Models.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"

namespace veskora {
namespace {

class NodeSymbols : public DrawingTest
{
protected:
    /// Node 1 at the canvas's corner, with an element towards (dx, dy), if that is a direction, and
    /// with one of no length, which has none.
    void node(const std::string &code, double dx = 0, double dy = 0)
    {
        Katharismos_Montelou();
        originAt(-1, 2);
        putNode(1, 2, code);
        putNode(1 + dx, 2 + dy);
        if (dx != 0 || dy != 0)
            putElement(2, 1);
        putNode(1, 2);
        putElement(1, 3);
    }

    std::string drawn()
    {
        kanvas.clear();
        Sxedio_Kombou(1);
        return kanvas.picture();
    }
};

TEST_F(NodeSymbols, SupportsStandOnTheSideAwayFromTheStructure)
{
    const std::string rollerX = "line 0 0 .25 .25; line 0 0 .25 -.25; line .25 -.25 0 .5;"
                                "circle .35 0 .1; line .45 -.25 0 .5;"
                                "5 by 0 -.1: line .45 .25 .15 -.15";
    const std::string rollerY = "line 0 0 .25 .25; line 0 0 -.25 .25; line -.25 .25 .5 0;"
                                "circle 0 .35 .1; line -.25 .45 .5 0;"
                                "5 by .1 0: line -.15 .45 -.15 .15";
    const std::string lever = "line 0 0 .2 -.2; line .2 -.2 .335 0; line .2 0 .375 0;"
                              "circle .3875 -.1 .1; line .575 -.35 0 .5; circle .675 -.1 .1;"
                              "line .775 -.35 0 .5; 5 by 0 -.1: line .775 .15 .15 -.15";
    const std::string pin = "line 0 0 .25 .25; line 0 0 -.25 .25; line -.25 .25 .5 0;"
                            "5 by .1 0: line -.15 .25 -.15 .15";
    const std::string slideY = "line 0 -.25 0 .5; line .2 -.25 0 .5; circle .1 -.12 .1;"
                               "circle .1 .12 .1; 5 by 0 -.1: line .2 .25 .15 -.15";
    const std::string slideX = "line -.25 0 .5 0; line -.25 .2 .5 0; circle -.12 .1 .1;"
                               "circle .12 .1 .1; 5 by .1 0: line -.15 .2 -.15 .15";
    const std::string level = "line -.375 0 .75 0; 5 by .15 0: line -.225 0 -.21 .21";
    const std::string upright = "line 0 -.375 0 .75; 5 by 0 -.15: line 0 .375 -.21 -.21";

    struct Case
    {
        const char *code;
        double dx, dy; ///< towards the structure, y up
        std::string symbol;
        double signX, signY;
    };
    nai_arithmisi_kombon = nai_komboi = false;
    for (const Case &c : {
             Case{"xoo", 0, 0, rollerX, 1, 1},
             {"xoo", -1, 0, rollerX, 1, 1},
             {"xoo", 1, 2, rollerX, -1, 1},
             {"oxo", 0, 0, rollerY, 1, 1},
             {"oxo", 1, 0, rollerY, 1, 1},
             {"oxo", 0, -1, rollerY, 1, -1},
             {"oox", 0, 0, lever, 1, 1},
             {"oox", 1, 0, lever, -1, 1},
             {"xxo", 0, 0, pin, 1, 1},
             {"xxo", 1, -1, pin, 1, -1},
             {"xox", 0, 1, slideY, 1, 1},
             {"xox", 1, 0, slideY, -1, 1},
             {"oxx", 0, 1, slideX, 1, 1},
             {"oxx", 1, 0, slideX, 1, -1}, // strict, unlike the others
             {"oxx", 0, 0, slideX, 1, -1},
             {"xxx", 0, 0, level, 1, 1},
             {"xxx", 0, 1, level, 1, 1},
             {"xxx", 0, -1, level, 1, -1},
             {"xxx", 1, 0, upright, 1, 1},
             {"xxx", -1, 0, upright, -1, 1},
             {"xxx", 2, 1, upright, 1, 1},
             {"xxx", -2, -1, upright, -1, 1},
             {"xxx", 1, 2, level, 1, 1},
             {"xxx", -1, 1, level, 1, 1}, // of two equal sides, below or above
             {"xxx", 1, -1, level, 1, -1},
             {"ooo", 1, 0, "", 1, 1},
         }) {
        node(c.code, c.dx, c.dy);
        EXPECT_EQ(drawn(), picture(c.symbol, c.signX, c.signY)) << c.code << c.dx << ' ' << c.dy;
    }
    smallHeldRotation = true;
    node("oox", 1, 0);
    EXPECT_EQ(drawn(), picture("line -.08 -.08 .16 0; line .08 -.08 0 .16; line .08 .08 -.16 0;"
                               "line -.08 .08 0 -.16"));
    node("xoo", 2, 0);
    putElement(1, putNode(-4, 2)); // in one line with the other: they cancel
    EXPECT_EQ(drawn(), picture(rollerX));
}

TEST_F(NodeSymbols, LabelsNameNumberRestraintsAndCoordinates)
{
    struct Case
    {
        const char *code;
        bool numbers, symbols, coordinates;
        const char *texts;
    };
    for (const Case &c : {
             Case{"xxo", true, false, false, "text 0 0 '1 xxo'"},
             {"xxo", false, false, false, "text 0 0 ' xxo'"},
             {"ooo", true, false, true, "text 0 0 '1'; text 0 .28 ' (1.1, 2)'"},
             {"xxx", true, true, true, "text 0 .1 '1'; text 0 .38 ' (1.1, 2)'"},
             {"xxx", false, true, true, "text 0 .1 ' (1.1, 2)'"},
             {"oxo", true, true, false, "text 0 0 '1'"},
             {"xoo", true, true, true, "text -.3 0 '1'; text 0 .28 ' (1.1, 2)'"},
             {"xox", true, true, false, "text -.3 0 '1'"},
         }) {
        node(c.code);
        Arithmos_Stoixeion = 0;
        Komboi(1, node::x) = 1.1F;
        nai_arithmisi_kombon = c.numbers;
        nai_graf_stir = c.symbols;
        nai_sint_kombon = c.coordinates;
        drawn();
        std::erase_if(kanvas.drawn, [](const Primitive &p) { return p.text.empty(); });
        EXPECT_EQ(kanvas.picture(0.1, 0), picture(c.texts)) << c.code;
    }
    node("xxx", 1, 0); // only ground below moves the label
    drawn();
    EXPECT_EQ(kanvas.of(Primitive::Kind::text).at(0).y, 0);
}

TEST_F(NodeSymbols, ARestraintThatIsNeitherOneNorZeroHasNoSymbol)
{
    nai_komboi = false;
    node("xxo", 1, 0);
    Komboi(1, node::fixedY) = 2;
    EXPECT_EQ(drawn(), picture("text 0 0 '1'"));
    nai_graf_stir = false;
    EXPECT_EQ(drawn(), picture("text 0 0 '1 xxo'"));
    nai_desmefseis = false;
    EXPECT_EQ(drawn(), picture("text 0 0 '1'"));
}

TEST_F(NodeSymbols, SpringsKeepTheirSide)
{
    struct Case
    {
        int column;
        const char *symbol;
    };
    nai_arithmisi_kombon = nai_komboi = nai_desmefseis = false;
    for (const Case &c : {
             Case{1, "line 0 0 .2 0; line .2 0 .04 .2; line .24 .2 .08 -.4; line .32 -.2 .08 .4;"
                     "line .4 .2 .08 -.4; line .48 -.2 .08 .4; line .56 .2 .08 -.4;"
                     "line .64 -.2 .04 .2; line .68 0 .2 0"},
             {2, "line 0 0 0 .2; line 0 .2 .2 .04; line .2 .24 -.4 .08; line -.2 .32 .4 .08;"
                 "line .2 .4 -.4 .08; line -.2 .48 .4 .08; line .2 .56 -.4 .08;"
                 "line -.2 .64 .2 .04; line 0 .68 0 .2"},
             {3, "arc 0 .1 .1 1.5708 4.7124; arc 0 0 .2 4.7124 1.5708;"
                 "arc 0 .1 .3 1.5708 4.7124"},
         }) {
        node("xxx", 1, -1);
        Elatiria(1, c.column) = 1;
        EXPECT_EQ(drawn(), picture(c.symbol));
        nai_springs = false;
        EXPECT_EQ(drawn(), "");
        nai_springs = true;
    }
}

TEST_F(NodeSymbols, TheDotIsWideAndCirclesTakeTheFillInForce)
{
    node("oxo");
    kanvas.setFillOn(true);
    kanvas.setFillColour(77);
    Sxedio_Kombou(1);
    kanvas.drawn.resize(5);
    EXPECT_EQ(kanvas.picture(0, 0, RecordingKanvas::Pens::shown),
              picture("pen 16711680 3 7; point 0 0; pen 16711680 1 7; line 0 0 .25 .25;"
                      "line 0 0 -.25 .25; line -.25 .25 .5 0; circle 0 .35 .1 fill 77.0000"));
}

} // namespace
} // namespace veskora
