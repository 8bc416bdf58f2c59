#include "PrintedTable.h"

#include "QtColour.h"

#include <algorithm>

namespace veskora {

namespace {

constexpr double usualPoints = 8.5, leastPoints = 6;
constexpr double lineSpacing = 1.2;
constexpr double tableRuleWidth = 0.018; // cm; half a point, which any printer shows

} // namespace

PrintedTable::PrintedTable(const TextTable &table, const Sheet &sheet) : sheet_(sheet)
{
    takeRows(table);
    for (double points = usualPoints; setColumns(points) > sheet_.width() && points > leastPoints;
         points -= 0.5)
        ;
}

PrintedTable::Cell::Cell(const QString &text, std::uint32_t asked) : whole(text), colour(asked)
{
    const qsizetype sign = text.startsWith('-') ? 1 : 0;
    qsizetype end = sign;
    while (end < text.size() && text[end].isDigit())
        ++end;
    if (end == sign)
        return;
    kind = text.contains('E') ? Kind::exponential : Kind::number;
    if (kind == Kind::number) {
        whole = text.left(end);
        fraction = text.mid(end);
    }
}

double PrintedTable::Column::behind(const Cell &cell) const
{
    return cell.kind == Cell::Kind::number ? fraction : 0;
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
            cells.emplace_back(QString::fromStdString(text), colour);
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
    const auto rowsDo = [&](auto take) {
        for (std::size_t row = 1; row < rows_.size(); ++row)
            for (std::size_t k = 0; k < rows_[row].size(); ++k)
                take(columns_[k], rows_[row][k]);
    };
    rowsDo([&](Column &column, const Cell &cell) {
        column.hasNumbers |= cell.kind != Cell::Kind::text;
        column.fraction = std::max(column.fraction, metrics.horizontalAdvance(cell.fraction));
    });
    rowsDo([&](Column &column, const Cell &cell) {
        column.width =
            std::max(column.width, metrics.horizontalAdvance(cell.whole) + column.behind(cell));
    });
    double left = 0;
    for (std::size_t k = 0; k < columns_.size(); ++k) {
        Column &column = columns_[k];
        column.width = std::max(column.width, header.horizontalAdvance(rows_.front()[k].whole));
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
    const double numberLeft =
        column.left + column.width - column.behind(cell) - metrics.horizontalAdvance(cell.whole);
    const double left = column.hasNumbers ? numberLeft : column.left;
    painter.drawText(QPointF(left, baseline), cell.whole + cell.fraction);
}

void PrintedTable::paintHeader(QPainter &painter, double top) const
{
    painter.setFont(headerFont_);
    const double baseline = top + sheet_.metrics(headerFont_).ascent();
    for (std::size_t k = 0; k < columns_.size(); ++k)
        paintCell(painter, rows_.front()[k], columns_[k], baseline);
    const double line = top + rowHeight_;
    painter.setPen(QPen(Qt::black, sheet_.cm(tableRuleWidth)));
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
        painter.setPen(QPen(Qt::gray, sheet_.cm(tableRuleWidth)));
        const double line = y - (rowHeight_ - sheet_.metrics(font_).height()) / 2;
        painter.drawLine(QPointF(0, line),
                         QPointF(columns_.back().left + columns_.back().width, line));
    }
}

} // namespace veskora
