#include "ResultGrid.h"

#include "QtColour.h"
#include "Text.h"

#include <QFont>

namespace veskora {

namespace {

constexpr double cellGround = 0xFFFFFF;
constexpr double buttonFace = 0x8000000F; // a system colour

} // namespace

QString ResultGrid::text(int row, int column) const
{
    const std::vector<TextCell> &cells = cells_.at(static_cast<std::size_t>(row)).cells;
    const auto place = static_cast<std::size_t>(column);
    return place < cells.size() ? qtText(cells[place].text) : QString();
}

std::vector<int> ResultGrid::separators() const
{
    std::vector<int> rows;
    for (std::size_t row = 0; row < cells_.size(); ++row)
        if (cells_[row].kind == TextRow::Kind::separator)
            rows.push_back(static_cast<int>(row));
    return rows;
}

int ResultGrid::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(cells_.size());
}

int ResultGrid::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(leastWidths_.size());
}

QVariant ResultGrid::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) // the view copies its current cell, which may be none
        return {};
    const TextRow &row = cells_.at(static_cast<std::size_t>(index.row()));
    const auto column = static_cast<std::size_t>(index.column());
    const bool isFilled = column < row.cells.size();
    const bool isHeader = row.kind == TextRow::Kind::header && isFilled;
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), index.column());
    case Qt::ForegroundRole:
        return qtColour(isFilled ? row.cells[column].colour : cellColour::black);
    case Qt::BackgroundRole:
        return qtColour(isHeader && column > 0 ? buttonFace : cellGround);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignHCenter | Qt::AlignTop);
    case Qt::FontRole:
        return isHeader ? gridHeaderFont() : QVariant();
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

} // namespace veskora

#include "moc_ResultGrid.cpp"
