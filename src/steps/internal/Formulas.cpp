#include "Formulas.h"

#include "Functions.h"

namespace veskora::steps {

namespace {

Line styled(Run::Style style, const char *name, const char *subscript, const char *superscript)
{
    Line line({{name, style}});
    if (*subscript != 0)
        line.runs.push_back({subscript, Run::Style::subscript});
    if (*superscript != 0)
        line.runs.push_back({superscript, Run::Style::superscript});
    return line;
}

using Entries = std::array<const char *, 6>;

Grid matrixOf(const Line &name, const std::array<Entries, 6> &entries)
{
    Grid grid;
    grid.isMatrix = true;
    grid.name = name + " =";
    for (std::size_t r = 0; r < 6; ++r) {
        grid.columns.push_back({localFreedoms()[r]});
        GridRow row{{localFreedoms()[r]}, {}};
        for (const char *entry : entries[r])
            row.cells.push_back({entry});
        grid.rows.push_back(row);
    }
    return grid;
}

// As the engine fills `K_Topiko`.
constexpr std::array<Entries, 6> rigidEnds = {{
    {"EA/L", "0", "0", "−EA/L", "0", "0"},
    {"0", "12EI/L³", "6EI/L²", "0", "−12EI/L³", "6EI/L²"},
    {"0", "6EI/L²", "4EI/L", "0", "−6EI/L²", "2EI/L"},
    {"−EA/L", "0", "0", "EA/L", "0", "0"},
    {"0", "−12EI/L³", "−6EI/L²", "0", "12EI/L³", "−6EI/L²"},
    {"0", "6EI/L²", "2EI/L", "0", "−6EI/L²", "4EI/L"},
}};
constexpr std::array<Entries, 6> hingeAtEndJ = {{
    {"EA/L", "0", "0", "−EA/L", "0", "0"},
    {"0", "3EI/L³", "3EI/L²", "0", "−3EI/L³", "0"},
    {"0", "3EI/L²", "3EI/L", "0", "−3EI/L²", "0"},
    {"−EA/L", "0", "0", "EA/L", "0", "0"},
    {"0", "−3EI/L³", "−3EI/L²", "0", "3EI/L³", "0"},
    {"0", "0", "0", "0", "0", "0"},
}};
constexpr std::array<Entries, 6> hingeAtEndI = {{
    {"EA/L", "0", "0", "−EA/L", "0", "0"},
    {"0", "3EI/L³", "0", "0", "−3EI/L³", "3EI/L²"},
    {"0", "0", "0", "0", "0", "0"},
    {"−EA/L", "0", "0", "EA/L", "0", "0"},
    {"0", "−3EI/L³", "0", "0", "3EI/L³", "−3EI/L²"},
    {"0", "3EI/L²", "0", "0", "−3EI/L²", "3EI/L"},
}};
constexpr std::array<Entries, 6> hingesAtBothEnds = {{
    {"EA/L", "0", "0", "−EA/L", "0", "0"},
    {"0", "0", "0", "0", "0", "0"},
    {"0", "0", "0", "0", "0", "0"},
    {"−EA/L", "0", "0", "EA/L", "0", "0"},
    {"0", "0", "0", "0", "0", "0"},
    {"0", "0", "0", "0", "0", "0"},
}};

constexpr Entries axialOnly = {"−nL/2", "0", "0", "−nL/2", "0", "0"};

Entries fixedEnds(ElementType type)
{
    switch (type) {
    case ElementType::P2:
        return {"−nL/2", "−qL/2", "−qL²/12", "−nL/2", "−qL/2", "qL²/12"};
    case ElementType::hingeAtJ:
        return {"−nL/2", "−5qL/8", "−qL²/8", "−nL/2", "−3qL/8", "0"};
    case ElementType::hingeAtI:
        return {"−nL/2", "−3qL/8", "0", "−nL/2", "−5qL/8", "qL²/8"};
    case ElementType::P1:
        return {"−nL/2", "−qL/2", "0", "−nL/2", "−qL/2", "0"};
    default:
        return axialOnly;
    }
}

} // namespace

Line symbol(const char *name, const char *subscript, const char *superscript)
{
    return styled(Run::Style::matrix, name, subscript, superscript);
}

Line scalar(const char *name, const char *subscript, const char *superscript)
{
    return styled(Run::Style::plain, name, subscript, superscript);
}

const std::array<Line, 6> &localFreedoms()
{
    static const std::array<Line, 6> all = {scalar("u", "i"), scalar("v", "i"), scalar("θ", "i"),
                                            scalar("u", "j"), scalar("v", "j"), scalar("θ", "j")};
    return all;
}

const std::array<Line, 6> &globalFreedoms()
{
    static const std::array<Line, 6> all = {scalar("U", "xi"), scalar("U", "yi"), scalar("θ", "i"),
                                            scalar("U", "xj"), scalar("U", "yj"), scalar("θ", "j")};
    return all;
}

const std::array<Line, 3> &nodeFreedoms()
{
    static const std::array<Line, 3> all = {scalar("U", "x"), scalar("U", "y"), Line("θ")};
    return all;
}

const std::array<Line, 3> &springConstants()
{
    static const std::array<Line, 3> all = {scalar("K", "x"), scalar("K", "y"), scalar("K", "z")};
    return all;
}

const std::array<Line, 3> &reactionComponents()
{
    static const std::array<Line, 3> all = {scalar("R", "x"), scalar("R", "y"), scalar("M", "z")};
    return all;
}

Line listOf(std::span<const Line> lines)
{
    Line list;
    for (const Line &line : lines)
        list = (list.runs.empty() ? list : list + ", ") + line;
    return list;
}

Line springFormula()
{
    std::array<Line, 3> all;
    for (std::size_t k = 0; k < 3; ++k)
        all[k] = reactionComponents()[k] + " = −" + springConstants()[k] + " " + nodeFreedoms()[k];
    return listOf(all);
}

Line eliminationFormula()
{
    const Line quotient = " − (" + scalar("K", "ki") + " / " + scalar("K", "kk") + ") ";
    return scalar("K", "ij") + " ← " + scalar("K", "ij") + quotient + scalar("K", "kj") + ",   "
           + scalar("p", "i") + " ← " + scalar("p", "i") + quotient + scalar("p", "k")
           + ";   k = 1 … n − 1,  i = k + 1 … n,  j = i … n";
}

Line substitutionFormula()
{
    return scalar("U", "i") + " = (" + scalar("p", "i") + " − " + scalar("Σ", "j > i") + " "
           + scalar("K", "ij") + " " + scalar("U", "j") + ") / " + scalar("K", "ii")
           + ";   i = n … 1";
}

std::vector<Line> definedSymbols()
{
    return {"E, A, I",
            "L",
            "c, s",
            symbol("T"),
            symbol("k") + ", " + symbol("K", "e"),
            scalar("w", "x") + ", " + scalar("w", "y"),
            "n, q",
            symbol("f", "", "0") + ", " + symbol("F", "e", "0"),
            symbol("u") + ", " + symbol("U", "e"),
            symbol("f") + ", " + symbol("F", "e"),
            listOf(localFreedoms()),
            listOf(springConstants()),
            symbol("K", "ff"),
            symbol("p"),
            symbol("p", "f"),
            symbol("U", "f"),
            scalar("K", "ij") + ", " + scalar("p", "i") + ", " + scalar("U", "i"),
            listOf(nodeFreedoms()),
            symbol("R"),
            listOf(reactionComponents())};
}

Grid rotationFormula()
{
    Grid grid = matrixOf(symbol("T"), {{{"c", "s", "0", "0", "0", "0"},
                                        {"−s", "c", "0", "0", "0", "0"},
                                        {"0", "0", "1", "0", "0", "0"},
                                        {"0", "0", "0", "c", "s", "0"},
                                        {"0", "0", "0", "−s", "c", "0"},
                                        {"0", "0", "0", "0", "0", "1"}}});
    for (std::size_t column = 0; column < 6; ++column)
        grid.columns[column] = {globalFreedoms()[column]};
    return grid;
}

Grid stiffnessFormula(ElementType type)
{
    switch (type) {
    case ElementType::P2:
        return matrixOf(symbol("k"), rigidEnds);
    case ElementType::hingeAtJ:
        return matrixOf(symbol("k"), hingeAtEndJ);
    case ElementType::hingeAtI:
        return matrixOf(symbol("k"), hingeAtEndI);
    default:
        return matrixOf(symbol("k"), hingesAtBothEnds);
    }
}

Grid fixedEndFormula(const std::vector<ElementType> &types)
{
    Grid grid;
    grid.isMatrix = true;
    grid.name = symbol("f", "", "0") + " =";
    for (const Line &freedom : localFreedoms())
        grid.rows.push_back({{freedom}, {}});
    for (const ElementType type : types) {
        grid.columns.push_back({typeText(type)});
        const Entries entries = fixedEnds(type);
        for (std::size_t r = 0; r < 6; ++r)
            grid.rows[r].cells.push_back({entries[r]});
    }
    return grid;
}

std::string typeText(ElementType type)
{
    switch (type) {
    case ElementType::P1:
        return Metafrasi(375, "P1 (Hinges at i,j)");
    case ElementType::hingeAtI:
        return Metafrasi(373, "P2' (Hinge at i)");
    case ElementType::hingeAtJ:
        return Metafrasi(374, "P2' (Hinge at j)");
    default:
        return "P2";
    }
}

} // namespace veskora::steps
