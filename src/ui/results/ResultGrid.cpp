#include "ResultGrid.h"

#include "Functions.h"
#include "Functions_Bres_Megista.h"
#include "ImageKanvas.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "QtColour.h"
#include "RowQueries.h"
#include "Text.h"

#include <QFont>

#include <array>

namespace veskora {

namespace {

constexpr double cellGround = 0xFFFFFF;
constexpr double buttonFace = 0x8000000F; // a system colour

} // namespace

void ResultGrid::addHeader(const std::vector<std::string> &texts)
{
    const int row = addRow();
    for (int column = 0; const std::string &text : texts) {
        setText(row, column, text);
        cells_.at(place(row, column++)).header = true;
    }
}

int ResultGrid::addRow()
{
    cells_.resize(cells_.size() + leastWidths_.size());
    return rowCount() - 1;
}

void ResultGrid::addSeparator()
{
    separators_.push_back(addRow());
}

void ResultGrid::setText(int row, int column, const std::string &text, std::uint32_t colour)
{
    Cell &changed = cells_.at(place(row, column));
    changed.text = qtText(text);
    changed.colour = colour;
}

std::size_t ResultGrid::place(int row, int column) const
{
    return static_cast<std::size_t>(row * columnCount() + column);
}

int ResultGrid::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(cells_.size() / leastWidths_.size());
}

int ResultGrid::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(leastWidths_.size());
}

QVariant ResultGrid::data(const QModelIndex &index, int role) const
{
    const Cell &shown = cells_.at(place(index.row(), index.column()));
    switch (role) {
    case Qt::DisplayRole:
        return shown.text;
    case Qt::ForegroundRole:
        return qtColour(shown.colour);
    case Qt::BackgroundRole:
        return qtColour(shown.header && index.column() > 0 ? buttonFace : cellGround);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignHCenter | Qt::AlignTop);
    case Qt::FontRole:
        return shown.header ? gridHeaderFont() : QVariant();
    default:
        return {};
    }
}

QVariant ResultGrid::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal ? data(index(0, section), role) : QVariant();
}

QFont gridHeaderFont()
{
    return {"ms sans serif", 10};
}

RegionalNumbers::RegionalNumbers() : separator_(regionalDecimalSeparator())
{}

std::string RegionalNumbers::operator()(float value) const
{
    return withSeparator(numberText(value), separator_);
}

std::string RegionalNumbers::operator()(double value) const
{
    return withSeparator(numberText(value), separator_);
}

std::string elementTypeText(int e)
{
    const bool hingeI = Stoixeia(e, element::hingeI) == 1;
    const bool hingeJ = Stoixeia(e, element::hingeJ) == 1;
    if (hingeI == hingeJ)
        return hingeI ? "P1" : "P2";
    return "P2' " + (hingeI ? Metafrasi(337, "(Hinge i)") : Metafrasi(338, "(Hinge j)"));
}

void fillData(ResultGrid &grid)
{
    const RegionalNumbers number;
    const auto setUnlessZero = [&](int row, int column, float value) {
        if (value != 0)
            grid.setText(row, column, number(value));
    };
    grid.addHeader({Metafrasi(329, "Groups"), "E", "A", "I"});
    for (int g = 1; g <= Arithmos_Omadon; ++g) {
        const int row = grid.addRow();
        grid.setText(row, 0, numberText(g));
        for (int column = group::E; column <= group::I; ++column)
            grid.setText(row, column, number(Omades(g, column)));
    }
    grid.addRow();

    grid.addHeader(
        {Metafrasi(330, "Nodes"), "x", "y", Metafrasi(331, "Constraints"), "Kx", "Ky", "Kz"});
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const int row = grid.addRow();
        grid.setText(row, 0, numberText(n));
        grid.setText(row, 1, number(Komboi(n, node::x)));
        grid.setText(row, 2, number(Komboi(n, node::y)));
        grid.setText(row, 3, restraintText(n));
        for (int k = 1; k <= 3; ++k)
            if (hasSpring(n, k))
                grid.setText(row, 3 + k, number(Elatiria(n, k)));
    }
    grid.addRow();

    grid.addHeader({Metafrasi(332, "Elements"), Metafrasi(333, "Start node i"),
                    Metafrasi(334, "End node j"), Metafrasi(335, "Type"),
                    Metafrasi(336, "E,A,I Group")});
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const int row = grid.addRow();
        grid.setText(row, 0, numberText(e));
        grid.setText(row, 1, number(Stoixeia(e, element::nodeI)));
        grid.setText(row, 2, number(Stoixeia(e, element::nodeJ)));
        grid.setText(row, 3, elementTypeText(e));
        grid.setText(row, 4, number(Stoixeia(e, element::group)));
    }
    grid.addRow();

    const auto addLoad = [&](int count, int loaded, std::span<const float> components) {
        const int row = grid.addRow();
        grid.setText(row, 0, numberText(count));
        grid.setText(row, 1, numberText(loaded));
        for (int column = 2; const float component : components)
            setUnlessZero(row, column++, component);
    };
    grid.addHeader({Metafrasi(339, "Nodal L."), Metafrasi(340, "Node"), "Fx", "Fy", "M"});
    for (int n = 1, count = 0; n <= Arithmos_Kombon; ++n)
        if (isLoadedNode(n))
            addLoad(++count, n, nodalLoads(n));
    grid.addRow();

    grid.addHeader({Metafrasi(341, "Elem. L."), Metafrasi(342, "Element"), "Fx", "Fy"});
    for (int e = 1, count = 0; e <= Arithmos_Stoixeion; ++e)
        if (isLoadedElement(e))
            addLoad(++count, e, elementalLoads(e));
    grid.addRow();
}

void fillDisplacements(ResultGrid &grid)
{
    constexpr std::array maxima = {extreme::maxUx, extreme::maxUy, extreme::maxRotation};
    constexpr std::array minima = {extreme::minUx, extreme::minUy, extreme::minRotation};
    const RegionalNumbers number;
    const auto colour = [&](int n, int k, double value) {
        const auto component = static_cast<std::size_t>(k - 1);
        const bool isMaximum = value == Akrotata(maxima.at(component));
        const bool isMinimum = value == Akrotata(minima.at(component));
        if (hasSpring(n, k))
            return cellColour::spring;
        if (isMaximum == isMinimum) // both where all values are equal
            return cellColour::black;
        return isMaximum ? cellColour::maximum : cellColour::minimum;
    };
    grid.addHeader({Metafrasi(340, "Node"), Metafrasi(343, "x - Displacement"),
                    Metafrasi(344, "y - Displacement"), Metafrasi(345, "z - Rotation")});
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const int row = grid.addRow();
        grid.setText(row, 0, numberText(n));
        for (int k = 1; k <= 3; ++k) {
            if (Komboi(n, node::fixedX - 1 + k) == 1)
                continue;
            const double value = Metatopiseis(freedomOf(n, k));
            grid.setText(row, k, number(value), colour(n, k, value));
        }
    }
}

void fillElementForces(ResultGrid &grid)
{
    const RegionalNumbers number;
    grid.addHeader({Metafrasi(342, "Element"), "i, j", Metafrasi(346, "Axial force"),
                    Metafrasi(347, "Shear force"), Metafrasi(348, "Moment")});
    const auto addEnd = [&](int e, int nodeColumn, int firstForce) {
        const int row = grid.addRow();
        grid.setText(row, 1, number(Stoixeia(e, nodeColumn)));
        for (int k = 0; k < 3; ++k)
            grid.setText(row, 2 + k, number(Entasi_Topiki(e, firstForce + k)));
        return row;
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        grid.setText(addEnd(e, element::nodeI, 1), 0, numberText(e));
        addEnd(e, element::nodeJ, 4);
        grid.addSeparator();
    }
}

void fillReactions(ResultGrid &grid)
{
    const RegionalNumbers number;
    grid.addHeader({Metafrasi(340, "Node"), Metafrasi(349, "Force Fx"), Metafrasi(350, "Force Fy"),
                    Metafrasi(351, "Moment M")});
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        if (!isRestrainedNode(n) && !hasSpring(n))
            continue;
        const int row = grid.addRow();
        grid.setText(row, 0, numberText(n));
        for (int k = 1; k <= 3; ++k)
            if (const auto force = reactionAt(n, k))
                grid.setText(row, k, number(*force),
                             hasSpring(n, k) ? cellColour::spring : cellColour::black);
    }
}

} // namespace veskora
