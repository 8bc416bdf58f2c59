// What the calculation report says.

#include "CalculationReport.h"
#include "CheckText.h"
#include "Desktop.h"
#include "Equilibrium.h"
#include "Extremes.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelCheck.h"
#include "ResultWarnings.h"
#include "RowQueries.h"
#include "Sentences.h"
#include "Version.h"

#include <filesystem>

namespace veskora {

namespace {

using Cells = TextTable (*)(const RegionalNumbers &);

std::string modelName()
{
    return Onoma_Arxeiou.empty() ? "Untitled.vsk"
                                 : std::filesystem::path(Onoma_Arxeiou).filename().string();
}

TextRow row(const std::vector<std::string> &texts)
{
    TextRow made = headerRow(texts);
    made.kind = TextRow::Kind::cells;
    return made;
}

/// Puts the blocks one after the other and numbers the headings.
class Calculation
{
public:
    explicit Calculation(const CalculationOptions &options)
        : options_(options), number_(options.digits)
    {
        document_.name = modelName();
        document_.title =
            options.title.empty() ? Metafrasi(1921, "Calculation report") : options.title;
        document_.program = std::string(applicationTitle) + " " + programVersion;
    }

    Document make()
    {
        begin();
        model();
        data();
        if (hasResults) {
            diagrams();
            results();
        }
        if (options_.withCheck)
            check();
        return std::move(document_);
    }

private:
    void add(Block block) { document_.blocks.push_back(std::move(block)); }
    void note(const std::string &text) { add(Paragraph{text}); }
    void warnings()
    {
        for (const ResultWarning warning : resultWarnings())
            if (warning != ResultWarning::notAnalysed)
                add(Paragraph{textOf(warning), Paragraph::Kind::warning});
    }
    void heading(int level, const std::string &text)
    {
        section_ = level == 1 ? 0 : section_ + 1;
        chapter_ += level == 1 ? 1 : 0;
        std::string numbered = numberText(chapter_);
        if (level > 1)
            numbered.append(".").append(numberText(section_));
        add(Heading{level, numbered.append("  ").append(text)});
    }
    void table(const std::string &title, TextTable cells)
    {
        if (cells.size() < 2)
            return;
        heading(2, title);
        add(std::move(cells));
    }

    void begin()
    {
        TitleBlock title{document_.title,
                         {{Metafrasi(11, "Model"), modelName()},
                          {Metafrasi(1932, "Date"), desktop().timeOfDay().date},
                          {Metafrasi(1933, "Program"), document_.program}}};
        if (!options_.author.empty())
            title.lines.insert(title.lines.begin(), {Metafrasi(1923, "Author"), options_.author});
        add(std::move(title));
        warnings();
        if (!hasResults)
            add(Paragraph{Metafrasi(1941, "There are no results: the model has not been analysed, "
                                          "or its analysis failed."),
                          Paragraph::Kind::warning});
        note(Metafrasi(1942, "All numbers are in the units in which the model was entered. x runs "
                             "to the right, y upward; rotations and the moments of loads, "
                             "element ends and reactions are positive counter-clockwise."));
        if (options_.digits != RegionalNumbers::allDigits)
            note(filled(Metafrasi(1947, "The numbers of tables are rounded to %1 significant "
                                        "digits."),
                        {numberText(options_.digits)}));
        add(Paragraph{Metafrasi(1934, "Contents"), Paragraph::Kind::bold});
        add(Contents{});
    }

    void model()
    {
        heading(1, Metafrasi(11, "Model"));
        add(Picture{view::model, {}});
    }

    void data()
    {
        heading(1, Metafrasi(1204, "Model data"));
        table(Metafrasi(353, "EAI Element Groups"), groupCells(number_));
        table(Metafrasi(354, "Nodes"), nodeCells(number_));
        table(Metafrasi(355, "Elements"), elementCells(number_));
        table(Metafrasi(376, "Nodal loads"), nodalLoadCells(number_));
        table(Metafrasi(357, "Elemental loads"), elementalLoadCells(number_));
    }

    void diagram(const std::string &title, std::int16_t shown, std::vector<TextTable> extremes)
    {
        heading(2, title);
        warnings();
        add(Picture{shown, std::move(extremes)});
    }

    void resultTable(const std::string &title, TextTable cells, const std::string &said)
    {
        if (cells.size() < 2)
            return;
        heading(2, title);
        warnings();
        add(Paragraph{said, Paragraph::Kind::lead});
        add(std::move(cells));
    }

    std::vector<TextTable> forceExtremes(const char *letter, const StressResultant &resultant) const
    {
        const auto range = forceRange(resultant);
        if (!range)
            return {};
        const bool leavesSpans = resultant.column == resultantM.column && Allagi_Montelou;
        TextTable table = {headerRow({leavesSpans ? Metafrasi(1951, "at the ends only") : "",
                                      letter, Metafrasi(342, "Element"), "x"})};
        const auto add = [&](const char *name, const PlacedForce &force) {
            table.push_back(
                row({name, number_(force.value), numberText(force.e), number_(force.x)}));
        };
        add("max.", range->largest);
        add("min.", range->smallest);
        return {table};
    }

    std::vector<TextTable> displacementExtremes() const
    {
        std::vector<TextTable> tables = {nodeExtremes()};
        if (const auto largest = largestDeflection())
            tables.push_back({headerRow({"", Metafrasi(1953, "Largest deflection"),
                                         Metafrasi(342, "Element"), "x"}),
                              row({Metafrasi(1954, "Across an element"), number_(largest->v),
                                   numberText(largest->e), number_(largest->x)})});
        return tables;
    }

    TextTable nodeExtremes() const
    {
        const std::string at = Metafrasi(340, "Node"), name = Metafrasi(1952, "Of nodes:");
        std::vector<std::string> most = {name + " max."}, least = {name + " min."};
        for (int k = 1; k <= 3; ++k) {
            const auto [largest, smallest] = displacementRange(k);
            for (auto [cells, n] : {std::pair{&most, largest}, std::pair{&least, smallest}}) {
                cells->push_back(number_(Metatopiseis(freedomOf(n, k))));
                cells->push_back(numberText(n));
            }
        }
        const int n = nodeOfLargestDisplacement();
        most.insert(most.end(), {number_(displacementOf(n)), numberText(n)});
        return {headerRow({"", Metafrasi(343, "x - Displacement"), at,
                           Metafrasi(344, "y - Displacement"), at, Metafrasi(345, "z - Rotation"),
                           at, Metafrasi(1949, "Resultant of x and y"), at}),
                row(most), row(least)};
    }

    void diagrams()
    {
        heading(1, Metafrasi(1936, "Diagrams"));
        add(Paragraph{Metafrasi(1943, "N is positive in tension, Q where it turns the element "
                                      "clockwise, M with tension on the side of negative local y: "
                                      "below in an element that runs to the right. x counts from "
                                      "end i."),
                      Paragraph::Kind::lead});
        diagram(Metafrasi(351, "Moment M"), view::M, forceExtremes("M", resultantM));
        diagram(Metafrasi(347, "Shear force") + " Q", view::Q, forceExtremes("Q", resultantQ));
        diagram(Metafrasi(346, "Axial force") + " N", view::N, forceExtremes("N", resultantN));
        diagram(Metafrasi(79, "Deformed model"), view::deformed, displacementExtremes());
    }

    void results()
    {
        heading(1, Metafrasi(1208, "Results"));
        resultTable(Metafrasi(312, "Node displacements"), displacementCells(number_),
                    Metafrasi(1944,
                              "Along the global axes; rotations in radians. Blue is the largest "
                              "value of a column, red the smallest, where a held one counts as 0; "
                              "green is one at a spring, even where it is the largest or the "
                              "smallest."));
        resultTable(Metafrasi(313, "Element forces"), endForceCells(number_),
                    Metafrasi(1945,
                              "Forces that the nodes apply to the ends of the elements, along the "
                              "local axes: x from node i to node j, y 90 degrees counter-clockwise "
                              "from it."));
        resultTable(Metafrasi(314, "Constraint-Spring reactions"), reactionCells(number_),
                    Metafrasi(1946,
                              "Forces of supports and springs on the structure, along the global "
                              "axes; green is that of a spring."));
        if (!Allagi_Montelou) // else they are not of these loads
            sums();
    }

    void sums()
    {
        const auto [x, y, moment, force, nodeMoment] =
            std::get<Equilibrium>(checkEquilibrium().facts);
        const std::string words =
            Metafrasi(1940, "Loads|Reactions|Left over|along x|along y|moments about the origin");
        TextTable cells = {headerRow({"", part(words, 0), part(words, 1), part(words, 2)})};
        std::size_t name = 3;
        for (const Equilibrium::Sum &sum : {x, y, moment})
            cells.push_back(row({part(words, name++), number_(sum.loads), number_(sum.reactions),
                                 number_(sum.imbalance)}));
        table(Metafrasi(1939, "Sums of loads and reactions"), std::move(cells));
    }

    void check()
    {
        heading(1, Metafrasi(1618, "Check of the analysis"));
        for (const Finding &finding : checkModel()) {
            const FindingText words = textOf(finding);
            add(Paragraph{textOf(finding.severity) + ": " + words.title, Paragraph::Kind::bold});
            note(words.explanation);
        }
    }

    const CalculationOptions &options_;
    const RegionalNumbers number_;
    Document document_;
    int chapter_ = 0, section_ = 0;
};

} // namespace

Document calculationDocument(const CalculationOptions &options)
{
    return Calculation(options).make();
}

} // namespace veskora
