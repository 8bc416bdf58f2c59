// The steps from springs and assembled elements to the solution of the equations.

#include "epilisi.h"
#include "FreeMotions.h"
#include "StepsRun.h"

#include <algorithm>
#include <cmath>

namespace veskora::steps {

void StepsRun::addSprings()
{
    Synthesi_Elatirion();
    open("springs", 1, Metafrasi(1993, "Springs"));
    const std::vector<int> nodes = rowsWhere(Arithmos_Kombon, isSprungNode);
    if (nodes.empty())
        return tell(Metafrasi(1994, "The model has no springs."));
    tell(Metafrasi(1995, "The constants of springs are added on the diagonal."));
    Grid grid{false, {}, Metafrasi(1732, "Node"), cellsOf(springConstants()), {}};
    for (const int n : nodes) {
        grid.rows.push_back({count(n), {}});
        for (int component = 1; component <= 3; ++component) {
            Cell cell = number(Elatiria(n, component));
            cell.origin = freedomNumber(freedomOf(n, component));
            grid.rows.back().cells.push_back(cell);
        }
    }
    add(grid);
}

std::string elementsText(const std::vector<int> &elements)
{
    return filled(forRows(Metafrasi(1999, "element %1|elements %1"), elements.size()),
                  {rowList(elements)});
}

/// "elements 1 and 2; spring of node 3"
std::string StepsRun::originOf(int row, int column) const
{
    std::string text;
    if (const auto found = origins_.find({row, column}); found != origins_.end())
        text = elementsText(found->second);
    const int n = nodeOfFreedom(row);
    if (row == column && isSprung(n, componentOf(row)))
        text += (text.empty() ? "" : "; ")
                + filled(Metafrasi(2000, "spring of node %1"), {numberText(n)});
    return text;
}

Cell StepsRun::nodalLoad(int freedom) const
{
    const int n = nodeOfFreedom(freedom);
    Cell load = number(Komboi(n, node::Fx - 1 + componentOf(freedom)));
    if (*load.value != 0)
        load.origin = filled(Metafrasi(2006, "load of node %1"), {numberText(n)});
    return load;
}

std::string StepsRun::originOfLoad(int freedom) const
{
    std::string text = nodalLoad(freedom).origin;
    if (const auto found = origins_.find({freedom, 0}); found != origins_.end())
        text += (text.empty() ? "" : "; ") + elementsText(found->second);
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

/// Whole, or the rows of each chosen node with the columns in which they are not 0.
void StepsRun::showStiffness()
{
    if (isWhole())
        return showRows(shownRows());
    for (const int n : choice_.nodes)
        if (const std::vector<int> rows = freeRows(n); !rows.empty())
            showRows(rows);
}

void StepsRun::showRows(const std::vector<int> &rows)
{
    std::vector<int> columns;
    for (int q = 1; q <= Eleftheroi_Vathmoi; ++q)
        if (isWhole() || std::any_of(rows.begin(), rows.end(), [q](int p) {
                return std::as_const(K_ff)(p, q) != 0;
            }))
            columns.push_back(q);
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
            {freedomCell(freedom), {nodalLoad(freedom), number(P_Oliko(freedom)), sum}});
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
    const bool isAnyShown = !shownRows().empty();
    if (isAnyShown && !isWhole())
        tell(filled(Metafrasi(2010, "In numbers, the rows of the nodes %1, and the columns in "
                                    "which they are not 0:"),
                    {rowList(choice_.nodes)}));
    if (Eleftheroi_Vathmoi == 0)
        throw Ending{Metafrasi(2032, "No freedom is free: there are no equations to solve.")};
    if (!isAnyShown)
        return tell(Metafrasi(2047, "All freedoms of the nodes shown are held and have no "
                                    "equation."));
    showStiffness();
    showRightHandSide();
}

namespace {

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

/// What a pivot tells; empty where it is as it should be. Its ratio to the diagonal before is no
/// less than the smallest eigenvalue of the matrix scaled to a unit diagonal, so their limit is
/// one.
std::string remarkOn(double pivot, double before)
{
    const std::string remarks = Metafrasi(2040, "is 0|next to nothing|negative");
    if (pivot == 0)
        return part(remarks, 0);
    if (std::abs(pivot) < nearlyFreeBelow * std::abs(before))
        return part(remarks, 1);
    return pivot < 0 ? part(remarks, 2) : "";
}

} // namespace

void StepsRun::showPivots(int last)
{
    Grid grid{false,
              {},
              Metafrasi(2009, "Freedom"),
              partsOf(Metafrasi(2012, "diagonal of the matrix|pivot|right-hand side then"), 3),
              {}};
    std::vector<std::string> remarks;
    for (const int p : shownRows()) {
        if (p > last)
            continue;
        const double before = std::as_const(K_Anadiataxi)(p, p), pivot = std::as_const(K_ff)(p, p);
        grid.rows.push_back(
            {freedomCellAt(p), {number(before), number(pivot), number(P_Eleftheroi(p))}});
        remarks.push_back(remarkOn(pivot, before));
    }
    if (std::any_of(remarks.begin(), remarks.end(),
                    [](const auto &text) { return !text.empty(); })) {
        grid.columns.push_back({""});
        for (std::size_t row = 0; row < remarks.size(); ++row)
            grid.rows[row].cells.push_back({remarks[row]});
    }
    add(grid);
}

void StepsRun::solve()
{
    open("elimination", 1, Metafrasi(2011, "Elimination"));
    tell(Metafrasi(2013,
                   "From each row of the equations such multiples of the rows above are "
                   "taken that only zeros stay before the diagonal. What then stands on it "
                   "are the pivots. One that is 0 ends the elimination, and one that is next "
                   "to nothing beside the diagonal before is 0 but for rounding, whatever its "
                   "sign: something can move freely. Any other negative one tells of an "
                   "unstable structure. Only what stands on the diagonal and above it is "
                   "kept: by symmetry the entry in row k and column i serves for the one in "
                   "row i and column k."));
    add(Formula{eliminationFormula()});
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
    tell(Metafrasi(2014, "The last equation has one unknown left. From it upward, each gives one "
                         "displacement:"));
    add(Formula{substitutionFormula()});
    Grid grid{true, symbol("U", "f") + " =", {}, {{""}}, {}};
    for (const int p : shownRows())
        grid.rows.push_back({freedomCellAt(p), {number(U_Eleftheroi(p))}});
    add(grid);
}

} // namespace veskora::steps
