#include "StepsPages.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Sentences.h"
#include "Text.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPageLayout>
#include <QPainter>
#include <QTextTable>

#include <algorithm>

namespace veskora {

namespace {

const QMarginsF margins(18, 15, 12, 12); // mm; wider where it is bound
constexpr double footHeight = 9;         // mm
constexpr double points = 9.5, footPoints = 8;

/// Of a table that goes over several pages: what stands again at the top of each.
struct Head
{
    double top = 0, bottom = 0;
};

/// What is not to be torn, from top to bottom of the text.
struct Piece
{
    enum class Next { apart, near, together }; ///< by near a page ends where it must
    double top, bottom;
    Next next = Next::apart;
    const QTextTable *table = nullptr; ///< that it is a row of
    Head head = {};                    ///< above it where it begins a page
};

struct Page
{
    double top, bottom;
    Head head = {};
    const QTextTable *tornAbove = nullptr, *tornBelow = nullptr;
};

/// Device units of one pixel of a text's margins and rules.
double pixelOf(const QTextDocument &text)
{
    return text.documentLayout()->paintDevice()->logicalDpiX() / 96.0;
}

/// With its padding, between the rules.
QRectF placeOf(const QTextTable &table, int row, int column)
{
    const QTextTableCell cell = table.cellAt(row, column);
    const QTextTableCellFormat format = cell.format().toTableCellFormat();
    const QMarginsF padding(format.leftPadding(), format.topPadding(), format.rightPadding(),
                            format.bottomPadding());
    return blockPlace(cell.firstCursorPosition().block()) + padding * pixelOf(*table.document());
}

/// The rows of @p table. The last column tells their places; the first may be one cell for all.
void addRows(std::vector<Piece> &pieces, const QTextTable &table)
{
    const double rule = table.format().border() * pixelOf(*table.document());
    const int last = table.rows() - 1, column = table.columns() - 1;
    double top = placeOf(table, 0, column).top() - rule;
    Head head{top, top};
    for (int row = 0; row <= last; ++row) {
        const bool isHead = row < table.format().headerRowCount();
        const double bottom = row == last ? placeOf(table, row, column).bottom() + rule
                                          : placeOf(table, row + 1, column).top();
        pieces.push_back({top, bottom,
                          row == last ? Piece::Next::apart
                          : isHead    ? Piece::Next::together
                                      : Piece::Next::near,
                          &table, head});
        if (isHead)
            head.bottom = bottom;
        top = bottom;
    }
}

std::vector<Piece> piecesOf(const QTextDocument &text)
{
    std::vector<Piece> pieces;
    for (auto part = text.rootFrame()->begin(); !part.atEnd(); ++part) {
        if (const auto *table = qobject_cast<QTextTable *>(part.currentFrame())) {
            addRows(pieces, *table);
        } else {
            const QTextBlock block = part.currentBlock();
            const QRectF place = blockPlace(block);
            pieces.push_back({place.top(), place.bottom(),
                              block.blockFormat().boolProperty(keepsWithNext)
                                  ? Piece::Next::together
                                  : Piece::Next::apart});
        }
    }
    return pieces;
}

/// Before which piece the page ends that begins with @p first and has room up to @p end: what
/// belongs together stays so where a page holds it; else a table goes on behind a row.
std::size_t endOfPage(const std::vector<Piece> &pieces, std::size_t first, std::size_t end,
                      double pageHeight)
{
    std::size_t group = end, last = end, row = end;
    while (group > first && pieces[group - 1].next != Piece::Next::apart)
        --group;
    while (last + 1 < pieces.size() && pieces[last].next != Piece::Next::apart)
        ++last;
    if (group > first && pieces[last].bottom - pieces[group].top <= pageHeight)
        return group;
    while (row > first && pieces[row - 1].next == Piece::Next::together)
        --row;
    return row > first ? row : std::max(end, first + 1);
}

std::vector<Page> pagesOf(const std::vector<Piece> &pieces, double pageHeight)
{
    std::vector<Page> pages;
    for (std::size_t first = 0, end = 0; first < pieces.size(); first = end) {
        Page page{pieces[first].top, 0, pieces[first].head};
        const double room = pageHeight - (page.head.bottom - page.head.top);
        while (end < pieces.size() && pieces[end].bottom - page.top <= room)
            ++end;
        if (end < pieces.size())
            end = endOfPage(pieces, first, end, pageHeight);
        page.bottom = pieces[end - 1].bottom;
        const auto joined = [&](std::size_t above) -> const QTextTable * {
            const bool isTorn = above + 1 < pieces.size() && pieces[above].table != nullptr
                                && pieces[above].table == pieces[above + 1].table;
            return isTorn ? pieces[above].table : nullptr;
        };
        page.tornAbove = first > 0 ? joined(first - 1) : nullptr;
        page.tornBelow = joined(end - 1);
        pages.push_back(page);
        for (; page.bottom - page.top > room; page = pages.back()) { // no page holds it
            pages.back().bottom = page.top + room;
            pages.push_back({page.top + room, page.bottom});
        }
    }
    return pages;
}

/// The rule of a table's outer edge, where a page has torn it.
void closeTable(QPainter &painter, const QTextTable *table, double y)
{
    if (table == nullptr || table->format().border() == 0)
        return;
    const QTextTableFormat format = table->format();
    const double left = placeOf(*table, 0, 0).left();
    const double right = placeOf(*table, 0, table->columns() - 1).right();
    painter.setPen(
        QPen(format.borderBrush().color(), format.border() * pixelOf(*table->document())));
    painter.drawLine(QPointF(left, y), QPointF(right, y));
}

/// The text from @p top to @p bottom, at @p y of the page.
void paintText(QPainter &painter, const QTextDocument &text, double top, double bottom, double y)
{
    const QRectF part(0, top, painter.device()->width(), bottom - top);
    painter.save();
    painter.translate(0, y - top);
    painter.setClipRect(part);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = part;
    context.palette.setColor(QPalette::Text, Qt::black);
    text.documentLayout()->draw(&painter, context);
    painter.restore();
}

void paintPage(QPainter &painter, const QTextDocument &text, const Page &page)
{
    const double head = page.head.bottom - page.head.top;
    if (head > 0)
        paintText(painter, text, page.head.top, page.head.bottom, 0);
    paintText(painter, text, page.top, page.bottom, head);
    closeTable(painter, page.tornAbove, head);
    closeTable(painter, page.tornBelow, head + page.bottom - page.top);
}

/// Into the contents, whose rows stay as high as they are.
void numberContents(const StepsText &laid, const std::vector<Page> &pages)
{
    QTextCursor all(laid.text.get());
    std::vector<int> numbers;
    for (const int section : laid.sections) {
        const double top = blockPlace(laid.text->findBlock(section)).top();
        const auto next = std::find_if(pages.begin(), pages.end(),
                                       [top](const Page &page) { return top < page.bottom; });
        numbers.push_back(static_cast<int>(next - pages.begin()) + 1);
    }
    all.beginEditBlock();
    for (int row = 0; row < laid.contents->rows(); ++row)
        laid.contents->cellAt(row, 1).firstCursorPosition().insertText(
            QString::number(numbers[static_cast<std::size_t>(row)]));
    all.endEditBlock();
}

void paintFoot(QPainter &painter, const QRectF &page, const QString &title, int number, int pages)
{
    QFont font("Liberation Sans");
    font.setPointSizeF(footPoints);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(page, Qt::AlignBottom | Qt::AlignLeft, title);
    painter.drawText(
        page, Qt::AlignBottom | Qt::AlignRight,
        qtText(filled(Metafrasi(1935, "Page %1 of %2"), {numberText(number), numberText(pages)})));
}

} // namespace

bool printSteps(QPagedPaintDevice &device, const DrawnSteps &steps)
{
    device.setPageMargins(margins, QPageLayout::Millimeter); // a printer may need wider ones
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const QRectF page(0, 0, device.width(), device.height());
    const double height = page.height() - footHeight / 25.4 * device.logicalDpiY();
    if (height <= 0)
        return false; // labels and the like
    QFont font("Liberation Sans");
    font.setPointSizeF(points);
    const StepsText laid = stepsText(steps, &device, font, page.width());
    const std::vector<Page> pages = pagesOf(piecesOf(*laid.text), height);
    numberContents(laid, pages);
    const int count = static_cast<int>(pages.size());
    for (int number = 1; number <= count; ++number) {
        if (number > 1 && !device.newPage())
            return false;
        paintPage(painter, *laid.text, pages[static_cast<std::size_t>(number - 1)]);
        paintFoot(painter, page, qtText(steps.document.title), number, count);
    }
    return painter.end();
}

} // namespace veskora
