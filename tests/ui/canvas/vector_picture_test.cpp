// Pictures of vectors: SVG primitive by primitive, PDF as other programs read it.

#include "AnalysisCommands.h"
#include "Files.h"
#include "Metablites.h"
#include "PaperKanvas.h"
#include "ScriptedDesktop.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "SystemPrograms.h"
#include "VectorPicture.h"
#include "Zoom.h"

#include <QLocale>
#include <QRawFont>
#include <QRegularExpression>

#include <gmock/gmock.h>

namespace veskora {
namespace {

using testing::HasSubstr;

constexpr double toPixels = 96 / 2.54; // of a centimetre

class VectorPictures : public StoreTest
{
protected:
    /// Of the view @p shown of an example that has been analysed.
    static std::string pictureOf(const char *example, std::int16_t shown, VectorForm form)
    {
        std::string file = std::string(EXAMPLES) + "/" + example + ".vsk";
        EXPECT_TRUE(Anagnosi_Arxeiou(file));
        Button_Epilisi();
        nai_times_M = nai_times_Q = nai_times_N = true;
        return vectorPicture(form, {1280, 800}, "a < \x01 b", [shown](VectorKanvas &) {
            Katastasi_Provolis = shown;
            Zoom_Best_Fit();
            Ananeosi_Sxediou();
        });
    }
};

/// An SVG file without its fonts and the outlines of letters.
std::string shapesOf(const std::string &svg)
{
    static const QRegularExpression data(R"(\s*<(style|defs)>.*</\g1>)",
                                         QRegularExpression::DotMatchesEverythingOption
                                             | QRegularExpression::InvertedGreedinessOption);
    return QString::fromStdString(svg).remove(data).toStdString();
}

// A font of 36 points is 48 pixels high, of which 43.453 stand above the base line. The shapes of
// letters, and the fonts, are left out.
TEST_F(VectorPictures, AnSvgFileHasEachPrimitiveInItsPen)
{
    const std::string svg =
        vectorPicture(VectorForm::svg, {640, 480}, "a < \x01 b", [](VectorKanvas &kanvas) {
            constexpr double in = 2.54;
            kanvas.setBackground(0x804020);
            kanvas.clear();
            kanvas.setPenColour(0x0000FF);
            kanvas.setPenWidth(2);
            kanvas.line(in, 2 * in, 3 * in, 4 * in);
            kanvas.setPenStyle(PenStyle::dotted);
            kanvas.polyline(
                std::vector<Point>{{0, 0}, {in, 0}, {in, in}, {NAN, 0}, {0, in}, {0, 0}});
            kanvas.setPenStyle(PenStyle::solid);
            kanvas.setPenWidth(3);
            kanvas.point(in, in);
            kanvas.setFillColour(0x00FF00);
            kanvas.circle(in, in, in);
            kanvas.setFillOn(true);
            kanvas.circle(in, in, 2 * in);
            for (const double end : {1.5, 4.5, 6.2831853, 0.})
                kanvas.arc(2 * in, 2 * in, in, 0, end);
            kanvas.setFontSize(36);
            kanvas.moveTo(in, in);
            kanvas.print("  two blanks  ");
            kanvas.print("below");
            kanvas.setFontBold(true);
            kanvas.moveTo(in, 3 * in);
            kanvas.printOnGround("o");
            kanvas.printValue(7, {1, {in, in}, {in, 2 * in}});
            kanvas.moveTo(9 * in, in);
            kanvas.print("unseen");
            kanvas.printRotated("up", 2 * in, in, {"Arial", 48, 400, true, true}, 900);
        });
    EXPECT_EQ(shapesOf(svg), contentOf(TEST_DATA "/primitives.svg"));
}

TEST_F(VectorPictures, AnSvgFileOfADiagramHasItsFontsAndEachValueOnce)
{
    for (const auto &[example, shown, texts] :
         {std::tuple{"portal_frame", view::M, 15}, // of 8 values three stand at their node twice
          {"portal_frame", view::Q, 16},
          {"supports", view::model, 54},
          {"gable_frame", view::deformed, 19},
          // Of 66: the bottom chord has one force left and right of its middle.
          {"truss", view::N, 103},
          {"limit", view::model, 2}}) {
        const std::string svg = pictureOf(example, shown, VectorForm::svg);
        EXPECT_EQ(svg, pictureOf(example, shown, VectorForm::svg)) << example;
        EXPECT_EQ(QString::fromStdString(svg).count("<text"), texts) << example;
        const QRegularExpression data("base64,([^)]*)");
        auto found = data.globalMatch(QString::fromStdString(svg));
        EXPECT_TRUE(found.hasNext()) << example;
        while (found.hasNext()) {
            const QRawFont font(QByteArray::fromBase64(found.next().captured(1).toLatin1()), 100);
            EXPECT_TRUE(font.isValid() && !font.fontTable("glyf").isEmpty()) << example;
        }
    }
}

TEST_F(VectorPictures, APdfFileIsOnePageOfVectorsThatOthersCanSearch)
{
    write(path("m.pdf"), pictureOf("portal_frame", view::M, VectorForm::pdf));
    const auto told = [this](const char *program, QStringList arguments) {
        return output(program,
                      arguments.replaceInStrings("FILE", QString::fromStdString(path("m.pdf"))));
    };
    EXPECT_THAT(told("pdfinfo", {"FILE"}).toStdString(),
                testing::AllOf(HasSubstr("Pages:           1\n"),
                               HasSubstr("Page size:       960 x 600 pts"),
                               HasSubstr("Title:           a <  b\n")));
    EXPECT_EQ(told("pdfimages", {"-list", "FILE"}).count('\n'), 2); // the heading
    const QString fonts = told("pdffonts", {"FILE"});
    EXPECT_EQ(fonts.count('\n'), 4) << fonts.toStdString();           // plain and bold
    EXPECT_EQ(fonts.count(" yes no  yes"), 2) << fonts.toStdString(); // embedded, with Unicode
    EXPECT_EQ(told("pdftotext", {"FILE", "-"}).simplified().split(' ').count("-113.6"), 1);
}

TEST_F(VectorPictures, WhatLiesFarOutsideIsCutAndNumbersHaveAPoint)
{
    QLocale::setDefault(QLocale::German);
    for (const VectorForm form : {VectorForm::svg, VectorForm::pdf}) {
        const std::string file = vectorPicture(form, {100, 100}, "", [](VectorKanvas &kanvas) {
            for (const double far : {1e4, 1e9, 3e38}) {
                kanvas.line(-far, -far, far, far);
                kanvas.polyline(std::vector<Point>{{-far, 1}, {1, 1.5}, {far, far}});
                kanvas.circle(far, far, far);
                kanvas.arc(0, 0, far, 0, 1);
                kanvas.moveTo(-far, far);
                kanvas.print("text");
            }
        });
        EXPECT_LT(file.size(), 4000U);
        if (form == VectorForm::svg) { // of twelve; nobody sees the others
            EXPECT_EQ(shapesOf(file), contentOf(TEST_DATA "/far_outside.svg"));
        }
    }
    QLocale::setDefault(QLocale::C);
}

TEST_F(VectorPictures, ForPrintNothingIsTooPaleTooThinOrTooSmall)
{
    constexpr double yellow = 0x00FFFF, darkBlue = 0x800000, pale = 0xE0E0E0;
    QImage page(1000, 1000, QImage::Format_RGB32); // ten of its pixels to one of the canvas
    page.fill(Qt::green);
    QPainter painter(&page);
    PaperKanvas kanvas(painter, page.rect(), 10 * toPixels);
    kanvas.setForPrint();
    kanvas.setBackground(darkBlue);
    kanvas.setFillColour(darkBlue);
    kanvas.setFillOn(true);
    kanvas.clear();
    const auto columnAt = [&](int x, double top, double bottom) { // without the page's green
        std::vector<QColor> inked;
        for (int row = static_cast<int>(top * 10 * toPixels); row < bottom * 10 * toPixels; ++row)
            if (page.pixelColor(x, row) != QColor(Qt::green))
                inked.push_back(page.pixelColor(x, row));
        return inked;
    };
    const auto lineOf = [&](double colour) {
        kanvas.setPenColour(colour);
        kanvas.line(0.2, .5, 2, .5);
        return columnAt(400, .3, .7);
    };
    EXPECT_NEAR(static_cast<double>(lineOf(darkBlue).size()), 6.67, 1); // half a point
    EXPECT_EQ(lineOf(darkBlue).front(), QColor(0, 0, 128));
    EXPECT_LT(lineOf(yellow).front().red(), 130); // 4.5 to 1
    EXPECT_GT(lineOf(yellow).front().red(), 110);
    EXPECT_EQ(lineOf(yellow).front().blue(), 0);
    EXPECT_EQ(lineOf(pale).front(), QColor(Qt::black));
    kanvas.circle(2, 2, .2); // what hides the lines under a hinge is the paper
    EXPECT_EQ(columnAt(static_cast<int>(20 * toPixels), 1.9, 2.1).front(), QColor(Qt::white));
    kanvas.setFontSize(2);
    kanvas.moveTo(0.2, 2.2);
    kanvas.print("|||");
    kanvas.finish();
    std::size_t highest = 0;
    for (int x = 70; x < 200; ++x)
        highest = std::max(highest, columnAt(x, 2.2, 2.6).size());
    EXPECT_GT(highest, 60U); // of six points; of two it would be 27 at most
    EXPECT_EQ(columnAt(990, 0, 2.6).size(), 0U);
}

TEST_F(VectorPictures, ALineRightBeforeAValueDoesNotMakeItNegative)
{
    for (const auto &[value, isCovered] : {std::pair{7.0, true}, {-7.0, false}}) {
        QImage page(1000, 1000, QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        PaperKanvas kanvas(painter, page.rect(), 10 * toPixels);
        kanvas.setFontSize(7);
        kanvas.line(0, 1.175, 1.06, 1.175); // at the height of a minus
        kanvas.moveTo(1, 1);
        kanvas.printValue(value, {1, {1, 2}, {1, 1}});
        kanvas.finish();
        const int nearIt = static_cast<int>((value > 0 ? 1.0 : 0.95) * 10 * toPixels);
        const int at = static_cast<int>(1.175 * 10 * toPixels);
        EXPECT_EQ(page.pixelColor(nearIt, at) == QColor(Qt::white), isCovered) << value;
    }
}

} // namespace
} // namespace veskora
