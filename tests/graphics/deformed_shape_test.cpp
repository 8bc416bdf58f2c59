#include "AlongElement.h"
#include "Analysis.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"

#include <array>
#include <cmath>

namespace veskora {
namespace {

constexpr double nearly = 2e-5; // centimetres held in Singles

class DeformedShape : public DrawingTest
{
protected:
    DeformedShape()
    {
        originAt(0, 0, 50);
        nai_grid = nai_aksones = nai_arithmisi_stoixeion = nai_arithmisi_kombon = false;
        Ena_cm_posa_m_epi_1000 = 500;
    }
};

// Each end value and the load alone, on an element of length 5 along (0.6, 0.8) with EA = 8 and
// EI = 5: across the element c0 + c1 t + .. + c4 t^4 in t = x/L, along it d0 + d1 t + d2 t^2.
TEST_F(DeformedShape, TwentyChordsFollowTheShapeFunctions)
{
    using Polynomial = std::array<double, 5>;
    struct Case
    {
        int hingeI, hingeJ;
        Polynomial vi, rotationI, vj, rotationJ; ///< rotations: of unit L
        Polynomial load;                         ///< in q L^4 / 48 EI
    };
    for (const Case &c : {
             Case{0,
                  0,
                  {1, 0, -3, 2},
                  {0, 1, -2, 1},
                  {0, 0, 3, -2},
                  {0, 0, -1, 1},
                  {0, 0, 2, -4, 2}},
             {0, 1, {1, 0, -1}, {0, 1, -1}, {0, 0, 1}, {}, {0, 0, 3, -5, 2}},
             {1, 0, {1, -2, 1}, {}, {0, 2, -1}, {0, -1, 1}, {0, 1, 0, -3, 2}},
             {1, 1, {1, -1}, {}, {0, 1}, {}, {0, 2, 0, -4, 2}},
         }) {
        for (int active = 0; active < 7; ++active) {
            const auto unit = [=](int n) { return active == n ? 0.3 : 0; };
            constexpr double L = 5, cosine = 0.6, sine = 0.8;
            buildModel("G 1 8 5; N 0 0; N 3 4");
            const double q = unit(4), along = unit(6);
            putElement(1, 2, 1, c.hingeI, c.hingeJ, along * cosine - q * sine,
                       along * sine + q * cosine);
            Metatopiseis(1) = -unit(0) * sine + unit(5) * cosine;
            Metatopiseis(2) = unit(0) * cosine + unit(5) * sine;
            Metatopiseis(3) = unit(1);
            Metatopiseis(4) = -unit(2) * sine + unit(5) * 2 * cosine;
            Metatopiseis(5) = unit(2) * cosine + unit(5) * 2 * sine;
            Metatopiseis(6) = unit(3);
            Sxedio_Paramorfosis();

            const auto chords = kanvas.linesOf(xroma_paramorfosis);
            ASSERT_EQ(chords.size(), 20U);
            for (int k = 0; k <= 20; ++k) {
                const double t = k / 20.0;
                double v = 0;
                for (std::size_t n = 0; n < 5; ++n)
                    v += std::pow(t, n)
                         * (unit(0) * c.vi[n] + unit(1) * L * c.rotationI[n] + unit(2) * c.vj[n]
                            + unit(3) * L * c.rotationJ[n]
                            + q * std::pow(L, 4) / (48 * 5) * c.load[n]);
                const double u = unit(5) * (1 + t) + along * L * L * t * (1 - t) / (2 * 8);
                // 1 : 50, displacements enlarged 1000/500 times
                const double x = 2 * (3 * t + 2 * (u * cosine - v * sine));
                const double y = -2 * (4 * t + 2 * (u * sine + v * cosine));
                const auto &chord = chords[static_cast<std::size_t>(k == 0 ? 0 : k - 1)];
                EXPECT_NEAR(k == 0 ? chord.x : chord.x2, x, nearly)
                    << c.hingeI << c.hingeJ << active;
                EXPECT_NEAR(k == 0 ? chord.y : chord.y2, y, nearly)
                    << c.hingeI << c.hingeJ << active;
                EXPECT_EQ(chord.pen.width, 2);
            }
        }
    }
}

TEST_F(DeformedShape, IsTheElasticLineWithoutHingesAndWithTwo)
{
    xroma_paramorfosis = 0x123456; // no symbol's
    for (const char *hinges : {"0 0", "1 1"}) {
        buildModel("G 1 8 5; N 0 0 xxo; N 3 4 ooo .1 .2 .3; S 1 0 0 3; S 2 2 3 4; E 1 2 1 "
                   + std::string(hinges) + " .1 -.3");
        analyse();
        Sxedio_Paramorfosis();
        const auto chords = kanvas.linesOf(xroma_paramorfosis);
        ASSERT_EQ(chords.size(), 20U);
        for (int k = 1; k <= 20; ++k) {
            const StationValues at = valuesAt(alongElement(1), {k / 4.0});
            const auto &chord = chords[static_cast<std::size_t>(k - 1)];
            EXPECT_NEAR(chord.x2, 2 * (3 * k / 20.0 + 2 * *at.dx), nearly) << hinges << k;
            EXPECT_NEAR(chord.y2, -2 * (4 * k / 20.0 + 2 * *at.dy), nearly) << hinges << k;
        }
    }
}

TEST_F(DeformedShape, TheFrameLiesBelowAndTheExtremesStandAbove)
{
    buildModel("N 0 0 ooo; N 3 4; E 1 2");
    Metatopiseis(1) = -0.003;
    Metatopiseis(5) = 0.0040004;
    Allagi_Montelou = false;
    Sxedio_Paramorfosis();
    std::erase_if(kanvas.drawn,
                  [](const Primitive &p) { return p.pen.colour == xroma_paramorfosis; });
    EXPECT_EQ(kanvas.picture(0, 0, RecordingKanvas::Pens::shown),
              picture("pen 0 1 7; line 0 0 6 -8; pen 0 2 12 bold; text .1 .07 'D'; pen 0 2 8;"
                      "text .1 .55 'max.= 0.004'; text .1 .87 'max.|x|= 0.003';"
                      "text .1 1.19 'max.|y|= 0.004'"));
    EXPECT_EQ(kanvas.pen.width, 1);

    nai_stoixeia = false;
    Sxedio_Paramorfosis();
    EXPECT_TRUE(kanvas.of(Primitive::Kind::line).empty());
    EXPECT_EQ(kanvas.of(Primitive::Kind::point).size(), 2U);
    EXPECT_EQ(kanvas.of(Primitive::Kind::text).size(), 4U);
}

TEST_F(DeformedShape, WhatCannotBeComputedSpoilsNothingElse)
{
    buildModel("G 0 1 1; G 1 1 1; N 0 0; N 4 0; N 4 0; N 8 0;"
               "E 1 2 1 0 0 1 1; E 2 3 2 0 0 1 1; E 3 4 2 0 0 1 1; E 1 2 0 0 0 1 1");
    Metatopiseis(2) = Metatopiseis(5) = 0.5;
    Allagi_Montelou = false;
    Sxedio_Paramorfosis();
    const auto chords = kanvas.linesOf(xroma_paramorfosis);
    ASSERT_EQ(chords.size(), 60U);
    EXPECT_EQ(chords[9].y2, 0); // no E: as before anything was drawn
    EXPECT_EQ(chords[9].x2, 4);
    EXPECT_NEAR(chords[29].y2, -4 * 256.0 / 384, nearly);  // q L^4 / 384 EI in its middle
    EXPECT_NEAR(chords[29].x2, 12 + 4 * 16.0 / 8, nearly); // q L^2 / 8 EA
    std::swap(Stoixeia(1, element::group), Stoixeia(3, element::group));
    Sxedio_Paramorfosis();
    EXPECT_NEAR(kanvas.linesOf(xroma_paramorfosis)[29].y2, -2, nearly); // as the last station
    Ena_cm_posa_m_epi_1000 = 0;
    Sxedio_Paramorfosis();
    EXPECT_EQ(kanvas.linesOf(xroma_paramorfosis).size(), 60U);
    EXPECT_EQ(kanvas.linesOf(xroma_paramorfosis)[59].x2, 0);
    EXPECT_EQ(kanvas.of(Primitive::Kind::text).size(), 4U);
}

} // namespace
} // namespace veskora
