#include "ResultCells.h"

#include "Functions.h"
#include "Functions_Bres_Megista.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"

#include <array>
#include <limits>

namespace veskora {

RegionalNumbers::RegionalNumbers(int digits)
    : digits_(digits), separator_(regionalDecimalSeparator())
{}

std::string RegionalNumbers::operator()(float value) const
{
    // Further digits of a Single are none of its own.
    const bool isShort = digits_ != allDigits && digits_ < std::numeric_limits<float>::digits10 + 1;
    return withSeparator(isShort ? roundedText(value, digits_) : numberText(value), separator_);
}

std::string RegionalNumbers::operator()(double value) const
{
    return withSeparator(digits_ == allDigits ? numberText(value) : roundedText(value, digits_),
                         separator_);
}

std::string elementTypeText(int e)
{
    const bool hingeI = Stoixeia(e, element::hingeI) == 1;
    const bool hingeJ = Stoixeia(e, element::hingeJ) == 1;
    if (hingeI == hingeJ)
        return hingeI ? "P1" : "P2";
    return "P2' " + (hingeI ? Metafrasi(337, "(Hinge i)") : Metafrasi(338, "(Hinge j)"));
}

TextRow headerRow(const std::vector<std::string> &texts)
{
    TextRow row{TextRow::Kind::header, {}};
    for (const std::string &text : texts)
        row.cells.push_back({text});
    return row;
}

TextTable groupCells(const RegionalNumbers &number)
{
    TextTable table = {headerRow({Metafrasi(329, "Groups"), "E", "A", "I"})};
    for (int g = 1; g <= Arithmos_Omadon; ++g) {
        TextRow &row = table.emplace_back();
        row.cells = {{numberText(g)}};
        for (int column = group::E; column <= group::I; ++column)
            row.cells.push_back({number(Omades(g, column))});
    }
    return table;
}

TextTable nodeCells(const RegionalNumbers &number)
{
    TextTable table = {headerRow(
        {Metafrasi(330, "Nodes"), "x", "y", Metafrasi(331, "Constraints"), "Kx", "Ky", "Kz"})};
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        TextRow &row = table.emplace_back();
        row.cells = {{numberText(n)},
                     {number(Komboi(n, node::x))},
                     {number(Komboi(n, node::y))},
                     {restraintText(n)}};
        for (int k = 1; k <= 3; ++k)
            row.cells.push_back({hasSpring(n, k) ? number(Elatiria(n, k)) : ""});
    }
    return table;
}

TextTable elementCells(const RegionalNumbers &)
{
    TextTable table = {headerRow({Metafrasi(332, "Elements"), Metafrasi(333, "Start node i"),
                                  Metafrasi(334, "End node j"), Metafrasi(335, "Type"),
                                  Metafrasi(336, "E,A,I Group")})};
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        table.push_back({TextRow::Kind::cells,
                         {{numberText(e)},
                          {numberText(Stoixeia(e, element::nodeI))},
                          {numberText(Stoixeia(e, element::nodeJ))},
                          {elementTypeText(e)},
                          {numberText(Stoixeia(e, element::group))}}});
    return table;
}

namespace {

TextRow loadRow(std::size_t count, int loaded, std::span<const float> components,
                const RegionalNumbers &number)
{
    TextRow row{TextRow::Kind::cells,
                {{numberText(static_cast<int>(count))}, {numberText(loaded)}}};
    for (const float component : components)
        row.cells.push_back({component != 0 ? number(component) : ""});
    return row;
}

} // namespace

TextTable nodalLoadCells(const RegionalNumbers &number)
{
    TextTable table = {
        headerRow({Metafrasi(339, "Nodal L."), Metafrasi(340, "Node"), "Fx", "Fy", "M"})};
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (isLoadedNode(n))
            table.push_back(loadRow(table.size(), n, nodalLoads(n), number));
    return table;
}

TextTable elementalLoadCells(const RegionalNumbers &number)
{
    TextTable table = {
        headerRow({Metafrasi(341, "Elem. L."), Metafrasi(342, "Element"), "Fx", "Fy"})};
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (isLoadedElement(e))
            table.push_back(loadRow(table.size(), e, elementalLoads(e), number));
    return table;
}

TextTable dataCells(const RegionalNumbers &number)
{
    TextTable all;
    for (const auto &cells :
         {groupCells, nodeCells, elementCells, nodalLoadCells, elementalLoadCells}) {
        for (TextRow &row : cells(number))
            all.push_back(std::move(row));
        all.emplace_back();
    }
    return all;
}

namespace {

std::uint32_t displacementColour(int n, int k, double value)
{
    constexpr std::array maxima = {extreme::maxUx, extreme::maxUy, extreme::maxRotation};
    constexpr std::array minima = {extreme::minUx, extreme::minUy, extreme::minRotation};
    const auto component = static_cast<std::size_t>(k - 1);
    const bool isMaximum = value == Akrotata(maxima.at(component));
    const bool isMinimum = value == Akrotata(minima.at(component));
    if (hasSpring(n, k))
        return cellColour::spring;
    if (isMaximum == isMinimum) // both where all values are equal
        return cellColour::black;
    return isMaximum ? cellColour::maximum : cellColour::minimum;
}

} // namespace

TextTable displacementCells(const RegionalNumbers &number)
{
    TextTable table = {
        headerRow({Metafrasi(340, "Node"), Metafrasi(343, "x - Displacement"),
                   Metafrasi(344, "y - Displacement"), Metafrasi(345, "z - Rotation")})};
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        TextRow &row = table.emplace_back();
        row.cells = {{numberText(n)}};
        for (int k = 1; k <= 3; ++k) {
            const double value = Metatopiseis(freedomOf(n, k));
            row.cells.push_back(Komboi(n, node::fixedX - 1 + k) == 1
                                    ? TextCell()
                                    : TextCell{number(value), displacementColour(n, k, value)});
        }
    }
    return table;
}

TextTable endForceCells(const RegionalNumbers &number)
{
    TextTable table = {headerRow({Metafrasi(342, "Element"), "i, j", Metafrasi(346, "Axial force"),
                                  Metafrasi(347, "Shear force"), Metafrasi(348, "Moment")})};
    const auto addEnd = [&](const std::string &name, float at, int e, int firstForce) {
        TextRow &row = table.emplace_back();
        row.cells = {{name}, {numberText(at)}};
        for (int k = 0; k < 3; ++k)
            row.cells.push_back({number(Entasi_Topiki(e, firstForce + k))});
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        addEnd(numberText(e), Stoixeia(e, element::nodeI), e, 1);
        addEnd("", Stoixeia(e, element::nodeJ), e, 4);
        table.push_back({TextRow::Kind::separator, {}});
    }
    return table;
}

TextTable reactionCells(const RegionalNumbers &number)
{
    TextTable table = {headerRow({Metafrasi(340, "Node"), Metafrasi(349, "Force Fx"),
                                  Metafrasi(350, "Force Fy"), Metafrasi(351, "Moment M")})};
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        if (!isRestrainedNode(n) && !hasSpring(n))
            continue;
        TextRow &row = table.emplace_back();
        row.cells = {{numberText(n)}};
        for (int k = 1; k <= 3; ++k) {
            const auto force = reactionAt(n, k);
            row.cells.push_back(force
                                    ? TextCell{number(*force), hasSpring(n, k) ? cellColour::spring
                                                                               : cellColour::black}
                                    : TextCell());
        }
    }
    return table;
}

} // namespace veskora
