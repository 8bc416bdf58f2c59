#pragma once
/// @file
/// A table of cells as the results window shows it.

#include "ResultCells.h"

#include <QAbstractTableModel>

#include <vector>

namespace veskora {

/// A table of texts. Rows and columns count from 0 and headers are rows like others, as a workbook
/// has them; row 0 is one, which `headerData` gives too.
///
/// Cells set text and ground both, so that the colours read on any theme.
class ResultGrid : public QAbstractTableModel
{
    Q_OBJECT
public:
    /// @param leastWidths  of the columns, in twips; they grow with their content
    ResultGrid(TextTable cells, std::vector<int> leastWidths)
        : cells_(std::move(cells)), leastWidths_(std::move(leastWidths))
    {}

    /// Empty behind the last cell of a row.
    QString text(int row, int column) const;
    bool hasCellsOf(const ResultGrid &other) const { return cells_ == other.cells_; }
    const std::vector<int> &leastWidths() const { return leastWidths_; }
    std::vector<int> separators() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    TextTable cells_;
    std::vector<int> leastWidths_;
};

/// The font of header cells.
QFont gridHeaderFont();

} // namespace veskora
