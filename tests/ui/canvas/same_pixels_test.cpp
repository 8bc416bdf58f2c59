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
    double x = 0, y = 0;
    const char *text = "";
    const auto print = [&] {
        kanvas.moveTo(x, y);
        kanvas.print(text);
    };
    const auto printRotated = [&] {
        const RotatedFont font = {"Arial",      9 + pick(3),  200 + 500 * pick(2),
                                  pick(4) == 0, pick(4) == 0, pick(4) == 0};
        kanvas.printRotated(text, x, y, font, pick(2) == 0 ? 900 * (pick(9) - 4) : pick(3600));
    };
    const std::function<void()> acts[] = {
        [&] { kanvas.setPenColour(pick(0x1000000)); },
        [&] { kanvas.setPenWidth(1 + pick(4)); },
        [&] { kanvas.setPenStyle(pick(3) == 0 ? PenStyle::dotted : PenStyle::solid); },
        [&] { kanvas.setFillOn(pick(2) == 0); },
        [&] { kanvas.setFillColour(pick(0x1000000)); },
        [&] { kanvas.setFontSize(6 + pick(9)); },
        [&] { kanvas.setFontBold(pick(3) == 0); },
        [&] { kanvas.line(x, y, place(), place()); },
        [&] { kanvas.line(x, y, place(), y); },
        [&] { kanvas.line(x, y, x, place()); },
        [&] { kanvas.point(x, y); },
        [&] { kanvas.circle(x, y, pick(9) / 10.); },
        [&] { kanvas.arc(x, y, pick(9) / 10., pick(8), pick(8)); },
        [&] {
            kanvas.polyline(std::vector<Point>{{x, y}, {place(), y}, {place(), place()}});
        },
        print,
        print,
        printRotated,
    };
    kanvas.clear();
    for (int k = 0; k < 150; ++k) {
        x = place();
        y = place();
        text = texts[pick(7)];
        acts[pick(static_cast<int>(std::size(acts)))]();
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
