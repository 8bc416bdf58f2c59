#pragma once
/// @file
/// A table on paper: numbers stand at the right with their decimal separators under each other,
/// names at the left, and the header is repeated on each page.

#include "PageFlow.h"
#include "ResultCells.h"

#include <QString>

namespace veskora {

class PrintedTable : public PrintedBlock
{
public:
    PrintedTable(const TextTable &table, const Sheet &sheet);

    std::size_t parts() const override { return groups_.size(); }
    double heightOf(std::size_t part) const override;
    double repeatedHeight() const override { return 1.2 * rowHeight_; } ///< a line and its air
    double spaceAbove() const override { return rowHeight_ / 2; }
    std::size_t partsToBegin() const override { return 3; }
    void paint(QPainter &painter, double top, std::size_t first, std::size_t end) const override;

private:
    struct Cell
    {
        enum class Kind {
            text,
            number,
            exponential ///< not put under the others: it would push them far to the left
        };

        Cell(const QString &text, std::uint32_t colour);

        Kind kind = Kind::text;
        QString whole, fraction; ///< only a number has a fraction, its separator included
        std::uint32_t colour;
    };
    struct Column
    {
        double left = 0, width = 0, fraction = 0;
        bool hasNumbers = false;

        double behind(const Cell &cell) const; ///< free, for the fractions of others
    };
    /// Rows that stay together.
    struct Group
    {
        std::size_t first, end;
        bool hasLine; ///< below
    };

    void takeRows(const TextTable &table);
    double setColumns(double points);
    void paintHeader(QPainter &painter, double top) const;
    void paintCell(QPainter &painter, const Cell &cell, const Column &column,
                   double baseline) const;

    const Sheet sheet_;
    std::vector<std::vector<Cell>> rows_; ///< the first is the header
    std::vector<Group> groups_;
    std::vector<Column> columns_;
    QFont font_, headerFont_;
    double rowHeight_ = 0;
};

} // namespace veskora
