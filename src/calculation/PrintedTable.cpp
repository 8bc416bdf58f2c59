#include "PrintedTable.h"

#include "QtColour.h"

#include <algorithm>

namespace veskora {

namespace {

constexpr double usualPoints = 8.5, leastPoints = 6;
constexpr double lineSpacing = 1.2;
constexpr double ruleWidth = 0.018; // cm; half a point, which any printer shows

} // namespace

PrintedTable::PrintedTable(const TextTable &table, const Sheet &sheet) : sheet_(sheet)
{
    takeRows(table);
    for (double points = usualPoints; setColumns(points) > sheet_.width() && points > leastPoints;
         points -= 0.5)
        ;
}

void PrintedTable::takeRows(const TextTable &table)
{
    std::size_t first = 1;
    for (const TextRow &row : table) {
        if (row.kind == TextRow::Kind::separator) {
            groups_.push_back({first, rows_.size(), true});
            first = rows_.size();
            continue;
        }
        std::vector<Cell> &cells = rows_.emplace_back();
        for (const auto &[text, colour] : row.cells) {
            const auto shown = QString::fromStdString(text);
            const qsizetype digits = shown.startsWith('-') ? 1 : 0;
            qsizetype whole = digits;
            while (whole < shown.size() && shown[whole].isDigit())
                ++whole;
            const bool isNumber = whole > digits;
            cells.push_back({isNumber ? shown.left(whole) : shown,
                             isNumber ? shown.mid(whole) : QString(), isNumber, colour});
        }
    }
    if (groups_.empty())
        for (std::size_t row = 1; row < rows_.size(); ++row)
            groups_.push_back({row, row + 1, false});
}

/// @return the width of all
double PrintedTable::setColumns(double points)
{
    font_ = sheet_.font(points);
    headerFont_ = sheet_.font(points, true);
    const QFontMetricsF metrics = sheet_.metrics(font_), header = sheet_.metrics(headerFont_);
    rowHeight_ = lineSpacing * metrics.height();
    const double gap = sheet_.cm(points / usualPoints * 0.6);
    columns_.assign(rows_.front().size(), {});
    for (std::size_t row = 1; row < rows_.size(); ++row)
        for (std::size_t k = 0; k < rows_[row].size(); ++k) {
            const Cell &cell = rows_[row][k];
            double &width = cell.isNumber ? columns_[k].whole : columns_[k].width;
            width = std::max(width, metrics.horizontalAdvance(cell.whole));
            columns_[k].fraction =
                std::max(columns_[k].fraction, metrics.horizontalAdvance(cell.fraction));
        }
    double left = 0;
    for (std::size_t k = 0; k < columns_.size(); ++k) {
        Column &column = columns_[k];
        column.width = std::max({column.width, column.whole + column.fraction,
                                 header.horizontalAdvance(rows_.front()[k].whole)});
        column.left = left;
        left += column.width + gap;
    }
    return left - gap;
}

double PrintedTable::heightOf(std::size_t part) const
{
    const Group &group = groups_[part];
    return static_cast<double>(group.end - group.first) * rowHeight_;
}

void PrintedTable::paintCell(QPainter &painter, const Cell &cell, const Column &column,
                             double baseline) const
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    painter.setPen(qtColour(cell.colour));
    const double whole = metrics.horizontalAdvance(cell.whole);
    const double block = column.whole + column.fraction;
    const double left = cell.isNumber
                            ? column.left + (column.width - block) / 2 + column.whole - whole
                            : column.left + (column.width - whole) / 2;
    painter.drawText(QPointF(left, baseline), cell.whole + cell.fraction);
}

void PrintedTable::paintHeader(QPainter &painter, double top) const
{
    painter.setFont(headerFont_);
    const double baseline = top + sheet_.metrics(headerFont_).ascent();
    for (std::size_t k = 0; k < columns_.size(); ++k) {
        Cell cell = rows_.front()[k];
        cell.whole += cell.fraction;
        cell.fraction.clear();
        cell.isNumber = false;
        paintCell(painter, cell, columns_[k], baseline);
    }
    const double line = top + rowHeight_;
    painter.setPen(QPen(Qt::black, sheet_.cm(ruleWidth)));
    painter.drawLine(QPointF(0, line), QPointF(columns_.back().left + columns_.back().width, line));
}

void PrintedTable::paint(QPainter &painter, double top, std::size_t first, std::size_t end) const
{
    paintHeader(painter, top);
    painter.setFont(font_);
    double y = top + repeatedHeight();
    const double ascent = sheet_.metrics(font_).ascent();
    for (std::size_t part = first; part < end; ++part) {
        for (std::size_t row = groups_[part].first; row < groups_[part].end; ++row) {
            for (std::size_t k = 0; k < rows_[row].size(); ++k)
                paintCell(painter, rows_[row][k], columns_[k], y + ascent);
            y += rowHeight_;
        }
        if (!groups_[part].hasLine)
            continue;
        painter.setPen(QPen(Qt::gray, sheet_.cm(ruleWidth)));
        const double line = y - (rowHeight_ - sheet_.metrics(font_).height()) / 2;
        painter.drawLine(QPointF(0, line),
                         QPointF(columns_.back().left + columns_.back().width, line));
    }
}

} // namespace veskora
