#include "AlongElement.h"
#include "Analysis.h"
#include "DataCases.h"
#include "DiagramFit.h"
#include "Functions.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"

#include <array>
#include <cmath>
#include <sstream>

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
    for (const auto &[line, kind] : dataCases("curved_members.txt")) {
        buildModel("G 1 8 5; N 0 0; " + line + "; S 1 20 30 40; S 2 25 35 45");
        analyse();
        const AlongElement along = alongElement(1);
        const auto isAt = [&, &member = line](double x, double y, double t, double u, double v) {
            const double part = t * along.length + u;
            EXPECT_NEAR(x, part * along.c - v * along.s, nearly) << member << " at " << t;
            EXPECT_NEAR(-y, part * along.s + v * along.c, nearly) << member << " at " << t;
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

TEST_F(Diagrams, AFittedScaleIsTheFinestRoundOneThatStaysInside)
{
    constexpr double longest = 3;
    originAt(0, 20);
    for (const auto &[given, expected] : dataCases("fitted_scales.txt")) {
        buildModel(given.substr(0, given.find('|')));
        std::istringstream values(given.substr(given.find('|') + 1));
        double M = 0, Q = 0, u = 0, right = 0;
        values >> Katastasi_Provolis >> M >> Q >> u >> right;
        std::ranges::copy(std::array{0., Q, -M, 0., -Q, 0.}, Entasi_Topiki.row(1).begin());
        Metatopiseis(1) = -u;
        setScales(10);
        EXPECT_EQ(isDiagramCut(), expected.find("leaves") != std::string::npos) << given;
        fitDiagramScale(longest, {.right = right});
        EXPECT_FLOAT_EQ(scales().at(static_cast<std::size_t>(Katastasi_Provolis)),
                        std::stof(expected))
            << given;
    }
}

TEST_F(Diagrams, EnlargeAndReduceMoveTheLongestOrdinateByTwoMillimetres)
{
    for (const auto &[given, expected] : dataCases("scale_steps.txt")) {
        std::istringstream values(given + ' ' + expected);
        float scale = 0;
        double greatest = 0;
        values >> Katastasi_Provolis >> scale >> greatest;
        Entasi_Topiki.clear();
        const auto mode = static_cast<std::size_t>(Katastasi_Provolis);
        Entasi_Topiki(1, std::array{1, 3, 2, 1, 1}.at(mode)) = -greatest;
        Metatopiseis(1) = -greatest;
        for (const auto change : {enlargeDiagram, reduceDiagram}) {
            setScales(scale);
            std::array<float, 5> wanted = scales();
            change();
            values >> wanted.at(mode);
            EXPECT_EQ(scales(), wanted) << given;
        }
    }
}

} // namespace
} // namespace veskora
