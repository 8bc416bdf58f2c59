// What is really painted: the canvas's image, and the pictures of the batch runner.

#include "Batch.h"
#include "Files.h"
#include "ImageKanvas.h"
#include "Models.h"
#include "ScriptedDesktop.h"

#include <QImage>
#include <QList>
#include <QMap>

#include <algorithm>
#include <set>
#include <sstream>
#include <vector>

namespace fs = std::filesystem;

namespace veskora {
namespace {

constexpr double red = 255, blue = 0xFF0000, white = 0xFFFFFF;
constexpr double centimetre = 96 / 2.54; // pixels

constexpr QRgb redPixel = 0xFFFF0000, bluePixel = 0xFF0000FF, whitePixel = 0xFFFFFFFF;

int count(const QImage &image, QRgb colour, QRect part)
{
    int pixels = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            pixels += image.pixel(x, y) == colour ? 1 : 0;
    return pixels;
}

/// With a red pen on white.
class Image : public testing::Test
{
protected:
    Image() { kanvas.setPenColour(red); }
    QRgb at(double x, double y) const
    {
        return kanvas.image().pixel(static_cast<int>(x * centimetre),
                                    static_cast<int>(y * centimetre))
               | 0xFF000000;
    }
    int reds(QRect part) const { return count(kanvas.image(), redPixel, part); }
    /// Pixels that are not white.
    int inked(QRect part) const
    {
        return part.width() * part.height() - count(kanvas.image(), whitePixel, part);
    }

    ImageKanvas kanvas{QSize(400, 400)};
};

TEST_F(Image, StraightLinesCoverWholePixelsAtEveryScale)
{
    for (const double scale : {1., 1.5, 2.})
        for (const int width : {1, 2, 3}) {
            SCOPED_TRACE(testing::Message() << scale << ' ' << width);
            kanvas.resize(QSize(100, 100), scale);
            kanvas.setPenWidth(width);
            kanvas.line(0.5, 0.51, 2, 0.51);
            kanvas.line(1.03, 1, 1.03, 2);
            const int side = static_cast<int>(100 * scale);
            ASSERT_EQ(kanvas.image().size(), QSize(side, side));
            const int thickness = width * static_cast<int>(std::lround(scale));
            const int across = static_cast<int>(1.2 * centimetre * scale);
            EXPECT_EQ(reds(QRect(across, 0, 1, side / 2)), thickness);
            const QRect along(0, static_cast<int>(1.5 * centimetre * scale), side, 1);
            EXPECT_EQ(reds(along), thickness);
            EXPECT_EQ(inked(along), thickness);
            // At the edge of a pixel too a symbol's place is that of a line.
            for (int edge = 1; edge < side; ++edge) {
                const double x = edge / (centimetre * scale);
                kanvas.clear();
                kanvas.line(x, 0, x, 2);
                kanvas.line(kanvas.crisp(x), 0, kanvas.crisp(x), 2);
                EXPECT_LE(reds(QRect(0, 9, side, 1)), thickness) << x;
            }
        }
}

TEST_F(Image, StateSurvivesClearAndResize)
{
    kanvas.setBackground(blue);
    kanvas.setPenWidth(3);
    kanvas.setFillOn(true);
    kanvas.setFillColour(white);
    kanvas.resize(QSize(200, 200), 1);
    EXPECT_EQ(at(5.2, 5.2), bluePixel);
    kanvas.clear();
    kanvas.circle(2, 2, 1);
    EXPECT_EQ(at(2, 2), whitePixel);
    EXPECT_EQ(at(3, 2), redPixel);
    kanvas.arc(4, 4, .5, 0, 1); // never filled
    EXPECT_EQ(at(4, 4), bluePixel);
    kanvas.clear(); // counter-clockwise from the right, over it: 119 degrees
    kanvas.arc(2, 2, 1, 3.14159265358979 + 2.1, 4.2 - 3.14159265358979);
    for (const auto &[angle, isPainted] :
         {std::pair{0., true}, {-.9, true}, {.9, true}, {1.3, false}, {3., false}, {-1.3, false}})
        EXPECT_EQ(at(2 + std::cos(angle), 2 - std::sin(angle)) == redPixel, isPainted) << angle;
    kanvas.setPenWidth(1);
    kanvas.setPenStyle(PenStyle::dotted);
    kanvas.clear();
    kanvas.line(0, 1, 10, 1);
    EXPECT_NEAR(reds(QRect(0, static_cast<int>(centimetre), 180, 1)), 60, 6);
}

TEST_F(Image, TextStandsUnderAndRightOfThePoint)
{
    kanvas.setFontSize(8);
    kanvas.moveTo(2, 3);
    kanvas.print("WWW");
    EXPECT_EQ(kanvas.currentX(), 0);
    EXPECT_NEAR(kanvas.currentY(), 3 + kanvas.textHeight(), 1e-6);
    const int x = static_cast<int>(2 * centimetre), y = static_cast<int>(3 * centimetre);
    EXPECT_GT(inked(QRect(x, y, 60, 20)), 20);
    EXPECT_EQ(inked(kanvas.image().rect()), inked(QRect(x, y, 60, 20)));
}

TEST_F(Image, FontsFollowTheScaleAndComeBack)
{
    kanvas.resize(QSize(200, 100), 1);
    kanvas.setFontSize(12);
    const auto rows = [&](bool turned) { // that a capital covers, device pixels
        kanvas.clear();
        kanvas.moveTo(1, 1);
        if (turned)
            kanvas.printRotated("H", 1, 1, {"Arial", 11, 200}, 0);
        else
            kanvas.print("H");
        int height = 0;
        for (int y = 0; y < kanvas.image().height(); ++y)
            height += inked(QRect(0, y, kanvas.image().width(), 1)) > 0 ? 1 : 0;
        return height;
    };
    const int upright = rows(false), turned = rows(true);
    const double advance = kanvas.textHeight();
    EXPECT_NEAR(upright, 16 * .72, 1.5);       // capitals of 12 points at 96 dots an inch
    EXPECT_NEAR(turned, 11 / 1.15 * .72, 1.5); // the cell is 11 high, not the letter
    EXPECT_EQ(rows(false), upright);           // the font of before is back
    kanvas.resize(QSize(200, 100), 2);
    EXPECT_NEAR(rows(true), 2 * turned, 2);
    EXPECT_NEAR(rows(false), 2 * upright, 2);
    EXPECT_NEAR(kanvas.textHeight(), advance, .05);
    const int regular = inked(kanvas.image().rect());
    kanvas.setFontBold(true);
    rows(false);
    EXPECT_GT(inked(kanvas.image().rect()), regular * 11 / 10);
}

TEST_F(Image, PrimitivesFarOutsideAreNoTrouble)
{
    kanvas.resize(QSize(100, 100), 1);
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
    EXPECT_NE(at(1.32, 1.32), whitePixel);
    kanvas.clear();
    kanvas.line(NAN, 0, 1, 1);
    kanvas.line(0, 0, HUGE_VAL, 1);
    EXPECT_EQ(inked(QRect(0, 0, 100, 100)), 0);
}

class Pictures : public StoreTest
{
protected:
    /// Runs the batch runner with the options that stand between blanks, the folder and the model.
    int run(const QString &options, const std::string &folder, const std::string &model)
    {
        std::vector<std::string> arguments = {"--out", path(folder), model};
        for (const QString &option : options.split(' '))
            arguments.push_back(option.toStdString());
        std::ostringstream out, err;
        const int status = runBatch(arguments, out, err);
        said = err.str();
        return status;
    }
    int runOf(const char *model, const QString &options, const std::string &folder)
    {
        buildModel(model);
        std::string file = path("m.vsk");
        EXPECT_TRUE(Apothikefsi_Arxeiou(file, true));
        return run(options, folder, file);
    }
    auto filesIn(const std::string &folder)
    {
        return std::distance(fs::directory_iterator(path(folder)), {});
    }
    QImage picture(const std::string &file) { return QImage(QString::fromStdString(path(file))); }

    std::string said;
};

TEST_F(Pictures, AreWrittenOfEachOfTheFiveViewsInEachKindOrdered)
{
    const std::string portal = EXAMPLES "/portal_frame.vsk";
    for (const auto &[option, files, ending, begin] :
         {std::tuple{"--pictures=svg,pdf", 1 + 10, ".svg", "<?xml"},
          {"--pictures=svg,pdf", 1 + 10, ".pdf", "%PDF"},
          {"--pictures=png", 1 + 5, ".png", "\x89PNG"},
          {"--pictures", 1 + 5, ".png", "\x89PNG"}}) {
        EXPECT_EQ(run(option, option, portal), batchStatus::allAnalysed) << said;
        EXPECT_EQ(filesIn(option), files) << "with the report";
        std::set<std::string> contents;
        for (const char *view : {"model", "M", "Q", "N", "D"}) {
            const std::string file = contentOf(path(option) + "/portal_frame_" + view + ending);
            EXPECT_TRUE(file.starts_with(begin)) << view << ending;
            EXPECT_TRUE(contents.insert(file).second) << view << ending;
        }
    }
    EXPECT_EQ(picture("--pictures/portal_frame_D.png").size(), QSize(1280, 800));
    // At best fit, on the model's own ground, wherever its view was.
    QStringList lines = QString::fromStdString(contentOf(portal)).split("\r\n");
    const auto settings = lines.indexOf("Rithmiseis");
    lines[settings + 22] = "255";
    lines[settings + 39] = "-5000";
    write(path("moved.vsk"), lines.join("\r\n").toStdString());
    EXPECT_EQ(run("--pictures", "p", path("moved.vsk")), batchStatus::allAnalysed);
    const QImage moved = picture("p/moved_model.png");
    EXPECT_EQ(moved.pixel(5, 5), redPixel);
    // The left column, 1.8 cm from the edge.
    EXPECT_GT(count(moved, 0xFF000000, QRect(68, 0, 1, moved.height())), 400);

    fs::create_directories(path("q/portal_frame_M.png"));
    EXPECT_EQ(run("--pictures", "q", portal), batchStatus::someFailed);
    EXPECT_NE(said.find("q/portal_frame_M.png: "), std::string::npos);
    EXPECT_EQ(runOf("G 2e8 .01 1e-4; N 0 0; N 0 4; E 1 2 1", "--pictures", "t"),
              batchStatus::someFailed);
    EXPECT_EQ(filesIn("t"), 1);
    EXPECT_TRUE(fs::exists(path("t/m_model.png")));
}

TEST_F(Pictures, StandInTheStepsOfTheAnalysis)
{
    EXPECT_EQ(runOf("G 2e8 .01 1e-4; N 0 0 xxx; N 3 4; N 8 4; E 1 2 1; E 2 3 1",
                    "--steps --steps-elements 1,4-5 --steps-digits 3", "s"),
              batchStatus::allAnalysed);
    EXPECT_NE(said.find("m_steps.html: the model has no elements 4 and 5\n"), std::string::npos);
    const QStringList parts =
        QString::fromStdString(contentOf(path("s/m_steps.html"))).split("src=\"data:");
    EXPECT_EQ(parts.size(), 1 + 3); // freedoms, pattern, element 1
    for (const QString &part : parts.mid(1)) {
        const QString data = part.section('"', 0, 0).section(',', 1);
        EXPECT_FALSE(
            QImage::fromData(QByteArray::fromPercentEncoding(data.toUtf8()), "svg").isNull());
    }
    EXPECT_TRUE(parts.join("").contains("20000000"));
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
    for (const auto &[options, size, isCut, labelScale] :
         {std::tuple{"--pictures", QSize(1280, 800), true, 1},
          {"--pictures --fit --size 640x480", QSize(640, 480), false, 1},
          {"--pictures --fit --size 640x480 --label-scale 2", QSize(640, 480), false, 2}}) {
        SCOPED_TRACE(options);
        EXPECT_EQ(runOf("G 2e8 .01 1e-4; N 0 0 xxx; N 0 4; N 8 4; N 8 0 xxx; E 1 2 1;"
                        "E 2 3 1 0 0 0 -900; E 3 4 1",
                        options, "s"),
                  batchStatus::allAnalysed)
            << said;
        EXPECT_EQ(said.find("m_M.png: the diagram leaves") != std::string::npos, isCut);
        const QImage M = picture("s/m_M.png");
        ASSERT_EQ(M.size(), size);
        const QImage edge = M.copy(size.width() - 1, 0, 1, size.height()); // the grid is grey
        EXPECT_EQ(has(edge, [](const QColor &c) { return c.saturation() > 100; }), isCut);
        int bottom = 10; // of the heading's letter
        const auto isDark = [](const QColor &c) { return qGray(c.rgb()) < 120; };
        while (has(M.copy(0, bottom, 30, 1), isDark))
            ++bottom;
        EXPECT_NEAR(bottom, 16 * labelScale, 4); // pixels of 12 points
    }
}

} // namespace
} // namespace veskora
