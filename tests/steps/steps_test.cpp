#include "Analysis.h"
#include "LiteralSolver.h"
#include "RecordingKanvas.h"
#include "Settings.h"
#include "StepsHtml.h"

#include <QXmlStreamReader>

#include <bit>
#include <cstring>
#include <gmock/gmock.h>
#include <set>
#include <tuple>

namespace veskora::steps {
namespace {

class AnalysisSteps : public DrawingTest
{
protected:
    static const Section *find(const Document &document, const std::string &id)
    {
        for (const Section &section : document.sections)
            if (section.id == id)
                return &section;
        return nullptr;
    }
    /// The grid at place @p index of a section, from 0; an empty one where there is none.
    static Grid grid(const Document &document, const std::string &id, int index)
    {
        if (const Section *section = find(document, id))
            for (const Block &block : section->blocks)
                if (const auto *found = std::get_if<Grid>(&block); found && index-- == 0)
                    return *found;
        ADD_FAILURE() << "no such grid in " << id;
        return {};
    }
    static std::string firstText(const Section &section)
    {
        return std::get<Paragraph>(section.blocks.front()).text;
    }
    static double value(const Grid &grid, int row, int column)
    {
        const std::optional<double> found = grid.rows.at(static_cast<std::size_t>(row - 1))
                                                .cells.at(static_cast<std::size_t>(column - 1))
                                                .value;
        EXPECT_TRUE(found);
        return found.value_or(0);
    }
    /// All numbers of a grid against those that @p expected gives for rows and columns, from 1.
    template <typename Expected>
    static void expectBits(const Grid &grid, int rows, int columns, Expected expected)
    {
        ASSERT_EQ(grid.rows.size(), static_cast<std::size_t>(rows));
        for (int r = 1; r <= rows; ++r)
            for (int c = 1; c <= columns; ++c)
                EXPECT_EQ(std::bit_cast<std::uint64_t>(value(grid, r, c)),
                          std::bit_cast<std::uint64_t>(expected(r, c)))
                    << grid.name.plainText() << " " << r << " " << c;
    }
    /// From the displacements to the numbers of the report.
    static void expectBitsOfResults(const Document &document, const literal::Results &results);
};

void AnalysisSteps::expectBitsOfResults(const Document &document, const literal::Results &results)
{
    expectBits(grid(document, "displacements", 0), Arithmos_Kombon, 3,
               [&](int n, int k) { return results.displacements(freedomOf(n, k)); });
    std::vector<double> report, reactions;
    for (int freedom = 1; freedom <= 3 * Arithmos_Kombon; ++freedom)
        report.push_back(results.displacements(freedom));
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const literal::Element element = literal::elementOf(e);
        double columns[7][7] = {}; // U_e, u, k u, f0, f, F_e
        for (int k = 1; k <= 6; ++k)
            columns[1][k] = results.displacements(k <= 3 ? freedomOf(element.ni, k)
                                                         : freedomOf(element.nj, k - 3));
        for (int r = 1; r <= 6; ++r)
            for (int m = 1; m <= 6; ++m) {
                columns[2][r] += element.T[r][m] * columns[1][m];
                columns[4][r] += element.T[r][m] * element.fixedEnd[m];
            }
        for (int r = 1; r <= 6; ++r)
            for (int m = 1; m <= 6; ++m) {
                columns[3][r] += element.K[r][m] * columns[2][m];
                columns[5][r] = results.endForces(e, r);
                columns[6][r] += element.T[m][r] * results.endForces(e, m);
            }
        expectBits(grid(document, "forces-" + std::to_string(e), 0), 6, 6,
                   [&](int r, int column) { return columns[column][r]; });
        report.insert(report.end(), columns[5] + 1, columns[5] + 7);
    }
    for (int freedom = 1; freedom <= 3 * Arithmos_Kombon; ++freedom) {
        const int n = nodeOfFreedom(freedom), k = componentOf(freedom);
        const bool isHeld = Komboi(n, node::fixedX - 1 + k) == 1;
        if (isHeld)
            reactions.push_back(results.reactions(n, k));
        if (Elatiria(n, k) > 0)
            report.push_back(-Elatiria(n, k) * results.displacements(freedom));
        else if (isHeld)
            report.push_back(results.reactions(n, k));
    }
    const Grid held = grid(document, "reactions", 0);
    ASSERT_EQ(held.rows.size(), reactions.size());
    for (std::size_t row = 0; row < reactions.size(); ++row) {
        const auto &cells = held.rows[row].cells; // the sum of end forces, the load, the reaction
        EXPECT_EQ(*cells[2].value, reactions[row]);
        EXPECT_EQ(*cells[0].value - *cells[1].value, reactions[row]);
    }
    expectBits(grid(document, "report", 0), static_cast<int>(report.size()), 2,
               [&](int row, int) { return report[static_cast<std::size_t>(row - 1)]; });
}

// E I = 12: a cantilever of 2, to whose tip a beam of 2 under 8 per length hangs by a hinge. The
// hinge carries 8, so the tip sinks by 8 * 2^3 / 36 and the fixed end has 16.
constexpr const char *propped = "G 2 3 6; N 0 0 xxx; N 2 0; N 4 0 oxo; E 1 2 1 0 1;"
                                "E 2 3 1 0 0 0 -8";
// A bar of length 5 with E A / L = 10 in the direction (3, 4), its end on a spring of 3 under y.
// [3.6 4.8; 4.8 6.4 + 3] u = [6; -9] has the solution (99.6, -61.2) / 10.8 and the bar 10.
constexpr const char *inclined = "G 10 5 1; N 0 0 xxx; N 3 4 oox 6 -9; E 1 2 1 1 1; S 2 0 3 0";
// E A / L = 16, E I = 16, L = 4: 19 x + 6 r = 0, 19 y + 6 r = -6, 6 x + 6 y + 32 r = -4, of which
// the last becomes 536 r = -40.
constexpr const char *portal = "G 16 4 1; N 0 0 xxx; N 0 4; N 4 4 xxx; E 1 2 1;"
                               "E 2 3 1 0 0 0 -3";

TEST_F(AnalysisSteps, HaveTheNumbersOfHandCalculations)
{
    const struct
    {
        const char *model, *section;
        int grid, row, column;
        double value;
    } cases[] = {
        {propped, "element-1", 2, 2, 2, 4.5},          // k: 3 EI / L^3
        {propped, "element-1", 2, 3, 2, 9},            // 3 EI / L^2
        {propped, "element-1", 2, 3, 3, 18},           // 3 EI / L
        {propped, "element-1", 2, 6, 6, 0},            // at the hinge
        {propped, "element-2", 4, 3, 1, 8. / 3},       // f0: q L^2 / 12
        {propped, "equations", 0, 2, 2, 22.5},         // K_ff: 4.5 + 12 EI / L^3
        {propped, "equations", 0, 2, 3, 18},           // 6 EI / L^2
        {propped, "equations", 1, 2, 3, -8},           // p_f
        {propped, "elimination", 0, 3, 2, 9.6},        // pivot: 24 - 18^2 / 22.5
        {propped, "displacements", 0, 2, 2, -16. / 9}, //
        {propped, "forces-1", 0, 3, 5, 16},            // f
        {propped, "reactions", 0, 2, 3, 8},
        {inclined, "element-1", 0, 1, 4, 5},   // L
        {inclined, "element-1", 1, 2, 1, -.8}, // T
        {inclined, "element-1", 3, 5, 4, 4.8}, // K_e
        {inclined, "springs", 0, 1, 2, 3},
        {inclined, "equations", 0, 2, 2, 9.4},
        {inclined, "elimination", 0, 2, 2, 3},   // 9.4 - 4.8^2 / 3.6
        {inclined, "elimination", 0, 2, 3, -17}, // -9 - 6 * 4.8 / 3.6
        {inclined, "elimination", 1, 1, 1, 99.6 / 10.8},
        {inclined, "forces-1", 0, 4, 5, 10},
        {inclined, "reactions", 0, 1, 3, -6},
        {inclined, "reactions", 1, 1, 3, 17}, // of the spring
        {inclined, "sums", 0, 2, 3, 0},
        {portal, "freedoms", 0, 2, 3, 1}, // the only free node
        {portal, "equations", 0, 1, 3, 6},
        {portal, "equations", 1, 3, 2, 4}, // fixed-end moment
        {portal, "elimination", 0, 3, 2, 536. / 19},
        {portal, "displacements", 0, 2, 3, -5. / 67},
        {portal, "forces-1", 0, 3, 3, 6 * 30 / (19. * 67) - 8 * 5 / 67.}, // k u
        {portal, "forces-2", 0, 3, 4, 4},                                 // f0
    };
    for (const auto &[model, section, index, row, column, expected] : cases) {
        buildModel(model);
        analyse();
        EXPECT_NEAR(value(grid(stepsOfAnalysis({}), section, index), row, column), expected, 1e-5)
            << model << "\n"
            << section << " " << index << " " << row << " " << column; // Singles carry .6 and .8
    }
}

TEST_F(AnalysisSteps, HaveTheBitsOfThePlainLoopsAndChangeNothing)
{
    std::mt19937 random(19);
    int solved = 0;
    for (int round = 0; round < 50; ++round) {
        SCOPED_TRACE(round);
        buildRandomFrame(random, 3 + round % 5);
        Epilisi();
        const bool failed = Sfalma_Epilisis;
        const auto displacements = Metatopiseis;
        const auto forces = Entasi_Topiki;
        const auto reactions = Antidraseis;
        const std::pair counts(Eleftheroi_Vathmoi, Desmevmenoi_Vathmoi);
        const std::tuple flags(Allagi_Montelou, hasResults, analysesFinished, Sfalma_Epilisis);
        desktop.log.clear();
        desktop.events.clear();

        Choice all;
        all.elements = rowsWhere(Arithmos_Stoixeion, [](int) { return true; });
        all.nodes = rowsWhere(Arithmos_Kombon, [](int) { return true; });
        const Document document = stepsOfAnalysis(all);

        const auto isKept = [](const auto &table, const auto &before) {
            return std::memcmp(&table, &before, sizeof table) == 0;
        };
        EXPECT_TRUE(isKept(Metatopiseis, displacements) && isKept(Entasi_Topiki, forces)
                    && isKept(Antidraseis, reactions));
        EXPECT_EQ(std::pair(Eleftheroi_Vathmoi, Desmevmenoi_Vathmoi), counts);
        EXPECT_EQ(std::tuple(Allagi_Montelou, hasResults, analysesFinished, Sfalma_Epilisis),
                  flags);
        EXPECT_TRUE(desktop.log.empty() && desktop.events.empty());
        EXPECT_EQ(T_Pinakas(3, 3), 0);
        EXPECT_LT(K_Anadiataxi.stretch(1).last, 1);

        ASSERT_EQ(document.isComplete, !failed);
        for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
            const literal::Element element = literal::elementOf(e);
            const std::string id = "element-" + std::to_string(e);
            const auto of = [](const double(&table)[7][7]) {
                return [&table](int r, int c) { return table[r][c]; };
            };
            expectBits(grid(document, id, 1), 6, 6, of(element.T));
            expectBits(grid(document, id, 2), 6, 6, of(element.K));
            expectBits(grid(document, id, 3), 6, 6, of(element.global));
            if (isLoadedElement(e))
                expectBits(grid(document, id, 5), 6, 1,
                           [&](int r, int) { return element.fixedEnd[r]; });
        }
        literal::Equations equations = literal::assemble();
        const int n = equations.free;
        std::vector<std::pair<int, int>> entries;
        for (int p = 1; p <= 3 * Arithmos_Kombon; ++p)
            for (int q = 1; q <= 3 * Arithmos_Kombon; ++q)
                if (equations.permuted(p, q) != 0)
                    entries.emplace_back(p, q);
        EXPECT_EQ(std::get<Picture>(find(document, "equations")->blocks.at(2)).entries, entries);
        expectBits(grid(document, "equations", 0), n, n, equations.ff);
        const Grid rightHandSide = grid(document, "equations", 1);
        for (int p = 1; p <= n; ++p)
            EXPECT_EQ(value(rightHandSide, p, 3), equations.loads(p));
        if (failed)
            continue;
        ++solved;
        const literal::Results results = literal::analyse();
        const literal::Table before = equations.ff;
        literal::Table x(600);
        ASSERT_TRUE(literal::eliminate(equations.ff, equations.loads, x, n));
        expectBits(grid(document, "elimination", 0), n, 3, [&](int p, int column) {
            return column == 3 ? equations.loads(p) : (column == 1 ? before : equations.ff)(p, p);
        });
        expectBits(grid(document, "elimination", 1), n, 1, x);
        expectBitsOfResults(document, results);
        EXPECT_THAT(firstText(*find(document, "report")), testing::StartsWith("All "));
    }
    EXPECT_GT(solved, 40);
}

TEST_F(AnalysisSteps, EndWhereTheAnalysisDoesAndSayWhy)
{
    const struct
    {
        const char *model, *last; ///< the section before the end
        const char *reason;
    } cases[] = {
        {"", "symbols", "The model has no nodes."},
        {"G 2 3 6; N 0 0 xxx; N 0 0; E 1 2 1", "elements", "Element 1 has no length."},
        {"G 2 3 6; N 0 0 xxx; N 2 0 xxx; E 1 2 1", "equations", "No freedom is free"},
        {"G 2 3 6; N 0 0 xxx; N 2 0; E 1 2 1 0 1", "elimination",
         "The pivot of freedom 3 (node 2, rotation) is 0"},
        {"G 1e300 1e300 6; N 0 0 xxx; N 2 0; E 1 2 1", "elimination", "Overflow"},
    };
    for (const auto &[model, last, reason] : cases) {
        buildModel(model);
        const Document document = stepsOfAnalysis({});
        ASSERT_GE(document.sections.size(), 2U);
        EXPECT_FALSE(document.isComplete);
        EXPECT_EQ((document.sections.end() - 2)->id, last) << model;
        EXPECT_THAT(firstText(document.sections.back()), testing::HasSubstr(reason)) << model;
    }
}

TEST_F(AnalysisSteps, TellWhatIsPeculiarToAModel)
{
    constexpr const char *column = "G 1 9 8; N 0 0 xxx; N 2 0 ooo 3 -2; E 1 2 1; S ";
    constexpr const char *swing = "G 2 3 6; N 0 0 xxo; N 3 1 ooo 5 -7 2; E 1 2 1";
    const struct
    {
        std::string model;
        const char *section, *says; ///< a text or the origin of a cell
    } cases[] = {
        {column + std::string("2 0 -2 0"), "springs", "-2"},
        {column + std::string("2 0 -2 0"), "equations", "element 1; spring of node 2"},
        {column + std::string("2 0 -2 0"), "report", "All 15 numbers"}, // not the spring's force
        {column + std::string("2 0 -2 0"), "reactions", "of springs with a negative constant"},
        {column + std::string("2 0 -99 0"), "elimination", "negative"},
        {column + std::string("2 0 -99 0"), "displacements", "unstable, by negative springs"},
        {column + std::string("1 5 0 0"), "reactions", "and not the reaction above"},
        {column + std::string("1 5 0 0"), "reactions", "element 1"},
        {column + std::string("2 7 0 0"), "report", "All 16 numbers"},
        {column + std::string("2 7 0 0"), "equations", "load of node 2"}, // and no element
        {swing, "elimination", "next to nothing"},
        {swing, "displacements", "is beyond all measure"},
        {"G 2 3 6; N 0 0 xxo; N 3 1; E 1 2 1", "displacements", "can move freely"},
        {"G 2 3 6; N 0 0 xxx; N 2 0; E 1 2 1 0 1", "elimination", "is 0"},
    };
    for (const auto &[model, section, says] : cases) {
        SCOPED_TRACE(model + says);
        buildModel(model);
        if (section == std::string("report"))
            Epilisi();
        std::set<std::string> cells;
        std::string sentences;
        const Document document = stepsOfAnalysis({});
        for (const Block &block : find(document, section)->blocks) {
            if (const auto *paragraph = std::get_if<Paragraph>(&block))
                sentences += paragraph->text;
            if (const auto *grid = std::get_if<Grid>(&block))
                for (const GridRow &row : grid->rows)
                    for (const Cell &cell : row.cells)
                        cells.insert({cell.text.plainText(), cell.origin});
        }
        EXPECT_TRUE(cells.contains(says) || sentences.find(says) != std::string::npos);
    }
}

TEST_F(AnalysisSteps, DrawTheNumberOfEachFreedomAtItsArrow)
{
    buildModel("G 2 3 6; N 0 0 xxx; N 4 0; E 1 2 1");
    const Document document = stepsOfAnalysis({});
    const auto &picture = std::get<Picture>(find(document, "freedoms")->blocks.at(1));
    nai_stoixeia = nai_arithmisi_stoixeion = nai_komboi = nai_arithmisi_kombon = false;
    const CanvasView view = currentView();
    drawStepPicture(picture);
    const auto texts = kanvas.of(Primitive::Kind::text);
    constexpr double margin = 1.8;
    const double colours[] = {0xC04000, 0x707070};
    for (int number = 1; number <= 6; ++number) {
        const bool isHeld = number > 3;
        const auto text = std::find_if(texts.begin(), texts.end(), [&](const Primitive &printed) {
            return printed.text == std::to_string(number) && printed.pen.colour == colours[isHeld];
        });
        ASSERT_NE(text, texts.end()) << number;
        const double x = text->x - (isHeld ? margin : kanvas.w - margin);
        const double up = kanvas.h / 2 - text->y;
        const int component = (number - 1) % 3 + 1;
        EXPECT_EQ(x > 0.4, component == 1);
        EXPECT_EQ(up > 0.7, component == 2);
        EXPECT_EQ(x < -0.3, component == 3);
    }
    EXPECT_EQ(kanvas.linesOf(xroma_stoixeion).size(), 1U);
    EXPECT_EQ(kanvas.of(Primitive::Kind::turnedText).front().text, " 1");
    EXPECT_FALSE(nai_stoixeia || nai_arithmisi_stoixeion || nai_komboi || nai_arithmisi_kombon);
    EXPECT_EQ(currentView(), view);

    putNode(1e9, 1e9); // nor does a node say anything that came later, or is too far for a scale
    drawStepPicture(picture);
    Arithmos_Kombon = 1;
    drawStepPicture(picture);
    Arithmos_Stoixeion = 0;
    drawStepPicture({Picture::Kind::element, "", 0, {}, 1, 1, 0, std::vector<std::string>(6)});
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(AnalysisSteps, ShowOfALargeModelWhatIsChosen)
{
    buildStoreyFrame();
    analyse();
    Choice choice{{300, 7, 7, 999}, {}, 2};
    const Document document = stepsOfAnalysis(choice);
    EXPECT_NE(find(document, "element-7"), nullptr);
    EXPECT_NE(find(document, "forces-300"), nullptr);
    EXPECT_EQ(find(document, "element-1"), nullptr);
    // Node 7 is held; node 15 above it has two columns and at most two beams.
    const Grid stiffness = grid(document, "equations", 0);
    EXPECT_EQ(stiffness.rows.front().label.origin, "node 15, x");
    EXPECT_EQ(stiffness.rows.size(), 3U);
    EXPECT_LE(stiffness.columns.size(), 12U);
    Komboi(15, node::Fx) += 1;
    EXPECT_THAT(firstText(*find(stepsOfAnalysis(choice), "report")),
                testing::HasSubstr(" others than those of the report"));
}

TEST_F(AnalysisSteps, AreWellFormedHtmlWithOriginsAndNoMinusZero)
{
    buildModel(inclined);
    Onoma_Arxeiou = "/models/a<b & \"c\".vsk";
    analyse();
    const Document document = stepsOfAnalysis({});
    const Grid stiffness = grid(document, "equations", 0);
    EXPECT_EQ(stiffness.rows[1].cells[1].origin, "element 1; spring of node 2");
    EXPECT_EQ(stiffness.rows[1].cells[0].origin, "element 1");
    EXPECT_EQ(stiffness.rows[1].cells[1].text.plainText(), "9.4");
    const std::string html = stepsHtml(document, [](const Picture &picture) {
        return picture.kind == Picture::Kind::pattern ? patternSvg(picture)
                                                      : "<svg id=\"drawn\">#%</svg>";
    });
    QXmlStreamReader reader(QByteArray::fromStdString(html));
    std::set<QString> ids, links;
    int images = 0;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement) {
            const auto attributes = reader.attributes();
            if (attributes.hasAttribute("id")) {
                EXPECT_TRUE(ids.insert(attributes.value("id").toString()).second);
            }
            if (reader.name() == QLatin1String("a"))
                links.insert(attributes.value("href").mid(1).toString());
            images += reader.name() == QLatin1String("img") ? 1 : 0;
        }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_EQ(images, 3);
    EXPECT_EQ(links, ids); // the contents name every section, and no link is dead
    EXPECT_THAT(html, testing::HasSubstr("%3Csvg id=%22drawn%22%3E%23%25"));
    EXPECT_THAT(html, testing::Not(testing::HasSubstr(">-0<")));
}

TEST_F(AnalysisSteps, ShowASmallModelWholeAndPartWhatIsTooWideForAPage)
{
    std::string model = "G 3 7 .3; N 0 0 xxx";
    for (int n = 2; n <= 9; ++n)
        model += "; N " + std::to_string(n) + " " + std::to_string(n % 2) + "; E "
                 + std::to_string(n - 1) + " " + std::to_string(n) + " 1 0 0 .1 .7";
    buildModel(model + "; N 20 0 xxx; N 21 0 xxx"); // more nodes than the elements join
    const Document document = stepsOfAnalysis({{}, {}, 15});
    EXPECT_EQ(grid(document, "equations", 0).columns.size(), 24U);
    std::size_t cells = 0, parts = 0, written = 0, opened = 0, closed = 0;
    for (const Section &section : document.sections)
        for (const Block &block : section.blocks)
            if (const auto *found = std::get_if<Grid>(&block)) {
                parts += found->isMatrix ? 1 : 0;
                for (const GridRow &row : found->rows)
                    cells += row.cells.size();
            }
    const QString html =
        QString::fromStdString(stepsHtml(document, [](const Picture &) { return ""; }));
    written = static_cast<std::size_t>(html.count("<td"));
    opened = static_cast<std::size_t>(html.count("\"matrix opens"));
    closed = static_cast<std::size_t>(html.count(" closes"));
    EXPECT_EQ(written, cells);
    EXPECT_EQ(opened, parts);
    EXPECT_EQ(closed, parts);
    EXPECT_THAT(html.toStdString(), testing::HasSubstr("…"));
}

} // namespace
} // namespace veskora::steps
