#pragma once
/// @file
/// The four grids of the results window: what stands in which cell, and in which colour.

#include <QAbstractTableModel>

#include <string>
#include <vector>

namespace veskora {

/// Colour words of cell texts.
namespace cellColour {
inline constexpr std::uint32_t black = 0;
inline constexpr std::uint32_t maximum = 0xFF0000; ///< blue
inline constexpr std::uint32_t minimum = 0xFF;     ///< red
inline constexpr std::uint32_t spring = 0x8000;    ///< green
} // namespace cellColour

/// A table of texts. Rows and columns count from 0 and headers are rows like others, as a workbook
/// has them; row 0 is one, which `headerData` gives too.
///
/// Cells set text and ground both, so that the colours read on any theme.
class ResultGrid : public QAbstractTableModel
{
    Q_OBJECT
public:
    /// @param leastWidths  of the columns, in twips; they grow with their content
    explicit ResultGrid(std::vector<int> leastWidths) : leastWidths_(std::move(leastWidths)) {}

    /// @name Filling, before a view has the grid
    /// @{
    void addHeader(const std::vector<std::string> &texts);
    /// Adds a row that has nothing in it yet, and returns its number.
    int addRow();
    /// The same, as a thin line between others.
    void addSeparator();
    void setText(int row, int column, const std::string &text,
                 std::uint32_t colour = cellColour::black);
    /// @}

    const QString &text(int row, int column) const { return cells_.at(place(row, column)).text; }
    bool hasCellsOf(const ResultGrid &other) const { return cells_ == other.cells_; }
    const std::vector<int> &leastWidths() const { return leastWidths_; }
    const std::vector<int> &separators() const { return separators_; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Cell
    {
        QString text;
        std::uint32_t colour = cellColour::black;
        bool header = false;
        bool operator==(const Cell &) const = default;
    };
    std::size_t place(int row, int column) const;

    std::vector<int> leastWidths_;
    std::vector<int> separators_;
    std::vector<Cell> cells_; ///< row by row
};

/// The font of header cells.
QFont gridHeaderFont();

/// @name Filling the grids from the tables of the store
/// @{
void fillData(ResultGrid &grid);
void fillDisplacements(ResultGrid &grid);
void fillElementForces(ResultGrid &grid);
void fillReactions(ResultGrid &grid);
/// @}

/// The element type as grid and tree name it: "P2", "P2' (Hinge i)" ...
std::string elementTypeText(int e);

/// Number texts with the decimal separator of the region, which is asked for once.
class RegionalNumbers
{
public:
    RegionalNumbers();
    std::string operator()(float value) const;
    std::string operator()(double value) const;

private:
    std::string separator_;
};

} // namespace veskora
