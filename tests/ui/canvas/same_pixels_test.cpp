// The canvas's image, pixel by pixel the one that the painter makes of each primitive by itself.

#include "AnalysisCommands.h"
#include "epilisi.h"
#include "Files.h"
#include "ImageKanvas.h"
#include "Metablites.h"
#include "PlainKanvas.h"
#include "ScriptedDesktop.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <filesystem>
#include <functional>
#include <random>

namespace veskora {
namespace {

/// How many pixels differ; the texts of the second picture are ready from the first.
int pixelsThatDiffer(QSize size, double scale, double textScale,
                     const std::function<void(Kanvas &)> &draw)
{
    ImageKanvas quick(size, scale);
    PlainKanvas plain(size, scale);
    quick.setTextScale(textScale);
    plain.setTextScale(textScale);
    draw(quick);
    draw(quick);
    draw(plain);
    draw(plain);
    int differing = 0;
    for (int y = 0; quick.image() != plain.image() && y < plain.image().height(); ++y)
        for (int x = 0; x < plain.image().width(); ++x)
            differing += quick.image().pixel(x, y) != plain.image().pixel(x, y) ? 1 : 0;
    return differing;
}

class SamePixels : public StoreTest
{};

TEST_F(SamePixels, OfEachExampleInEachView)
{
    struct Look
    {
        double scale, textScale, zoom; ///< the larger the zoom, the less is seen
        bool isDark;
    };
    int pictures = 0;
    desktop.answerAnything = [] { return Answer::yes; }; // mechanisms are no trouble
    for (const auto &entry : std::filesystem::recursive_directory_iterator(EXAMPLES)) {
        std::string path = entry.path();
        if (entry.path().extension() != ".vsk" || !Anagnosi_Arxeiou(path))
            continue;
        Epilisi();
        for (const Look &look : {Look{1, 1, 1, false}, {2, 1, 5, true}, {1.5, 2, .3, false}})
            for (const std::int16_t view :
                 {view::model, view::M, view::Q, view::N, view::deformed}) {
                Katastasi_Provolis = view;
                nai_grid = nai_omades = nai_miki = nai_sint_kombon = true;
                if (look.isDark) {
                    xroma_background = 0x302820;
                    xroma_stoixeion = xroma_kombon = 0xE0F0D0;
                }
                EXPECT_EQ(pixelsThatDiffer(QSize(480, 300), look.scale, look.textScale,
                                           [&](Kanvas &kanvas) {
                                               const CanvasInUse inUse(kanvas);
                                               kanvas.setBackground(xroma_background);
                                               Zoom_Best_Fit();
                                               Klimaka = static_cast<float>(Klimaka / look.zoom);
                                               Ananeosi_Sxediou();
                                           }),
                          0)
                    << path << " view " << view << " scale " << look.scale;
                ++pictures;
            }
    }
    EXPECT_GT(pictures, 600);
}

/// Draws the same for the same @p seed.
void drawAnything(Kanvas &kanvas, unsigned seed)
{
    std::mt19937 random(seed);
    const auto pick = [&](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    const auto place = [&] {
        return pick(20) == 0  ? (pick(2) == 0 ? -1 : 1) * std::pow(10., pick(7))
               : pick(3) == 0 ? pick(8) / 2.
                              : pick(4000) / 1000. - .3;
    };
    const char *const texts[] = {" 12.5 ", "-0.731 ", "Ροπή κάμψης 7", "AVTo. ffi", "ß",
                                 " 日本",  ""};
    kanvas.clear();
    for (int k = 0; k < 150; ++k) {
        const double x = place(), y = place();
        const char *const text = texts[pick(7)];
        switch (pick(16)) {
        case 0:
            kanvas.setPenColour(pick(0x1000000));
            break;
        case 1:
            kanvas.setPenWidth(1 + pick(4));
            break;
        case 2:
            kanvas.setPenStyle(pick(3) == 0 ? PenStyle::dotted : PenStyle::solid);
            break;
        case 3:
            kanvas.setFillOn(pick(2) == 0);
            kanvas.setFillColour(pick(0x1000000));
            break;
        case 4:
            kanvas.setFontSize(6 + pick(9));
            kanvas.setFontBold(pick(3) == 0);
            break;
        case 5:
        case 6:
            kanvas.line(x, y, place(), place());
            break;
        case 7:
            kanvas.line(x, y, place(), y);
            break;
        case 8:
            kanvas.line(x, y, x, place());
            break;
        case 9:
            kanvas.point(x, y);
            break;
        case 10:
            kanvas.circle(x, y, pick(9) / 10.);
            break;
        case 11:
            kanvas.arc(x, y, pick(9) / 10., pick(8), pick(8));
            break;
        case 12:
            kanvas.polyline(std::vector<Point>{{x, y}, {place(), y}, {place(), place()}});
            break;
        case 13:
        case 14:
            kanvas.moveTo(x, y);
            kanvas.print(text);
            break;
        default:
            kanvas.printRotated(text, x, y,
                                {"Arial", 9 + pick(3), 200 + 500 * pick(2), pick(4) == 0,
                                 pick(4) == 0, pick(4) == 0},
                                pick(2) == 0 ? 900 * (pick(9) - 4) : pick(3600));
        }
    }
}

TEST_F(SamePixels, OfAnythingDrawn)
{
    for (unsigned seed = 1; seed <= 150; ++seed)
        EXPECT_EQ(pixelsThatDiffer(QSize(131, 127), 1 + seed % 3 / 2., 1 + seed % 2 / 2.,
                                   [seed](Kanvas &kanvas) { drawAnything(kanvas, seed); }),
                  0)
            << seed;
}

} // namespace
} // namespace veskora
