// The run through all steps, its beginning and its end.

#include "CheckText.h"
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

/// The stages fault at elements that are none, and else only where a number leaves the range.
std::string reasonOf(const Fault &fault)
{
    const std::string reasons = Metafrasi(
        2034, "Element %1 has no length.|Element %1 names a node or a group that does "
              "not exist.|A number is beyond the range that can be calculated with (%1).");
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const int i = nodeOf(e, element::nodeI), j = nodeOf(e, element::nodeJ);
        if (i == 0 || j == 0 || groupOf(e) == 0)
            return filled(part(reasons, 1), {numberText(e)});
        if (Komboi(i, node::x) == Komboi(j, node::x) && Komboi(i, node::y) == Komboi(j, node::y))
            return filled(part(reasons, 0), {numberText(e)});
    }
    return filled(part(reasons, 2), {fault.facts()});
}

/// Within what the check of the analysis takes for rounding.
bool cancels(const Equilibrium::Sum &sum)
{
    return sum.relative < tolerableImbalance;
}

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
        end(reasonOf(fault));
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
    const bool isFree = p <= Eleftheroi_Vathmoi;
    return {numberText(p), p, freedomText(freedom), !isFree, isFree};
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
    tell(filled(Metafrasi(1974, "Numbers are shown to %1 significant digits. The program keeps "
                                "coordinates, loads and springs to about 7 digits, and E, A, I "
                                "and all that it calculates to about 16. Source of the formulas: "
                                "%2."),
                {numberText(choice_.digits), source}));
    const std::string meanings = Metafrasi(
        1976,
        "Young's modulus, area and second moment of area of the element's group|length of the "
        "element|cosine and sine of the angle from global to local x|turns from global to local "
        "axes|stiffness of an element, in local and in global axes|load of an element per length, "
        "in global axes|the same along the element and across it|forces of the fixed ends on the "
        "element under its load, in local and in global axes|displacements of its ends, in local "
        "and in global axes|forces of the nodes on its ends, in local and in global "
        "axes|displacements along the element and across it, and rotations, at i and at "
        "j|constants of the springs of a node: along x, along y, of the rotation|stiffness of the "
        "structure, rows and columns of the free freedoms|loads of the nodes|right-hand side of "
        "the equations|displacements at the free freedoms|their entries in row i and column j, as "
        "far as the elimination has come|displacements along x and y and rotation of a "
        "node|reactions|reactions of a node: forces along x and y, moment");
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
                    Metafrasi(1981, "The model and the numbers of its freedoms: the free ones "
                                    "blue, those held grey."),
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
    warnOfMotion();
}

/// As the analysis itself.
void StepsRun::warnOfMotion()
{
    if (const int freedom = excessiveFreedom(); freedom != 0)
        warn(filled(Metafrasi(2048, "The largest displacement, %1 (%2), is beyond all measure: the "
                                    "structure is probably a mechanism. See Report, Check of the "
                                    "analysis."),
                    {roundedText(Metatopiseis(freedom), choice_.digits), freedomText(freedom)}));
    else if (const std::string text = motionWarning(quickTest()); !text.empty())
        warn(text);
}

void StepsRun::gatherReactions()
{
    Ipologismos_Antidraseon();
    open("reactions", 1, Metafrasi(2020, "Reactions"));
    tell(Metafrasi(2021, "At the held freedoms the end forces in global axes are added up and the "
                         "nodal loads taken off. A spring presses with minus its constant times "
                         "the displacement."));
    const std::size_t before = document_.sections.back().blocks.size();
    showReactions();
    showSpringForces();
    if (document_.sections.back().blocks.size() == before)
        tell(Metafrasi(2042, "At the nodes shown nothing is held, and there are no springs."));
}

Cell StepsRun::sumOfEndForces(int n, int component) const
{
    double sum = 0;
    std::vector<int> elements;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (const int end : {element::nodeI, element::nodeJ})
            if (nodeOf(e, end) == n) {
                const double force = Entasi_Oliki(e, component + (end == element::nodeI ? 0 : 3));
                sum += force;
                if (force != 0)
                    elements.push_back(e);
            }
    Cell cell = number(sum);
    if (!elements.empty())
        cell.origin = elementsText(elements);
    return cell;
}

void StepsRun::showReactions()
{
    const Line forces = "Σ " + symbol("F", "e"), load = symbol("p"), reaction = symbol("R");
    Grid grid{false, {}, Metafrasi(2009, "Freedom"), {{forces}, {load}, {reaction}}, {}};
    for (const int n : choice_.nodes)
        for (int component = 1; component <= 3; ++component)
            if (const int freedom = freedomOf(n, component); isHeld(n, component))
                grid.rows.push_back({{freedomText(freedom)},
                                     {sumOfEndForces(n, component), nodalLoad(freedom),
                                      number(Antidraseis(n, component))}});
    if (grid.rows.empty())
        return;
    add(Formula{reaction + " = " + forces + " − " + load});
    add(grid);
}

void StepsRun::showSpringForces()
{
    Grid grid{false, {}, Metafrasi(2009, "Freedom"), {{"K"}, {"U"}, {"R"}}, {}};
    bool isOnHeld = false, isNegative = false;
    for (const int n : choice_.nodes)
        for (int component = 1; component <= 3; ++component) {
            if (!isSprung(n, component))
                continue;
            const int freedom = freedomOf(n, component);
            grid.rows.push_back({{freedomText(freedom)},
                                 {number(Elatiria(n, component)), number(Metatopiseis(freedom)),
                                  number(springForce(n, component))}});
            isNegative = isNegative || !hasSpring(n, component);
            isOnHeld = isOnHeld || (hasSpring(n, component) && isHeld(n, component));
        }
    if (grid.rows.empty())
        return;
    add(Formula{springFormula()});
    add(grid);
    const std::string notes =
        Metafrasi(2043, "Where a freedom is held, a spring bears nothing. The report shows this 0 "
                        "there, and not the reaction above.|The report does not show the forces of "
                        "springs with a negative constant.");
    for (const auto &[isSo, index] : {std::pair{isOnHeld, 0U}, {isNegative, 1U}})
        if (isSo)
            tell(part(notes, index));
}

void StepsRun::sumForces()
{
    const Finding finding = checkEquilibrium();
    const auto &facts = std::get<Equilibrium>(finding.facts);
    open("sums", 1, Metafrasi(2022, "Sum of the forces"));
    const bool isBalanced = cancels(facts.x) && cancels(facts.y) && cancels(facts.moment);
    const std::string sentences = Metafrasi(
        2023,
        "All loads and all reactions, those of springs with them, cancel but for rounding. "
        "Moments are taken about the origin.|All loads and all reactions, those of springs "
        "with them, ought to cancel, and they do not: the results are not to be trusted. See "
        "Report, Check of the analysis. Moments are taken about the origin.|The sums cancel, "
        "but what meets at node %1 does not: the results are not to be trusted. See Report, "
        "Check of the analysis.|The sums cancel, but what meets at the nodes %1 does not: the "
        "results are not to be trusted. See Report, Check of the analysis.");
    add(Formula{"Σ " + scalar("F", "x") + ",   Σ " + scalar("F", "y") + ",   Σ (M + x "
                + scalar("F", "y") + " − y " + scalar("F", "x") + ")"});
    if (finding.severity == Severity::good)
        tell(part(sentences, 0));
    else if (!isBalanced)
        warn(part(sentences, 1));
    else
        warn(filled(part(sentences, finding.nodes.size() == 1 ? 2 : 3), {rowList(finding.nodes)}));
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
    const std::vector<ReportNumber> mine = numbersOfReport();
    Grid grid{false, {}, {}, partsOf(Metafrasi(2030, "by these steps|in the report"), 2), {}};
    int others = 0;
    for (std::size_t k = 0; k < mine.size(); ++k) {
        const auto &[value, name] = mine[k];
        const double reported = reported_[k].value;
        others += isSame(value, reported) ? 0 : 1;
        if (!name.runs.empty())
            grid.rows.push_back(
                {{name}, {{numberText(value), value}, {numberText(reported), reported}}});
    }
    const std::string count = numberText(static_cast<int>(mine.size()));
    tell(others == 0
             ? filled(Metafrasi(2027, "All %1 numbers that the report prints of displacements, end "
                                      "forces and reactions are the same to the last bit."),
                      {count})
             : filled(Metafrasi(2029, "%1 of the %2 numbers are others than those of the report: "
                                      "the model was changed after it was analysed."),
                      {numberText(others), count}));
    add(grid);
}

std::vector<ReportNumber> StepsRun::numbersOfReport() const
{
    const auto holds = [](const std::vector<int> &rows, int row) {
        return std::binary_search(rows.begin(), rows.end(), row);
    };
    const std::array<std::string, 3> forces = {
        Metafrasi(346, "Axial force"), Metafrasi(347, "Shear force"), Metafrasi(348, "Moment")};
    std::vector<ReportNumber> all;
    const auto put = [&](double value, bool isShown, const char *name, const auto &place) {
        all.push_back({value, isShown ? symbol(name) + ", " + place() : Line()});
    };
    const auto putNode = [&](int n, int component, double value, const char *name) {
        put(value, holds(choice_.nodes, n), name,
            [=] { return freedomText(freedomOf(n, component)); });
    };
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int component = 1; component <= 3; ++component)
            putNode(n, component, Metatopiseis(freedomOf(n, component)), "U");
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (int k = 1; k <= 6; ++k)
            put(Entasi_Topiki(e, k), holds(choice_.elements, e), "f", [&] {
                return elementsText({e}) + (k <= 3 ? ", i, " : ", j, ")
                       + forces[static_cast<std::size_t>((k - 1) % 3)];
            });
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int component = 1; component <= 3; ++component)
            if (const std::optional<double> reaction = reactionAt(n, component))
                putNode(n, component, *reaction, "R");
    return all;
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
