#pragma once
/// @file
/// The stages of the analysis, run one after the other, and what each has left in its tables.

#include "Formulas.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Sentences.h"
#include "Steps.h"

#include <array>
#include <map>
#include <utility>

namespace veskora::steps {

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

private:
    const decltype(Metatopiseis) displacements = Metatopiseis;
    const decltype(Entasi_Topiki) endForces = Entasi_Topiki;
    const decltype(Antidraseis) reactions = Antidraseis;
    std::int16_t free_ = Eleftheroi_Vathmoi;
    std::int16_t held_ = Desmevmenoi_Vathmoi;
};

/// Whether the analysis adds a spring at a freedom; the report knows those above 0 alone.
inline bool isSprung(int n, int component)
{
    return Elatiria(n, component) != 0;
}
inline bool isSprungNode(int n)
{
    return isSprung(n, 1) || isSprung(n, 2) || isSprung(n, 3);
}
inline bool isHeld(int n, int component)
{
    return Komboi(n, node::fixedX - 1 + component) == 1;
}

/// A number that the report prints.
struct ReportNumber
{
    double value;
    Line name; ///< empty where it is not to be shown
};

class StepsRun
{
public:
    explicit StepsRun(const Choice &wished)
        : choice_(completed(wished)), reported_(numbersOfReport())
    {}

    Document run();

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
    void showRows(const std::vector<int> &rows);
    void showRightHandSide();
    void showPivots(int last);
    void warnOfMotion();
    void showReactions();
    void showSpringForces();
    void showEndForces(int e, const std::array<double, 6> &product);

    /// @name Parts of the document
    /// @{
    void open(const std::string &id, int level, const std::string &heading)
    {
        document_.sections.push_back({id, level, heading});
    }
    void add(Block block) { document_.sections.back().blocks.push_back(std::move(block)); }
    void tell(const std::string &text) { add(Paragraph{text}); }
    void warn(const std::string &text) { add(Paragraph{text, true}); }

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
    /// Permuted numbers of the free freedoms of a node, and of all the chosen ones.
    std::vector<int> freeRows(int n) const;
    std::vector<int> shownRows() const;
    /// Whether the structure's matrix is shown as one: all is chosen, and it has no more rows than
    /// a small model's elements have ends.
    bool isWhole() const
    {
        return static_cast<int>(choice_.elements.size()) == Arithmos_Stoixeion
               && static_cast<int>(choice_.nodes.size()) == Arithmos_Kombon
               && Eleftheroi_Vathmoi <= 6 * wholeUpTo;
    }
    std::string originOf(int row, int column) const;
    std::string originOfLoad(int freedom) const;
    Cell nodalLoad(int freedom) const;
    Cell sumOfEndForces(int n, int component) const;
    /// In the order in which the report prints them.
    std::vector<ReportNumber> numbersOfReport() const;

    const Choice choice_;
    const Kept kept_;
    const std::vector<ReportNumber> reported_; ///< of the results that there were
    Document document_;
    std::vector<int> position_; ///< at its natural number the permuted one of each freedom
    /// Elements by natural freedoms, of the right-hand side in column 0.
    std::map<std::pair<int, int>, std::vector<int>> origins_;
};

/// "elements 1 and 2"
std::string elementsText(const std::vector<int> &elements);

std::vector<Cell> cellsOf(const auto &lines)
{
    std::vector<Cell> cells;
    cells.reserve(lines.size());
    for (const Line &line : lines)
        cells.push_back({line});
    return cells;
}

/// The parts of a text that are parted by "|".
inline std::vector<Cell> partsOf(const std::string &text, std::size_t count)
{
    std::vector<Cell> cells;
    for (std::size_t k = 0; k < count; ++k)
        cells.push_back({part(text, k)});
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

} // namespace veskora::steps
