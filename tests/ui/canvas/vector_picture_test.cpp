// Pictures of vectors: SVG held against what was drawn, PDF as other programs read it.

#include "AnalysisCommands.h"
#include "Files.h"
#include "Metablites.h"
#include "PaperKanvas.h"
#include "QtColour.h"
#include "QtDrawings.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "SystemPrograms.h"
#include "VectorPicture.h"
#include "Zoom.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QRawFont>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>
#include <set>
#include <sstream>

namespace veskora {
namespace {

constexpr double pixels = 96 / 2.54; // of a centimetre
constexpr double fine = 2e-3;        // pixels: the file has three decimals
constexpr double blank = 4;          // no wider is that in front of a number
constexpr double pictureWidth = 1280, pictureHeight = 800;

/// Knows which texts are values of ordinates, and has lines of text as high as those of the files.
class Recorder : public RecordingKanvas
{
public:
    std::set<std::size_t> values; ///< places in `drawn`

protected:
    void doPrintValue(const std::string &text, float x, float y, const Ordinate &) override
    {
        values.insert(drawn.size());
        doPrint(text, x, y);
    }
    double lineAdvance() const override
    {
        QFont font(canvasFontFace);
        font.setPixelSize(1000);
        return QFontMetricsF(font).height() / 1000 * pen.fontSize / 0.75 / pixels;
    }
};

struct Element
{
    QString name, text;
    QXmlStreamAttributes attributes;
    double operator()(const char *key) const { return attributes.value(key).toDouble(); }
};

/// What is drawn and not a halo; each line of a polyline by itself.
std::vector<Element> elementsOf(const std::string &svg)
{
    std::vector<Element> found;
    QXmlStreamReader reader(QByteArray::fromStdString(svg));
    while (!reader.atEnd()) {
        const bool begins = reader.readNext() == QXmlStreamReader::StartElement;
        const QString name = reader.name().toString();
        if (!begins || name == "svg")
            continue;
        if (name == "polyline") {
            const QStringList at = reader.attributes().value("points").toString().split(' ');
            for (qsizetype i = 1; i < at.size(); ++i) {
                QXmlStreamAttributes line = reader.attributes();
                for (const int end : {1, 2})
                    for (const int axis : {0, 1})
                        line.append(QString(axis == 0 ? "x%1" : "y%1").arg(end),
                                    at[i - 2 + end].split(',')[axis]);
                found.push_back({"line", {}, line});
            }
        } else if (name != "g" && name != "title" && name != "style" && name != "defs") {
            QXmlStreamAttributes attributes = reader.attributes();
            const QString arc = attributes.value("d").toString().mid(1).section(' ', 0, 0);
            attributes.append("x1", arc.section(',', 0, 0)); // where it begins
            attributes.append("y1", arc.section(',', 1));
            found.push_back({name, name == "text" ? reader.readElementText() : "", attributes});
            if (name == "text")
                continue;
        }
        reader.skipCurrentElement();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return found;
}

class VectorPictures : public StoreTest
{
protected:
    static void open(const char *example)
    {
        std::string file = std::string(EXAMPLES) + "/" + example + ".vsk";
        ASSERT_TRUE(Anagnosi_Arxeiou(file));
        Button_Epilisi();
        nai_times_M = nai_times_Q = nai_times_N = true;
    }
    static void draw(std::int16_t shown)
    {
        Katastasi_Provolis = shown;
        Zoom_Best_Fit();
        Ananeosi_Sxediou();
    }
    static std::string drawn(VectorForm form, std::int16_t shown)
    {
        return vectorPicture(form, {pictureWidth, pictureHeight}, "a < \x01 b",
                             [shown](VectorKanvas &) { draw(shown); });
    }
};

using Lengths = std::vector<std::pair<const char *, double>>;

/// What the element of @p p has, centimetres.
Lengths lengthsOf(const Primitive &p)
{
    switch (p.kind) {
    case Primitive::Kind::line:
        return {{"x1", p.x}, {"y1", p.y}, {"x2", p.x2}, {"y2", p.y2}};
    case Primitive::Kind::arc:
        return {{"x1", p.x + p.radius * std::cos(p.start)},
                {"y1", p.y - p.radius * std::sin(p.start)}};
    case Primitive::Kind::point:
        return {{"cx", p.x}, {"cy", p.y}, {"r", p.pen.width / 2. / pixels}};
    default:
        return {{"cx", p.x}, {"cy", p.y}, {"r", p.radius}};
    }
}

void expectSame(const Element &e, const Primitive &p)
{
    const auto colour = [](double word) { return qtColour(word).name(); };
    for (const auto &[key, length] : lengthsOf(p))
        EXPECT_NEAR(e(key), length * pixels, fine) << key;
    const bool isPoint = p.kind == Primitive::Kind::point;
    const bool isFilled = p.kind == Primitive::Kind::circle && p.pen.fillOn;
    EXPECT_EQ(e("stroke-width"), isPoint ? 0 : p.pen.width);
    EXPECT_EQ(e.attributes.value("stroke"), isPoint ? "" : colour(p.pen.colour));
    EXPECT_EQ(e.attributes.value("fill"), isPoint    ? colour(p.pen.colour)
                                          : isFilled ? colour(p.pen.fillColour)
                                                     : "");
    EXPECT_EQ(e.attributes.hasAttribute("stroke-dasharray"), p.pen.style == PenStyle::dotted);
}

/// Whether @p svg has fonts, all of which can be read.
bool hasItsFonts(const std::string &svg)
{
    const QRegularExpression data("base64,([^)]*)");
    auto found = data.globalMatch(QString::fromStdString(svg));
    bool areRead = found.hasNext();
    while (found.hasNext()) {
        const QRawFont font(QByteArray::fromBase64(found.next().captured(1).toLatin1()), 100);
        areRead = areRead && font.isValid() && !font.fontTable("glyf").isEmpty();
    }
    return areRead;
}

TEST_F(VectorPictures, AnSvgFileIsPrimitiveByPrimitiveWhatWasDrawn)
{
    struct Case
    {
        const char *example;
        std::int16_t shown;
        std::size_t values; ///< that are written
    };
    for (const Case &c : {Case{"portal_frame", view::M, 5}, // of 8, three stand at their node twice
                          {"portal_frame", view::Q, 7},
                          {"supports", view::model, 0},
                          {"gable_frame", view::deformed, 0},
                          // Of 66: the bottom chord has one force left and right of its middle.
                          {"truss", view::N, 65},
                          {"limit", view::model, 0}}) {
        open(c.example);
        Recorder seen;
        seen.w = pictureWidth / pixels;
        seen.h = pictureHeight / pixels;
        setPicture1(&seen);
        draw(c.shown);
        const std::string svg = drawn(VectorForm::svg, c.shown);
        EXPECT_EQ(svg, drawn(VectorForm::svg, c.shown)) << c.example;
        std::vector<Primitive> shapes, values, texts;
        for (std::size_t i = 0; i < seen.drawn.size(); ++i) {
            const Primitive &p = seen.drawn[i];
            const bool isText =
                p.kind == Primitive::Kind::text || p.kind == Primitive::Kind::turnedText;
            (seen.values.contains(i) ? values : isText ? texts : shapes).push_back(p);
        }
        std::vector<Element> elements = elementsOf(svg);
        ASSERT_EQ(elements.front().name, "rect"); // the ground
        elements.erase(elements.begin());
        const auto firstText = std::find_if(elements.begin(), elements.end(),
                                            [](const Element &e) { return e.name == "text"; });
        ASSERT_EQ(static_cast<std::size_t>(firstText - elements.begin()), shapes.size());
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            SCOPED_TRACE(std::string(c.example) + ", primitive " + std::to_string(i));
            expectSame(elements[i], shapes[i]);
        }
        std::size_t written = 0;
        auto next = texts.begin();
        for (auto e = firstText; e != elements.end(); ++e) {
            const auto isThis = [&](const Primitive &p) {
                return QString::fromStdString(p.text).trimmed() == e->text;
            };
            if (next != texts.end() && isThis(*next)
                && std::abs((*e)("x") - next->x * pixels) < blank) {
                EXPECT_GT((*e)("y"), next->y * pixels);
                EXPECT_LT((*e)("y"), next->y * pixels + (*e)("font-size") + blank);
                ++next;
            } else {
                EXPECT_TRUE(std::any_of(values.begin(), values.end(), isThis))
                    << e->text.toStdString();
                ++written;
            }
        }
        EXPECT_EQ(next, texts.end()) << c.example;
        EXPECT_EQ(written, c.values) << c.example;
        EXPECT_TRUE(hasItsFonts(svg)) << c.example;
        setPicture1(nullptr);
    }
}

TEST_F(VectorPictures, APdfFileIsOnePageOfVectorsThatOthersCanSearch)
{
    open("portal_frame");
    write(path("m.pdf"), drawn(VectorForm::pdf, view::M));
    const QString file = QString::fromStdString(path("m.pdf"));
    const std::string facts = output("pdfinfo", {file}).toStdString();
    EXPECT_NE(facts.find("Pages:           1\n"), std::string::npos) << facts;
    EXPECT_NE(facts.find("Page size:       960 x 600 pts"), std::string::npos) << facts;
    EXPECT_NE(facts.find("Title:           a <  b\n"), std::string::npos) << facts;
    const auto lines = [](const std::string &text) { return std::ranges::count(text, '\n'); };
    EXPECT_EQ(lines(output("pdfimages", {"-list", file}).toStdString()), 2); // the heading
    const std::string fonts = output("pdffonts", {file}).toStdString();
    EXPECT_EQ(lines(fonts), 4) << fonts;                             // plain and bold
    EXPECT_EQ(fonts.find(" no  "), fonts.find(" no  yes")) << fonts; // embedded, with Unicode
    std::istringstream words(output("pdftotext", {file, "-"}).toStdString());
    EXPECT_EQ(std::count(std::istream_iterator<std::string>(words), {}, "-113.6"), 1);
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
        if (form == VectorForm::pdf)
            continue;
        for (const Element &e : elementsOf(file)) {
            EXPECT_EQ(e.name, "line"); // of twelve; nobody sees the others
            for (const char *key : {"x1", "y1", "x2", "y2"})
                EXPECT_LE(std::abs(e(key)), 32000) << key;
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
    PaperKanvas kanvas(painter, page.rect(), 10 * pixels);
    kanvas.setForPrint();
    kanvas.setBackground(darkBlue);
    kanvas.setFillColour(darkBlue);
    kanvas.setFillOn(true);
    kanvas.clear();
    const auto columnAt = [&](int x, double top, double bottom) { // without the page's green
        std::vector<QColor> inked;
        for (int row = static_cast<int>(top * 10 * pixels); row < bottom * 10 * pixels; ++row)
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
    EXPECT_EQ(columnAt(static_cast<int>(20 * pixels), 1.9, 2.1).front(), QColor(Qt::white));
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
        PaperKanvas kanvas(painter, page.rect(), 10 * pixels);
        kanvas.setFontSize(7);
        kanvas.line(0, 1.175, 1.06, 1.175); // at the height of a minus
        kanvas.moveTo(1, 1);
        kanvas.printValue(value, {1, {1, 2}, {1, 1}});
        kanvas.finish();
        const int nearIt = static_cast<int>((value > 0 ? 1.0 : 0.95) * 10 * pixels);
        const int at = static_cast<int>(1.175 * 10 * pixels);
        EXPECT_EQ(page.pixelColor(nearIt, at) == QColor(Qt::white), isCovered) << value;
    }
}

TEST_F(VectorPictures, ComeFromTheBatchRunnerInEveryKindOrdered)
{
    std::ostringstream out, err;
    const auto run = [&](const char *option) {
        return runBatch({option, "--fit", "--out", path(option), EXAMPLES "/portal_frame.vsk"}, out,
                        err, qtDrawings());
    };
    EXPECT_EQ(run("--pictures=svg,pdf"), batchStatus::allAnalysed) << err.str();
    EXPECT_EQ(run("--pictures=png"), batchStatus::allAnalysed) << err.str();
    for (const char *shown : {"model", "M", "Q", "N", "D"})
        for (const auto &[option, ending, begin] :
             {std::tuple{"--pictures=svg,pdf", ".svg", "<?xml"},
              {"--pictures=svg,pdf", ".pdf", "%PDF"},
              {"--pictures=png", ".png", "\x89PNG"}})
            EXPECT_TRUE(
                contentOf(path(option) + "/portal_frame_" + shown + ending).starts_with(begin))
                << shown << ending;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path("--pictures=svg,pdf")), {}),
              11); // the report
}

} // namespace
} // namespace veskora
