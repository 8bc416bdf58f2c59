// The stages of the analysis, run one after the other, and what each has left in its tables.

#include "element.h"
#include "epilisi.h"
#include "Equilibrium.h"
#include "Formulas.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Sentences.h"
#include "Steps.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace veskora::steps {

namespace {

/// The results of the last analysis, and what else its stages would leave other than it is.
class Kept
{
public:
    Kept() { clearWorkingTables(); }
    ~Kept()
    {
        Metatopiseis = displacements;
        Entasi_Topiki = endForces;
        Antidraseis = reactions;
        Eleftheroi_Vathmoi = free_;
        Desmevmenoi_Vathmoi = held_;
        clearWorkingTables();
    }
    Kept(const Kept &) = delete;
    Kept &operator=(const Kept &) = delete;

    const decltype(Metatopiseis) displacements = Metatopiseis;
    const decltype(Entasi_Topiki) endForces = Entasi_Topiki;
    const decltype(Antidraseis) reactions = Antidraseis;

private:
    std::int16_t free_ = Eleftheroi_Vathmoi;
    std::int16_t held_ = Desmevmenoi_Vathmoi;
};

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

class StepsRun
{
public:
    explicit StepsRun(const Choice &wished) : choice_(completed(wished)) {}

    Document run()
    {
        document_.title = Metafrasi(1971, "Steps of the analysis");
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

private:
    /// Why there are no further steps, in words.
    struct Ending
    {
        std::string reason;
    };

    // The stages, in the engine's order; each is a section.
    void tellSymbols();
    void numberFreedoms();
    void assembleElements();
    void addSprings();
    void cutEquations();
    void solve();
    void spreadDisplacements();
    void recoverEndForces();
    void gatherReactions();
    void sumForces();
    void compareWithReport();
    void end(const std::string &reason);

    void showFormulasOfElements();
    void showElement(int e);
    void noteOrigins(int e);
    void showPattern();
    void showStiffness();
    void showRightHandSide();
    void showPivots(int last);
    void showEndForces(int e, const std::array<double, 6> &product);

    /// @name Parts of the document
    /// @{
    void open(const std::string &id, int level, const std::string &heading)
    {
        document_.sections.push_back({id, level, heading});
    }
    void add(Block block) { document_.sections.back().blocks.push_back(std::move(block)); }
    void tell(const std::string &text) { add(Paragraph{text}); }

    Cell number(double value) const { return {roundedText(value, choice_.digits), value}; }
    static Cell count(int value) { return {numberText(value), value}; }
    /// The number of a freedom, with a hint which one it is.
    Cell freedomCell(int freedom) const;
    Cell freedomCellAt(int p) const { return freedomCell(static_cast<int>(Seira_Vathmon(p))); }
    std::string freedomNumber(int freedom) const;
    template <typename Table>
    Grid matrixOf(const Line &name, const std::vector<Cell> &rows, const std::vector<Cell> &columns,
                  const Table &table) const;
    std::vector<Cell> freedomsOf(int e) const;
    /// A row for each chosen node, with what @p value gives for its components.
    template <typename Value>
    Grid nodeTable(const std::vector<Cell> &columns, Value value) const;
    /// @}

    int positionOf(int freedom) const { return position_[static_cast<std::size_t>(freedom)]; }
    /// Permuted numbers of the free freedoms of the chosen nodes.
    std::vector<int> shownRows() const;
    bool isWhole() const { return static_cast<int>(choice_.nodes.size()) == Arithmos_Kombon; }
    std::string originOf(int row, int column) const;
    std::string originOfLoad(int freedom) const;

    const Choice choice_;
    const Kept kept_;
    Document document_;
    std::vector<int> position_; ///< at its natural number the permuted one of each freedom
    std::map<std::pair<int, int>, std::vector<int>> origins_; ///< elements, by natural freedoms
};

std::vector<Cell> cellsOf(const auto &lines)
{
    std::vector<Cell> cells;
    for (const Line &line : lines)
        cells.push_back({line});
    return cells;
}

/// The parts of a text that are parted by "|".
std::vector<Cell> partsOf(const std::string &text, std::size_t count)
{
    std::vector<Cell> cells;
    for (std::size_t k = 0; k < count; ++k)
        cells.push_back({part(text, k)});
    return cells;
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

template <typename Table>
Grid StepsRun::matrixOf(const Line &name, const std::vector<Cell> &rows,
                        const std::vector<Cell> &columns, const Table &table) const
{
    Grid grid{true, name + " =", {}, columns, {}};
    for (std::size_t r = 0; r < rows.size(); ++r) {
        grid.rows.push_back({rows[r], {}});
        for (std::size_t c = 0; c < columns.size(); ++c)
            grid.rows.back().cells.push_back(
                number(table(static_cast<int>(r) + 1, static_cast<int>(c) + 1)));
    }
    return grid;
}

template <typename Value>
Grid StepsRun::nodeTable(const std::vector<Cell> &columns, Value value) const
{
    Grid grid{false, {}, Metafrasi(1732, "Node"), columns, {}};
    for (const int n : choice_.nodes) {
        grid.rows.push_back({count(n), {}});
        for (int component = 1; component <= 3; ++component)
            grid.rows.back().cells.push_back(value(n, component));
    }
    return grid;
}

std::vector<int> StepsRun::shownRows() const
{
    std::vector<int> rows;
    for (const int n : choice_.nodes)
        for (int component = 1; component <= 3; ++component)
            if (const int p = positionOf(freedomOf(n, component)); p <= Eleftheroi_Vathmoi)
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
        "along and across it|forces of the fixed ends on the element under its load, in local and "
        "in global axes|displacements of its ends, in local and in global axes|forces of the nodes "
        "on its ends, in local and in global axes|stiffness of the structure, rows and columns of "
        "the free freedoms|loads of the nodes|right-hand side, loads at the free "
        "freedoms|displacements at the free "
        "freedoms|reactions");
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
    add(Picture{Picture::Kind::freedoms,
                Metafrasi(1981, "The model and the numbers of its freedoms. Those held are grey."),
                Eleftheroi_Vathmoi,
                {position_.begin() + 1, position_.end()}});
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

void StepsRun::showFormulasOfElements()
{
    open("elements", 1, Metafrasi(1983, "Stiffness and load of the elements"));
    if (static_cast<int>(choice_.elements.size()) < Arithmos_Stoixeion)
        tell(filled(Metafrasi(2039, "Of the %1 elements these are shown: %2."),
                    {numberText(Arithmos_Stoixeion), rowList(choice_.elements)}));
    if (choice_.elements.empty())
        return;
    add(rotationFormula());
    std::vector<ElementType> types, loaded;
    for (const ElementType type :
         {ElementType::P2, ElementType::hingeAtI, ElementType::hingeAtJ, ElementType::P1}) {
        const auto isOfType = [type](int e) { return elementType(e) == type; };
        const auto isLoadedOne = [&](int e) { return isOfType(e) && isLoadedElement(e); };
        const auto &all = choice_.elements;
        if (std::any_of(all.begin(), all.end(), isOfType))
            types.push_back(type);
        if (std::any_of(all.begin(), all.end(), isLoadedOne))
            loaded.push_back(type);
    }
    for (const ElementType type : types) {
        tell(filled(Metafrasi(1984, "Stiffness in local axes, type %1:"), {typeText(type)}));
        add(stiffnessFormula(type));
    }
    tell(Metafrasi(1987, "It is turned to global axes:"));
    const Line transposed = symbol("T", "", "T");
    add(Formula{symbol("K", "e") + " = " + transposed + " " + symbol("k") + " " + symbol("T")});
    if (loaded.empty())
        return;
    tell(Metafrasi(1986, "The load of an element is given in global axes, per unit of its length. "
                         "It is turned to local axes, which gives the fixed-end forces:"));
    add(Formula{"n = " + scalar("w", "x") + " c + " + scalar("w", "y") + " s"});
    add(Formula{"q = −" + scalar("w", "x") + " s + " + scalar("w", "y") + " c"});
    add(fixedEndFormula(loaded));
    add(Formula{symbol("F", "e", "0") + " = " + transposed + " " + symbol("f", "", "0")});
}

void StepsRun::assembleElements()
{
    showFormulasOfElements();
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        Ipologismos_T(e);
        Ipologismos_K_Topiko(e);
        Ipologismos_K_Stoixeiou();
        Synthesi_K(e);
        Ipologismos_F_Pakton(e);
        Synthesi_P(e);
        noteOrigins(e);
        if (std::count(choice_.elements.begin(), choice_.elements.end(), e) > 0) {
            Topika_F_Pakton();
            showElement(e);
        }
    }
}

void StepsRun::noteOrigins(int e)
{
    const auto [ni, nj] = elementNodes(e);
    const auto freedom = [ni = ni, nj = nj](int k) {
        return k <= 3 ? freedomOf(ni, k) : freedomOf(nj, k - 3);
    };
    for (int r = 1; r <= 6; ++r)
        for (int c = 1; c <= 6; ++c)
            if (K_Stoixeiou(r, c) != 0) {
                std::vector<int> &elements = origins_[{freedom(r), freedom(c)}];
                if (elements.empty() || elements.back() != e) // both ends may be at one node
                    elements.push_back(e);
            }
}

void StepsRun::showElement(int e)
{
    const auto [ni, nj] = elementNodes(e);
    const auto [length, c, s] = elementGeometry(e);
    const int g = elementGroup(e);
    const std::string name = numberText(e);
    open("element-" + name, 2, filled(Metafrasi(1988, "Element %1"), {name}));
    tell(filled(Metafrasi(1989, "From node %1 to node %2, group %3, type %4."),
                {numberText(ni), numberText(nj), numberText(g), typeText(elementType(e))}));
    Grid data{false, {}, {}, {}, {{{}, {}}}};
    const auto put = [&](const Line &symbol, double value) {
        data.columns.push_back({symbol});
        data.rows.front().cells.push_back(number(value));
    };
    put("E", Omades(g, group::E));
    put("A", Omades(g, group::A));
    put("I", Omades(g, group::I));
    put("L", length);
    put("c", c);
    put("s", s);
    put(scalar("w", "x"), Stoixeia(e, element::wx));
    put(scalar("w", "y"), Stoixeia(e, element::wy));
    add(data);

    const std::vector<Cell> local = cellsOf(localFreedoms()), freedoms = freedomsOf(e);
    add(matrixOf(symbol("T"), local, freedoms, T_Pinakas));
    add(matrixOf(symbol("k"), local, local, K_Topiko));
    add(matrixOf(symbol("K", "e"), freedoms, freedoms, K_Stoixeiou));
    if (isLoadedElement(e)) {
        add(matrixOf(symbol("f", "", "0"), local, {{""}}, F_Pakton_Topiko));
        add(matrixOf(symbol("F", "e", "0"), freedoms, {{""}}, F_Pakton_Oliko));
    } else {
        tell(Metafrasi(1992, "It bears no load, and its fixed-end forces are 0."));
    }
    std::string numbers;
    for (const int n : {ni, nj})
        for (int component = 1; component <= 3; ++component)
            numbers += (numbers.empty() ? "" : ", ") + freedomNumber(freedomOf(n, component));
    tell(filled(Metafrasi(1990, "Rows, columns and forces go to the freedoms %1."), {numbers}));
    add(Links{Metafrasi(2036, "Further on:"),
              {{Metafrasi(1996, "Equations of the structure"), "equations"},
               {filled(Metafrasi(2018, "End forces of element %1"), {name}), "forces-" + name}}});
}

void StepsRun::addSprings()
{
    Synthesi_Elatirion();
    open("springs", 1, Metafrasi(1993, "Springs"));
    const auto sprung = [](int n) { return hasSpring(n); };
    if (countRows(Arithmos_Kombon, sprung) == 0)
        return tell(Metafrasi(1994, "The model has no springs."));
    tell(Metafrasi(1995, "The constants of springs are added on the diagonal."));
    Grid grid{false, {}, Metafrasi(1732, "Node"), {{"Kx"}, {"Ky"}, {"Kz"}}, {}};
    for (const int n : rowsWhere(Arithmos_Kombon, sprung)) {
        grid.rows.push_back({count(n), {}});
        for (int component = 1; component <= 3; ++component) {
            Cell cell = number(Elatiria(n, component));
            cell.origin = freedomNumber(freedomOf(n, component));
            grid.rows.back().cells.push_back(cell);
        }
    }
    add(grid);
}

/// "elements 1 and 2; spring of node 3"
std::string StepsRun::originOf(int row, int column) const
{
    std::string text;
    if (const auto found = origins_.find({row, column}); found != origins_.end())
        text = filled(forRows(Metafrasi(1999, "element %1|elements %1"), found->second.size()),
                      {rowList(found->second)});
    const int n = nodeOfFreedom(row);
    if (row == column && hasSpring(n, componentOf(row)))
        text += (text.empty() ? "" : "; ")
                + filled(Metafrasi(2000, "spring of node %1"), {numberText(n)});
    return text;
}

std::string StepsRun::originOfLoad(int freedom) const
{
    const int n = nodeOfFreedom(freedom);
    std::string text;
    if (Komboi(n, node::Fx - 1 + componentOf(freedom)) != 0)
        text = filled(Metafrasi(2006, "load of node %1"), {numberText(n)});
    const std::vector<int> elements = rowsWhere(Arithmos_Stoixeion, [n](int e) {
        return isLoadedElement(e)
               && (nodeOf(e, element::nodeI) == n || nodeOf(e, element::nodeJ) == n);
    });
    if (!elements.empty())
        text += (text.empty() ? "" : "; ")
                + filled(forRows(Metafrasi(1999, "element %1|elements %1"), elements.size()),
                         {rowList(elements)});
    return text;
}

void StepsRun::showPattern()
{
    Picture pattern{Picture::Kind::pattern,
                    filled(Metafrasi(1998, "The entries that are not 0, in black. The lines part "
                                           "the %1 free freedoms from the %2 held ones."),
                           {numberText(Eleftheroi_Vathmoi), numberText(Desmevmenoi_Vathmoi)}),
                    Eleftheroi_Vathmoi};
    pattern.size = 3 * Arithmos_Kombon;
    for (int row = 1; row <= pattern.size; ++row) {
        const auto [first, last] = K_Anadiataxi.stretch(row);
        const auto values = K_Anadiataxi.read(row, first, last);
        for (int column = first; column <= last; ++column)
            if (values[static_cast<std::size_t>(column - first)] != 0)
                pattern.entries.emplace_back(row, column);
    }
    add(pattern);
}

/// The rows of the chosen nodes, and the columns that are not 0 in all of them.
void StepsRun::showStiffness()
{
    const std::vector<int> rows = shownRows();
    std::set<int> columns;
    for (const int p : rows)
        for (int q = 1; q <= Eleftheroi_Vathmoi; ++q)
            if (isWhole() || std::as_const(K_ff)(p, q) != 0)
                columns.insert(q);
    Grid grid{true, symbol("K", "ff") + " =", {}, {}, {}};
    for (const int q : columns)
        grid.columns.push_back(freedomCellAt(q));
    for (const int p : rows) {
        grid.rows.push_back({freedomCellAt(p), {}});
        for (const int q : columns) {
            Cell cell = number(std::as_const(K_ff)(p, q));
            cell.origin =
                originOf(static_cast<int>(Seira_Vathmon(p)), static_cast<int>(Seira_Vathmon(q)));
            grid.rows.back().cells.push_back(cell);
        }
    }
    add(grid);
}

void StepsRun::showRightHandSide()
{
    tell(Metafrasi(2007, "The right-hand side is the nodal load less the fixed-end forces of the "
                         "elements that meet there:"));
    add(Formula{symbol("p", "f") + " = " + symbol("p") + " − Σ " + symbol("F", "e", "0")});
    Grid grid{false,
              {},
              Metafrasi(2009, "Freedom"),
              partsOf(Metafrasi(2008, "nodal load|fixed-end forces"), 2),
              {}};
    grid.columns.push_back({symbol("p", "f")});
    for (const int p : shownRows()) {
        const int freedom = static_cast<int>(Seira_Vathmon(p));
        Cell sum = number(P_Eleftheroi(p));
        sum.origin = originOfLoad(freedom);
        grid.rows.push_back(
            {freedomCell(freedom),
             {number(Komboi(nodeOfFreedom(freedom), node::Fx - 1 + componentOf(freedom))),
              number(P_Oliko(freedom)), sum}});
    }
    add(grid);
}

void StepsRun::cutEquations()
{
    Arithmisi_Vathmon();
    Diamerisi_K();
    Dexi_Meli();
    open("equations", 1, Metafrasi(1996, "Equations of the structure"));
    tell(Metafrasi(1997, "Each entry of the elements' matrices is added at the freedoms that it "
                         "belongs to. Held displacements are 0, so the rows and columns of the "
                         "free freedoms suffice. Point at an entry to see what it was added up "
                         "from."));
    add(Formula{symbol("K", "ff") + " " + symbol("U", "f") + " = " + symbol("p", "f")});
    showPattern();
    if (!isWhole())
        tell(filled(Metafrasi(2010, "In numbers, the rows of the nodes %1, and the columns in "
                                    "which they are not 0:"),
                    {rowList(choice_.nodes)}));
    if (Eleftheroi_Vathmoi == 0)
        throw Ending{Metafrasi(2032, "No freedom is free: there are no equations to solve.")};
    showStiffness();
    showRightHandSide();
}

/// The first pivot that is 0, where the rows down to it are such that their pivots are known.
int zeroPivot()
{
    for (int p = 1; p <= Eleftheroi_Vathmoi; ++p) {
        for (int q = p; q <= Eleftheroi_Vathmoi; ++q)
            if (!std::isfinite(std::as_const(K_ff)(p, q)))
                return 0;
        if (std::as_const(K_ff)(p, p) == 0)
            return p;
    }
    return 0;
}

void StepsRun::showPivots(int last)
{
    Grid grid{false,
              {},
              Metafrasi(2009, "Freedom"),
              partsOf(Metafrasi(2012, "diagonal of the matrix|pivot"), 2),
              {}};
    for (const int p : shownRows())
        if (p <= last)
            grid.rows.push_back(
                {freedomCellAt(p),
                 {number(std::as_const(K_Anadiataxi)(p, p)), number(std::as_const(K_ff)(p, p))}});
    add(grid);
}

void StepsRun::solve()
{
    open("elimination", 1, Metafrasi(2011, "Elimination"));
    tell(Metafrasi(2013, "From each row of the equations such multiples of the rows above are "
                         "taken that only zeros stay before the diagonal. What then stands on it "
                         "are the pivots. One that is 0 ends the elimination: something can move "
                         "freely. A negative one tells of an unstable structure."));
    add(Formula{scalar("K", "ij") + " ← " + scalar("K", "ij") + " − (" + scalar("K", "ki") + " / "
                + scalar("K", "kk") + ") " + scalar("K", "kj") + ",   " + scalar("p", "i") + " ← "
                + scalar("p", "i") + " − (" + scalar("K", "ki") + " / " + scalar("K", "kk") + ") "
                + scalar("p", "k")});
    try {
        solveFreeFreedoms();
    } catch (const Fault &) {
        const int zero = zeroPivot();
        if (zero == 0)
            throw;
        showPivots(zero);
        throw Ending{
            filled(Metafrasi(2031, "The pivot of freedom %1 (%2) is 0: the equations "
                                   "have no solution, as the structure can move freely."),
                   {numberText(zero), freedomText(static_cast<int>(Seira_Vathmon(zero)))})};
    }
    showPivots(Eleftheroi_Vathmoi);
    tell(Metafrasi(2014, "The last equation then gives its displacement, each one before it the "
                         "next:"));
    Grid grid{true, symbol("U", "f") + " =", {}, {{""}}, {}};
    for (const int p : shownRows())
        grid.rows.push_back({freedomCellAt(p), {number(U_Eleftheroi(p))}});
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

void StepsRun::recoverEndForces()
{
    open("end-forces", 1, Metafrasi(2016, "Back to the elements"));
    tell(Metafrasi(2019, "The displacements of the ends are those of their nodes, turned to local "
                         "axes. The stiffness times them, with the fixed-end forces added, gives "
                         "the end forces."));
    add(Formula{symbol("u") + " = " + symbol("T") + " " + symbol("U", "e")});
    add(Formula{symbol("f") + " = " + symbol("k") + " " + symbol("u") + " + "
                + symbol("f", "", "0")});
    add(Formula{symbol("F", "e") + " = " + symbol("T", "", "T") + " " + symbol("f")});
    Entasi_Topiki.clear();
    Entasi_Oliki.clear();
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        Metatopiseis_Stoixeiou(e);
        Ipologismos_T(e);
        Topikes_Metatopiseis();
        Ipologismos_K_Topiko(e);
        const bool isShown = std::count(choice_.elements.begin(), choice_.elements.end(), e) > 0;
        std::array<double, 6> product{};
        if (isShown) { // without fixed-end forces the stage gives k u alone
            F_Pakton_Topiko.clear();
            Entasi_Stoixeiou(e);
            std::copy_n(Entasi_Topiki.row(e).begin(), 6, product.begin());
            std::fill_n(Entasi_Topiki.row(e).begin(), 6, 0.0);
        }
        Ipologismos_F_Pakton(e);
        Topika_F_Pakton();
        Entasi_Stoixeiou(e);
        Oliki_Entasi_Stoixeiou(e);
        if (isShown)
            showEndForces(e, product);
    }
}

void StepsRun::showEndForces(int e, const std::array<double, 6> &product)
{
    const std::string name = numberText(e);
    open("forces-" + name, 2, filled(Metafrasi(2018, "End forces of element %1"), {name}));
    Grid grid{false,
              {},
              {},
              {{symbol("U", "e")},
               {symbol("u")},
               {symbol("k") + " " + symbol("u")},
               {symbol("f", "", "0")},
               {symbol("f")},
               {symbol("F", "e")}},
              {}};
    Picture picture{Picture::Kind::element,
                    filled(Metafrasi(2017, "Element %1, its axes, and the forces of the nodes on "
                                           "its ends, drawn where they are positive."),
                           {name})};
    picture.element = e;
    for (int k = 1; k <= 6; ++k) {
        const auto at = static_cast<std::size_t>(k - 1);
        grid.rows.push_back({{localFreedoms()[at]},
                             {number(U_Stoixeiou_Oliko(k)), number(U_Stoixeiou_Topiko(k)),
                              number(product[at]), number(F_Pakton_Topiko(k)),
                              number(Entasi_Topiki(e, k)), number(Entasi_Oliki(e, k))}});
        picture.endForces.push_back(grid.rows.back().cells[4].text.plainText());
    }
    add(picture);
    add(grid);
    add(Links{Metafrasi(2035, "Its matrices:"),
              {{filled(Metafrasi(1988, "Element %1"), {name}), "element-" + name}}});
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
            put(symbol("f") + ", " + filled(Metafrasi(1988, "Element %1"), {numberText(e)}) + ", "
                    + localFreedoms()[static_cast<std::size_t>(k - 1)],
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

} // namespace

Document stepsOfAnalysis(const Choice &wished)
{
    return StepsRun(wished).run();
}

} // namespace veskora::steps
