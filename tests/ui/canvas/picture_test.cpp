// What is really painted: the canvas's image, and the pictures of the batch runner.

#include "Files.h"
#include "ImageKanvas.h"
#include "Models.h"
#include "QtDrawings.h"
#include "ScriptedDesktop.h"

#include <QGuiApplication>
#include <QList>
#include <QMap>

#include <algorithm>
#include <sstream>
#include <vector>

namespace fs = std::filesystem;

namespace veskora {
namespace {

constexpr double red = 255, blue = 0xFF0000, white = 0xFFFFFF;
constexpr double centimetre = 96 / 2.54; // pixels

QRgb at(const ImageKanvas &kanvas, double x, double y)
{
    return kanvas.image().pixel(static_cast<int>(x), static_cast<int>(y)) | 0xFF000000;
}

int count(const ImageKanvas &kanvas, QRgb colour, QRect part)
{
    int pixels = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            pixels += kanvas.image().pixel(x, y) == colour ? 1 : 0;
    return pixels;
}

constexpr QRgb redPixel = 0xFFFF0000, bluePixel = 0xFF0000FF, whitePixel = 0xFFFFFFFF;

TEST(Image, StraightLinesCoverWholePixelsAtEveryScale)
{
    for (const double scale : {1., 1.5, 2.}) {
        for (const int width : {1, 2, 3}) {
            ImageKanvas kanvas(QSize(100, 100), scale);
            kanvas.setPenColour(red);
            kanvas.setPenWidth(width);
            kanvas.line(0.5, 0.51, 2, 0.51);
            kanvas.line(1.03, 1, 1.03, 2);
            const int side = static_cast<int>(100 * scale);
            ASSERT_EQ(kanvas.image().size(), QSize(side, side));
            const int thickness = width * static_cast<int>(std::lround(scale));
            const int across = static_cast<int>(1.2 * centimetre * scale);
            EXPECT_EQ(count(kanvas, redPixel, QRect(across, 0, 1, side / 2)), thickness) << scale;
            const int along = static_cast<int>(1.5 * centimetre * scale);
            EXPECT_EQ(count(kanvas, redPixel, QRect(0, along, side, 1)), thickness) << scale;
            EXPECT_EQ(count(kanvas, whitePixel, QRect(0, along, side, 1)), side - thickness);
            // At the edge of a pixel too a symbol's place is that of a line.
            for (int edge = 1; edge < side; ++edge) {
                const double x = edge / (centimetre * scale);
                kanvas.clear();
                kanvas.line(x, 0, x, 2);
                kanvas.line(kanvas.crisp(x), 0, kanvas.crisp(x), 2);
                EXPECT_LE(count(kanvas, redPixel, QRect(0, 9, side, 1)), thickness) << x;
            }
        }
    }
}

// As much ink in every column, no less where chords meet; broken in two by a place that is none.
TEST(Image, ACurveIsOneStroke)
{
    for (const double scale : {1., 1.5, 2.}) {
        ImageKanvas kanvas(QSize(400, 100), scale);
        kanvas.setPenColour(red);
        kanvas.setPenWidth(2);
        std::vector<Point> places;
        for (int k = 0; k <= 20; ++k)
            places.push_back({k / 2., 1 + .5 * std::sin(k / 20. * 3.1416)});
        kanvas.polyline(places);
        EXPECT_EQ(kanvas.currentX(), 10);
        const auto ink = [&](double column) {
            double sum = 0;
            for (int y = 0; y < kanvas.image().height(); ++y)
                sum += 255 - qGreen(kanvas.image().pixel(static_cast<int>(column), y));
            return sum / 255;
        };
        for (double x = 2; x < 9.9 * centimetre * scale; ++x)
            EXPECT_NEAR(ink(x), 2 * std::round(scale), .15) << scale << " " << x;
        places[7] = {NAN, 1};
        kanvas.clear();
        kanvas.polyline(places);
        EXPECT_EQ(ink(3.5 * centimetre * scale), 0);
        EXPECT_NEAR(ink(2.5 * centimetre * scale) - ink(4.5 * centimetre * scale), 0, .1);
    }
}

TEST(Image, StateSurvivesClearAndResize)
{
    ImageKanvas kanvas(QSize(100, 100));
    kanvas.setBackground(blue);
    kanvas.setPenColour(red);
    kanvas.setPenWidth(3);
    kanvas.setFillOn(true);
    kanvas.setFillColour(white);
    kanvas.resize(QSize(200, 200), 1);
    EXPECT_EQ(at(kanvas, 199, 199), bluePixel);
    kanvas.clear();
    kanvas.circle(2, 2, 1);
    EXPECT_EQ(at(kanvas, 2 * centimetre, 2 * centimetre), whitePixel);
    EXPECT_EQ(at(kanvas, 3 * centimetre, 2 * centimetre), redPixel);
    kanvas.arc(4, 4, .5, 0, 1); // never filled
    EXPECT_EQ(at(kanvas, 4 * centimetre, 4 * centimetre), bluePixel);
}

TEST(Image, ArcsRunCounterClockwiseFromTheRight)
{
    ImageKanvas kanvas(QSize(200, 200));
    kanvas.setPenColour(red);
    kanvas.setPenWidth(3);
    const auto painted = [&](double angle) {
        return at(kanvas, (2 + std::cos(angle)) * centimetre, (2 - std::sin(angle)) * centimetre)
               == redPixel;
    };
    kanvas.arc(2, 2, 1, 3.14159265358979 + 2.1,
               4.2 - 3.14159265358979); // over the right, 119 degrees
    EXPECT_TRUE(painted(0) && painted(-.9) && painted(.9));
    EXPECT_FALSE(painted(1.3) || painted(3) || painted(-1.3));
}

TEST(Image, TextStandsUnderAndRightOfThePointAlsoWhenTurned)
{
    ImageKanvas kanvas(QSize(400, 400));
    kanvas.setPenColour(red);
    kanvas.setFontSize(8);
    kanvas.moveTo(2, 3);
    kanvas.print("WWW");
    EXPECT_EQ(kanvas.currentX(), 0);
    EXPECT_NEAR(kanvas.currentY(), 3 + kanvas.textHeight(), 1e-6);
    const int x = static_cast<int>(2 * centimetre), y = static_cast<int>(3 * centimetre);
    const auto inked = [&](QRect part) {
        return part.width() * part.height() - count(kanvas, whitePixel, part);
    };
    EXPECT_GT(inked(QRect(x, y, 60, 20)), 20);
    EXPECT_EQ(inked(QRect(0, 0, 400, 400)), inked(QRect(x, y, 60, 20)));
    kanvas.clear();
    kanvas.printRotated("WWW", 2, 3, {"Arial", 11, 200}, 900); // upward, its top to the left
    EXPECT_GT(inked(QRect(x, y - 60, 14, 62)), 20);
    EXPECT_EQ(inked(QRect(0, 0, 400, 400)), inked(QRect(x, y - 60, 14, 62)));
    kanvas.clear();
    kanvas.printRotated("WWW", 2, 3, {"Arial", 11, 200}, 2700);
    EXPECT_EQ(inked(QRect(0, 0, 400, 400)), inked(QRect(x - 14, y - 2, 16, 62)));
    // Turned by quarters it is as sharp as level.
    QMap<int, QList<int>> shades;
    for (const int angle : {0, 900, 2700, 3600}) {
        kanvas.clear();
        kanvas.printRotated("142", 2, 3, {"Arial", 11, 200}, angle);
        for (int row = 0; row < 400; ++row)
            for (int column = 0; column < 400; ++column)
                shades[angle] << qGreen(kanvas.image().pixel(column, row));
        std::ranges::sort(shades[angle]);
        EXPECT_EQ(shades[angle], shades[0]) << angle;
    }
}

// The inked height of a capital, in device pixels.
int inkHeight(const ImageKanvas &kanvas)
{
    int height = 0;
    for (int y = 0; y < kanvas.image().height(); ++y)
        height += count(kanvas, whitePixel, QRect(0, y, kanvas.image().width(), 1))
                          < kanvas.image().width()
                      ? 1
                      : 0;
    return height;
}

TEST(Image, FontsFollowTheScaleAndComeBack)
{
    ImageKanvas kanvas(QSize(200, 100));
    kanvas.setPenColour(red);
    kanvas.setFontSize(12);
    const auto printed = [&](bool turned) {
        kanvas.clear();
        kanvas.moveTo(1, 1);
        if (turned)
            kanvas.printRotated("H", 1, 1, {"Arial", 11, 200}, 0);
        else
            kanvas.print("H");
        return inkHeight(kanvas);
    };
    const int upright = printed(false), turned = printed(true);
    const double advance = kanvas.textHeight();
    EXPECT_NEAR(upright, 16 * .72, 1.5);       // capitals of 12 points at 96 dots an inch
    EXPECT_NEAR(turned, 11 / 1.15 * .72, 1.5); // the cell is 11 high, not the letter
    EXPECT_EQ(printed(false), upright);        // the font of before is back
    kanvas.resize(QSize(200, 100), 2);
    EXPECT_NEAR(printed(false), 2 * upright, 2);
    EXPECT_NEAR(printed(true), 2 * turned, 2);
    EXPECT_NEAR(kanvas.textHeight(), advance, .05);
    const auto ink = [&] { return 400 * 200 - count(kanvas, whitePixel, QRect(0, 0, 400, 200)); };
    printed(false);
    const int regular = ink();
    kanvas.setFontBold(true);
    printed(false);
    EXPECT_GT(ink(), regular * 11 / 10);
}

TEST(Image, DottedLinesHaveGapsAndFlatCurvesNoSteps)
{
    ImageKanvas kanvas(QSize(400, 100));
    kanvas.setPenColour(red);
    kanvas.setPenStyle(PenStyle::dotted);
    kanvas.line(0, 1, 10, 1);
    const int row = static_cast<int>(centimetre);
    EXPECT_NEAR(count(kanvas, redPixel, QRect(0, row, 300, 1)), 100, 10);
    kanvas.setPenStyle(PenStyle::solid);
    kanvas.clear();
    std::vector<Point> places;
    for (int k = 0; k <= 20; ++k) // a sag of three pixels
        places.push_back({k / 2., 1 + .08 * std::sin(k / 20. * 3.1416)});
    kanvas.polyline(places);
    const auto weight = [&](int x) { // mean row of the ink of a column
        double sum = 0, ink = 0;
        for (int y = 0; y < 100; ++y) {
            const double dark = 255 - qGreen(kanvas.image().pixel(x, y));
            sum += dark * y;
            ink += dark;
        }
        return sum / ink;
    };
    for (int x = 2; x < 374; ++x)
        EXPECT_LT(std::abs(weight(x) - weight(x - 1)), .6) << x;
}

TEST(Image, PrimitivesFarOutsideAreNoTrouble)
{
    ImageKanvas kanvas(QSize(100, 100));
    kanvas.setPenColour(red);
    for (const double far : {1e4, 1e9, 3e38}) {
        kanvas.line(-far, -far, far, far); // through the middle of what is seen
        kanvas.polyline(std::vector<Point>{{-far, 1}, {1, 1.5}, {far, far}});
        kanvas.circle(far, far, far);
        kanvas.arc(0, 0, far, 0, 1);
        kanvas.point(far, -far);
        kanvas.moveTo(-far, far);
        kanvas.print("text");
        kanvas.printRotated("text", far, far, {"Arial", 11, 200}, 450);
    }
    EXPECT_NE(at(kanvas, 50, 50), whitePixel);
    kanvas.clear();
    kanvas.line(NAN, 0, 1, 1);
    kanvas.line(0, 0, HUGE_VAL, 1);
    EXPECT_EQ(count(kanvas, whitePixel, QRect(0, 0, 100, 100)), 10000);
}

class Pictures : public StoreTest
{};

TEST_F(Pictures, AreWrittenForEachOfTheFiveViews)
{
    std::ostringstream out, err;
    EXPECT_EQ(runBatch({"--pictures", "--out", path("p"), EXAMPLES "/portal_frame.vsk"}, out, err,
                       qtDrawings()),
              batchStatus::allAnalysed)
        << err.str();
    EXPECT_EQ(std::distance(fs::directory_iterator(path("p")), {}), 6);
    QImage previous;
    for (const char *view : {"model", "M", "Q", "N", "D"}) {
        const QImage picture(QString::fromStdString(path("p/portal_frame_") + view + ".png"));
        EXPECT_EQ(picture.size(), QSize(1280, 800)) << view;
        EXPECT_NE(picture, previous) << view;
        previous = picture;
    }
    // At best fit, on the model's own ground, wherever its view was.
    std::string model = contentOf(EXAMPLES "/portal_frame.vsk");
    const auto replaceLine = [&model](int line, const char *text) {
        std::size_t at = model.find("Rithmiseis");
        for (int i = 0; i < line; ++i)
            at = model.find("\r\n", at) + 2;
        model.replace(at, model.find("\r\n", at) - at, text);
    };
    replaceLine(22, "255");
    replaceLine(39, "-5000");
    write(path("moved.vsk"), model);
    EXPECT_EQ(
        runBatch({"--pictures", "--out", path("p"), path("moved.vsk")}, out, err, qtDrawings()),
        batchStatus::allAnalysed);
    const QImage moved(QString::fromStdString(path("p/moved_model.png")));
    EXPECT_EQ(moved.pixel(5, 5), redPixel);
    int dark = 0;
    for (int y = 0; y < moved.height(); ++y)
        dark += moved.pixel(68, y) == 0xFF000000 ? 1 : 0; // the left column, 1.8 cm from the edge
    EXPECT_GT(dark, 400);

    fs::create_directories(path("q/portal_frame_M.png"));
    EXPECT_EQ(runBatch({"--pictures", "--out", path("q"), EXAMPLES "/portal_frame.vsk"}, out, err,
                       qtDrawings()),
              batchStatus::someFailed);
    EXPECT_NE(err.str().find("q/portal_frame_M.png: "), std::string::npos);
}

TEST_F(Pictures, StandInTheStepsOfTheAnalysis)
{
    buildModel("G 2e8 .01 1e-4; N 0 0 xxx; N 3 4; N 8 4; E 1 2 1; E 2 3 1");
    std::string model = path("frame.vsk");
    ASSERT_TRUE(Apothikefsi_Arxeiou(model, true));
    std::ostringstream out, err;
    EXPECT_EQ(runBatch({"--steps", "--steps-elements", "1,4-5", "--steps-digits", "3", "--out",
                        path("s"), model},
                       out, err, qtDrawings()),
              batchStatus::allAnalysed);
    EXPECT_NE(err.str().find("frame_steps.html: the model has no elements 4 and 5\n"),
              std::string::npos);
    const std::string html = contentOf(path("s/frame_steps.html"));
    std::vector<QImage> images;
    for (std::size_t at = 0; (at = html.find("src=\"data:", at)) != std::string::npos; ++at) {
        const std::size_t data = html.find(',', at) + 1;
        images.push_back(QImage::fromData(QByteArray::fromPercentEncoding(QByteArray::fromStdString(
                                              html.substr(data, html.find('"', data) - data))),
                                          "svg"));
        EXPECT_FALSE(images.back().isNull());
    }
    EXPECT_EQ(images.size(), 3U); // freedoms, pattern, element 1
    EXPECT_NE(html.find("20000000"), std::string::npos);
}

TEST_F(Pictures, AreShapedForSlidesAndHoldTheDiagram)
{
    const auto has = [](const QImage &part, bool (*holds)(const QColor &)) {
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x)
                if (holds(part.pixelColor(x, y)))
                    return true;
        return false;
    };
    buildModel("G 2e8 .01 1e-4; N 0 0 xxx; N 0 4; N 8 4; N 8 0 xxx; E 1 2 1; E 2 3 1 0 0 0 -900;"
               "E 3 4 1");
    std::string model = path("large.vsk");
    ASSERT_TRUE(Apothikefsi_Arxeiou(model, true));
    using Options = std::vector<std::string>;
    for (const auto &[options, size, isCut, labelScale] :
         {std::tuple{Options{}, QSize(1280, 800), true, 1},
          {Options{"--fit", "--size", "640x480"}, QSize(640, 480), false, 1},
          {Options{"--fit", "--size", "640x480", "--label-scale", "2"}, QSize(640, 480), false,
           2}}) {
        Options arguments = {"--pictures", "--out", path("s"), model};
        arguments.insert(arguments.end(), options.begin(), options.end());
        std::ostringstream out, err;
        EXPECT_EQ(runBatch(arguments, out, err, qtDrawings()), batchStatus::allAnalysed)
            << err.str();
        EXPECT_EQ(err.str().find("large_M.png: the diagram leaves") != std::string::npos, isCut);
        const QImage picture(QString::fromStdString(path("s/large_M.png")));
        ASSERT_EQ(picture.size(), size);
        const QImage edge = picture.copy(size.width() - 1, 0, 1, size.height()); // the grid is grey
        EXPECT_EQ(has(edge, [](const QColor &c) { return c.saturation() > 100; }), isCut);
        int bottom = 10; // of the heading's letter
        const auto isDark = [](const QColor &c) { return qGray(c.rgb()) < 120; };
        while (has(picture.copy(0, bottom, 30, 1), isDark))
            ++bottom;
        EXPECT_NEAR(bottom, 16 * labelScale, 4); // pixels of 12 points
    }

    buildModel("G 2e8 .01 1e-4; N 0 0; N 0 4; E 1 2 1");
    model = path("loose.vsk");
    ASSERT_TRUE(Apothikefsi_Arxeiou(model, true));
    std::ostringstream out, err;
    EXPECT_EQ(runBatch({"--pictures", "--out", path("t"), model}, out, err, qtDrawings()),
              batchStatus::someFailed);
    EXPECT_EQ(std::distance(fs::directory_iterator(path("t")), {}), 1);
    EXPECT_TRUE(fs::exists(path("t/loose_model.png")));
}

} // namespace
} // namespace veskora
