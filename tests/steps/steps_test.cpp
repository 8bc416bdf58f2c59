#include "Analysis.h"
#include "DataCases.h"
#include "LiteralSolver.h"
#include "StepsHtml.h"

#include <QXmlStreamReader>

#include <bit>
#include <gmock/gmock.h>
#include <set>
#include <sstream>

namespace veskora::steps {
namespace {

class AnalysisSteps : public StoreTest
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
    /// Whether a cell, its origin or a part of a sentence is @p text.
    static bool says(const Section &section, const std::string &text)
    {
        bool does = false;
        for (const Block &block : section.blocks) {
            if (const auto *paragraph = std::get_if<Paragraph>(&block))
                does = does || paragraph->text.find(text) != std::string::npos;
            if (const auto *grid = std::get_if<Grid>(&block))
                for (const GridRow &row : grid->rows)
                    for (const Cell &cell : row.cells)
                        does = does || cell.text.plainText() == text || cell.origin == text;
        }
        return does;
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
    /// The bytes of results and flags.
    static std::string state()
    {
        std::string bytes;
        const auto add = [&](const auto &...variables) {
            (bytes.append(reinterpret_cast<const char *>(&variables), sizeof variables), ...);
        };
        add(Metatopiseis, Entasi_Topiki, Antidraseis, Eleftheroi_Vathmoi, Desmevmenoi_Vathmoi,
            Allagi_Montelou, hasResults, analysesFinished, Sfalma_Epilisis);
        return bytes;
    }
    /// From the displacements to the numbers of the report.
    static void expectBitsOfResults(const Document &document, const literal::Results &results);
};

void AnalysisSteps::expectBitsOfResults(const Document &document, const literal::Results &results)
{
    expectBits(grid(document, "displacements", 0), Arithmos_Kombon, 3,
               [&](int n, int k) { return results.displacements(freedomOf(n, k)); });
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
    }
    const Grid held = grid(document, "reactions", 0);
    int row = 0;
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            if (Komboi(n, node::fixedX - 1 + k) == 1) {
                EXPECT_EQ(value(held, ++row, 3), results.reactions(n, k));
                EXPECT_EQ(value(held, row, 1) - value(held, row, 2), results.reactions(n, k));
            }
    EXPECT_EQ(held.rows.size(), static_cast<std::size_t>(row));
}

TEST_F(AnalysisSteps, HaveTheNumbersOfHandCalculationsAndTellWhatIsPeculiar)
{
    desktop.answerAnything = [] { return Answer::ok; };
    Document document;
    std::string model;
    for (const auto &[given, expected] : dataCases("steps.txt")) {
        SCOPED_TRACE(model + "\n" + given);
        std::istringstream words(given);
        std::string section;
        int index = 0, row = 0, column = 0;
        words >> section;
        if (section == "model") {
            buildModel(model = expected);
            Epilisi();
            document = stepsOfAnalysis({});
        } else if (words >> index >> row >> column) {
            EXPECT_NEAR(value(grid(document, section, index), row, column), std::stod(expected),
                        1e-5);
        } else {
            EXPECT_TRUE(says(*find(document, section), expected)) << expected;
        }
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
        const std::string before = state();
        desktop.log.clear();
        desktop.events.clear();

        Choice all;
        all.elements = rowsWhere(Arithmos_Stoixeion, [](int) { return true; });
        all.nodes = rowsWhere(Arithmos_Kombon, [](int) { return true; });
        const Document document = stepsOfAnalysis(all);

        EXPECT_TRUE(state() == before);
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
        const literal::Table whole = equations.ff;
        literal::Table x(600);
        ASSERT_TRUE(literal::eliminate(equations.ff, equations.loads, x, n));
        expectBits(grid(document, "elimination", 0), n, 3, [&](int p, int column) {
            return column == 3 ? equations.loads(p) : (column == 1 ? whole : equations.ff)(p, p);
        });
        expectBits(grid(document, "elimination", 1), n, 1, x);
        expectBitsOfResults(document, results);
        EXPECT_THAT(firstText(*find(document, "report")), testing::StartsWith("All "));
    }
    EXPECT_GT(solved, 40);
}

TEST_F(AnalysisSteps, EndWhereTheAnalysisDoesAndSayWhy)
{
    for (const auto &[model, end] : dataCases("steps_ends.txt")) {
        buildModel(model);
        const Document document = stepsOfAnalysis({});
        ASSERT_GE(document.sections.size(), 2U);
        EXPECT_FALSE(document.isComplete);
        EXPECT_EQ((document.sections.end() - 2)->id + ": " + firstText(document.sections.back()),
                  end)
            << model;
    }
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
    buildModel("G 10 5 1; N 0 0 xxx; N 3 4 oox 6 -9; E 1 2 1 1 1; S 2 0 3 0");
    Onoma_Arxeiou = "/models/a<b & \"c\".vsk";
    analyse();
    const Document document = stepsOfAnalysis({});
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
    std::ptrdiff_t cells = 0, matrices = 0;
    for (const Section &section : document.sections)
        for (const Block &block : section.blocks)
            if (const auto *found = std::get_if<Grid>(&block)) {
                matrices += found->isMatrix ? 1 : 0;
                for (const GridRow &row : found->rows)
                    cells += std::ssize(row.cells);
            }
    const QString html =
        QString::fromStdString(stepsHtml(document, [](const Picture &) { return ""; }));
    EXPECT_EQ(html.count("<td"), cells);
    EXPECT_EQ(html.count("\"matrix opens"), matrices);
    EXPECT_EQ(html.count(" closes"), matrices);
    EXPECT_TRUE(html.contains("…"));
}

} // namespace
} // namespace veskora::steps
