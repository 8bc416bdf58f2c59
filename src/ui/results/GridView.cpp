#include "GridView.h"

#include "Functions.h"
#include "ResultGrid.h"
#include "Text.h"
#include "Units.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPainter>

#include <algorithm>
#include <map>

namespace veskora {

namespace {

constexpr int separatorHeight = 140; // twips
constexpr int padding = 12;          // logical pixels, on both sides of a text together
constexpr int rowPadding = 4;

/// Shows the header cells as they are shown in a grid, whatever a style makes of a header.
class GridHeader : public QHeaderView
{
public:
    explicit GridHeader(GridView *view) : QHeaderView(Qt::Horizontal, view)
    {
        setSectionsClickable(true); // selects the column
        setHighlightSections(false);
    }

protected:
    void paintSection(QPainter *painter, const QRect &section, int column) const override
    {
        const auto cell = [&](int role) {
            return model()->headerData(column, orientation(), role);
        };
        painter->fillRect(section, cell(Qt::BackgroundRole).value<QColor>());
        painter->setPen(palette().color(QPalette::Mid));
        painter->drawLine(section.bottomLeft(), section.bottomRight());
        painter->drawLine(section.topRight(), section.bottomRight());
        painter->setFont(cell(Qt::FontRole).value<QFont>());
        painter->setPen(cell(Qt::ForegroundRole).value<QColor>());
        painter->drawText(section.adjusted(0, rowPadding / 2, 0, 0),
                          cell(Qt::TextAlignmentRole).toInt(), cell(Qt::DisplayRole).toString());
    }
};

} // namespace

GridView::GridView(QWidget *parent) : QTableView(parent)
{
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(pixels(separatorHeight));
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    setHorizontalHeader(new GridHeader(this));
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false); // Tab goes on to the next control, arrows from cell to cell
    setHorizontalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    setTextElideMode(Qt::ElideNone);

    auto *copy = new QAction(qtText(Metafrasi(2101, "Copy")), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &GridView::copySelection);
    addAction(copy);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void GridView::present(ResultGrid *grid, Header header)
{
    grid->setParent(this);
    setModel(grid);
    horizontalHeader()->setVisible(header == Header::fixed);
    setRowHidden(0, header == Header::fixed);
    for (const int row : grid->separators())
        setRowHeight(row, pixels(separatorHeight));
    if (isVisible())
        sizeColumns();
    else
        isSized_ = false;
}

void GridView::showEvent(QShowEvent *event)
{
    if (!isSized_)
        sizeColumns();
    QTableView::showEvent(event);
}

const ResultGrid &GridView::grid() const
{
    return *static_cast<const ResultGrid *>(model());
}

void GridView::sizeColumns()
{
    const QFontMetrics cells(font());
    const QFontMetrics headers(gridHeaderFont());
    for (int column = 0; column < grid().columnCount(); ++column) {
        int width = pixels(grid().leastWidths().at(static_cast<std::size_t>(column))) - padding;
        for (int row = 0; row < grid().rowCount(); ++row) {
            const QString &text = grid().text(row, column);
            // Both fonts: a header may stand in any row.
            if (!text.isEmpty() && text.size() * cells.averageCharWidth() * 2 > width)
                width = std::max(
                    {width, cells.horizontalAdvance(text), headers.horizontalAdvance(text)});
        }
        setColumnWidth(column, width + padding);
    }
    isSized_ = true;
}

void GridView::copySelection() const
{
    // Row by row; a row with nothing selected in it is left out, a cell that is not selected among
    // others that are is empty.
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty())
        return;
    std::map<int, std::map<int, QString>> rows;
    int first = grid().columnCount(), last = 0;
    for (const QModelIndex &index : selected) {
        rows[index.row()][index.column()] = grid().text(index.row(), index.column());
        first = std::min(first, index.column());
        last = std::max(last, index.column());
    }
    QStringList lines;
    if (!notice_.isEmpty())
        lines << notice_;
    for (auto &[row, cells] : rows) {
        QStringList texts;
        for (int column = first; column <= last; ++column)
            texts << cells[column];
        lines << texts.join('\t');
    }
    QApplication::clipboard()->setText(lines.join('\n'));
}

} // namespace veskora

#include "moc_GridView.cpp"
