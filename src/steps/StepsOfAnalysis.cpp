// The run through all steps, its beginning and its end.

#include "element.h"
#include "epilisi.h"
#include "Equilibrium.h"
#include "StepsRun.h"

#include <algorithm>
#include <bit>
#include <filesystem>

namespace veskora::steps {

namespace {

bool isSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool isHeld(int n, int component)
{
    return Komboi(n, node::fixedX - 1 + component) == 1;
}

/// How many numbers of two tables there are, and how many are not the same to the bit.
struct Comparison
{
    int numbers = 0, others = 0;

    void compare(double a, double b)
    {
        ++numbers;
        others += isSame(a, b) ? 0 : 1;
    }
    template <typename Table>
    void compare(const Table &a, const Table &b, int rows)
    {
        for (int row = 1; row <= rows; ++row)
            for (int column = 1; column <= Table::columns; ++column)
                compare(a(row, column), b(row, column));
    }
};

} // namespace

Document StepsRun::run()
{
    document_.title = Metafrasi(1971, "Steps of the analysis");
    if (!Onoma_Arxeiou.empty())
        document_.title += ": " + std::filesystem::path(Onoma_Arxeiou).stem().string();
    try {
        tellSymbols();
        numberFreedoms();
        assembleElements();
        addSprings();
        cutEquations();
        solve();
        spreadDisplacements();
        recoverEndForces();
        gatherReactions();
        sumForces();
        compareWithReport();
        document_.isComplete = true;
    } catch (const Fault &fault) {
        end(filled(Metafrasi(2034, "What stopped them: %1."), {fault.facts()}));
    } catch (const Ending &ending) {
        end(ending.reason);
    }
    return std::move(document_);
}

std::string StepsRun::freedomNumber(int freedom) const
{
    const std::string number = numberText(positionOf(freedom));
    return positionOf(freedom) <= Eleftheroi_Vathmoi
               ? number
               : number + " (" + Metafrasi(1980, "held") + ")";
}

Cell StepsRun::freedomCell(int freedom) const
{
    const int p = positionOf(freedom);
    return {numberText(p), p, freedomText(freedom), p > Eleftheroi_Vathmoi};
}

std::vector<Cell> StepsRun::freedomsOf(int e) const
{
    const auto [ni, nj] = elementNodes(e);
    std::vector<Cell> cells;
    for (const int n : {ni, nj})
        for (int component = 1; component <= 3; ++component)
            cells.push_back(freedomCell(freedomOf(n, component)));
    return cells;
}

std::vector<int> StepsRun::freeRows(int n) const
{
    std::vector<int> rows;
    for (int component = 1; component <= 3; ++component)
        if (const int p = positionOf(freedomOf(n, component)); p <= Eleftheroi_Vathmoi)
            rows.push_back(p);
    return rows;
}

std::vector<int> StepsRun::shownRows() const
{
    std::vector<int> rows;
    for (const int n : choice_.nodes)
        for (const int p : freeRows(n))
            rows.push_back(p);
    return rows;
}

void StepsRun::tellSymbols()
{
    open("symbols", 1, Metafrasi(1972, "Symbols and signs"));
    if (Arithmos_Kombon == 0)
        throw Ending{Metafrasi(2033, "The model has no nodes.")};
    tell(Metafrasi(
        1973, "Freedoms come in the order: along x, along y, rotation. In the axes of an element: "
              "along it, across it, rotation; at end i, then at end j. Local x runs from i to j, "
              "local y stands 90 degrees anticlockwise from it. Forces and displacements are "
              "positive along positive axes, moments and rotations anticlockwise. Units are those "
              "of the model."));
    tell(filled(Metafrasi(1974, "Numbers are shown to %1 significant digits; the program "
                                "calculates with all that it has. Source of the formulas: %2."),
                {numberText(choice_.digits), source}));
    const std::string meanings = Metafrasi(
        1976,
        "Young's modulus, area and second moment of area of the element's group|length of the "
        "element|cosine and sine of the angle from global to local x|turns from global to local "
        "axes|stiffness of an element, in local and in global axes|load of an element per length, "
        "in global axes|the same along the element and across it|forces of the fixed ends on the "
        "element under its load, in local and in global axes|displacements of its ends, in local "
        "and in global axes|forces of the nodes on its ends, in local and in global axes|stiffness "
        "of the structure, rows and columns of the free freedoms|loads of the nodes|right-hand "
        "side of the equations|displacements at the free freedoms|reactions");
    Grid grid{false, {}, {}, {{""}}, {}};
    for (const Line &symbol : definedSymbols())
        grid.rows.push_back({{symbol}, {{part(meanings, grid.rows.size())}}});
    add(grid);
}

void StepsRun::numberFreedoms()
{
    Arithmisi_Vathmon(); // once more when the stiffness is there, which it permutes
    position_.assign(static_cast<std::size_t>(3 * Arithmos_Kombon) + 1, 0);
    for (int p = 1; p <= 3 * Arithmos_Kombon; ++p)
        position_.at(static_cast<std::size_t>(Seira_Vathmon(p))) = p;

    open("freedoms", 1, Metafrasi(1977, "Degrees of freedom"));
    tell(filled(Metafrasi(1978, "The free ones are numbered first, node by node, then those that "
                                "are held. %1 are free and have an equation each; %2 are held, and "
                                "their displacements are 0."),
                {numberText(Eleftheroi_Vathmoi), numberText(Desmevmenoi_Vathmoi)}));
    Picture picture{Picture::Kind::freedoms,
                    Metafrasi(1981, "The model and the numbers of its freedoms. Those held are "
                                    "grey."),
                    Eleftheroi_Vathmoi, std::vector<int>(position_.size() - 1)};
    for (const int n : choice_.nodes)
        for (int component = 1; component <= 3; ++component) {
            const int freedom = freedomOf(n, component);
            picture.numbers[static_cast<std::size_t>(freedom) - 1] = positionOf(freedom);
        }
    add(picture);
    std::vector<Cell> columns = {{"x"}, {"y"}};
    for (const Line &freedom : nodeFreedoms())
        columns.push_back({freedom});
    Grid grid = nodeTable(columns, [this](int n, int component) {
        Cell cell = freedomCell(freedomOf(n, component));
        cell.text = freedomNumber(freedomOf(n, component));
        return cell;
    });
    for (GridRow &row : grid.rows) {
        const int n = static_cast<int>(*row.label.value);
        row.cells.insert(row.cells.begin(),
                         {number(Komboi(n, node::x)), number(Komboi(n, node::y))});
    }
    add(grid);
}

void StepsRun::spreadDisplacements()
{
    Ipologismos_Antidraseon_Vathmon();
    Anaptyxi_Metatopiseon();
    open("displacements", 1, Metafrasi(2015, "Displacements of the nodes"));
    add(nodeTable(cellsOf(nodeFreedoms()), [this](int n, int component) {
        Cell cell = number(Metatopiseis(freedomOf(n, component)));
        cell.isHeld = isHeld(n, component);
        return cell;
    }));
}

void StepsRun::gatherReactions()
{
    Ipologismos_Antidraseon();
    open("reactions", 1, Metafrasi(2020, "Reactions"));
    tell(Metafrasi(2021, "At the held freedoms the end forces in global axes are added up and the "
                         "nodal loads taken off. A spring presses with minus its constant times "
                         "the displacement."));
    add(Formula{symbol("R") + " = Σ " + symbol("F", "e") + " − " + symbol("p")});
    if (std::any_of(choice_.nodes.begin(), choice_.nodes.end(), [](int n) { return hasSpring(n); }))
        add(Formula{"R = −K U"});
    Grid grid = nodeTable({{"Rx"}, {"Ry"}, {"Mz"}}, [this](int n, int component) {
        const std::optional<double> reaction = reactionAt(n, component);
        return reaction ? number(*reaction) : Cell{""};
    });
    const auto isEmpty = [](const GridRow &row) {
        return std::all_of(row.cells.begin(), row.cells.end(),
                           [](const Cell &cell) { return !cell.value; });
    };
    std::erase_if(grid.rows, isEmpty);
    add(grid);
}

void StepsRun::sumForces()
{
    const Finding finding = checkEquilibrium();
    const auto &facts = std::get<Equilibrium>(finding.facts);
    open("sums", 1, Metafrasi(2022, "Sum of the forces"));
    tell(Metafrasi(2023, "All loads and all reactions, those of springs with them, cancel but for "
                         "rounding. Moments are taken about the origin."));
    const std::string names = Metafrasi(2024, "along x|along y|moments");
    Grid grid{false, {}, {}, partsOf(Metafrasi(2025, "loads|reactions|sum"), 3), {}};
    for (const Equilibrium::Sum *sum : {&facts.x, &facts.y, &facts.moment})
        grid.rows.push_back({{part(names, grid.rows.size())},
                             {number(sum->loads), number(sum->reactions), number(sum->imbalance)}});
    add(grid);
}

void StepsRun::compareWithReport()
{
    open("report", 1, Metafrasi(2026, "Beside the report"));
    if (!hasResults)
        return tell(Metafrasi(2028, "There are no results to compare with: the model was not "
                                    "analysed."));
    Comparison all;
    all.compare(Metatopiseis, kept_.displacements, 3 * Arithmos_Kombon);
    all.compare(Entasi_Topiki, kept_.endForces, Arithmos_Stoixeion);
    all.compare(Antidraseis, kept_.reactions, Arithmos_Kombon);
    tell(all.others == 0
             ? filled(Metafrasi(2027, "All %1 numbers of the results are the same to the last bit "
                                      "as those that the report was made from."),
                      {numberText(all.numbers)})
             : filled(Metafrasi(2029, "%1 of the %2 numbers are others than those of the report: "
                                      "the model was changed after it was analysed."),
                      {numberText(all.others), numberText(all.numbers)}));
    Grid grid{false, {}, {}, partsOf(Metafrasi(2030, "by these steps|in the report"), 2), {}};
    const auto put = [&grid](const Line &label, double mine, double report) {
        grid.rows.push_back({{label}, {{numberText(mine), mine}, {numberText(report), report}}});
    };
    for (const int n : choice_.nodes)
        for (int component = 1; component <= 3; ++component) {
            const int freedom = freedomOf(n, component);
            put(symbol("U") + ", " + freedomText(freedom), Metatopiseis(freedom),
                kept_.displacements(freedom));
        }
    for (const int e : choice_.elements)
        for (int k = 1; k <= 6; ++k)
            put(symbol("f") + ", "
                    + filled(part(Metafrasi(1999, "element %1|elements %1"), 0), {numberText(e)})
                    + ", " + localFreedoms()[static_cast<std::size_t>(k - 1)],
                Entasi_Topiki(e, k), kept_.endForces(e, k));
    for (const int n : choice_.nodes)
        for (int component = 1; component <= 3; ++component)
            if (isHeld(n, component))
                put(symbol("R") + ", " + freedomText(freedomOf(n, component)),
                    Antidraseis(n, component), kept_.reactions(n, component));
    add(grid);
}

void StepsRun::end(const std::string &reason)
{
    open("end", 1, Metafrasi(2037, "The steps end here"));
    tell(reason);
}

Document stepsOfAnalysis(const Choice &wished)
{
    return StepsRun(wished).run();
}

} // namespace veskora::steps
