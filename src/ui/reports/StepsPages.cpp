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

namespace veskora {

namespace {

const QMarginsF margins(18, 15, 12, 12); // mm; wider where it is bound
constexpr double footHeight = 9;         // mm
constexpr double points = 9.5, footPoints = 8;

/// What is not to be torn, from top to bottom of the text.
struct Piece
{
    double top, bottom;
    bool keepsNext = false;
};

QRectF placeOf(const QTextBlock &block)
{
    return block.document()->documentLayout()->blockBoundingRect(block);
}

/// @p table, or where it is taller than a page its rows. It reaches from the block before to that
/// behind, which are always there.
void addPieces(std::vector<Piece> &pieces, const QTextTable &table, double pageHeight)
{
    const double bottom = placeOf(table.lastCursorPosition().block().next()).top();
    pieces.push_back({pieces.back().bottom, bottom});
    if (bottom - pieces.back().top <= pageHeight)
        return;
    for (int row = 1; row < table.rows(); ++row) { // the first column may be one for all of them
        const QTextTableCell cell = table.cellAt(row, table.columns() - 1);
        const double top = placeOf(cell.firstCursorPosition().block()).top();
        pieces.back().bottom = top;
        pieces.push_back({top, bottom});
    }
}

std::vector<Piece> piecesOf(const QTextDocument &text, double pageHeight)
{
    std::vector<Piece> pieces;
    for (auto part = text.rootFrame()->begin(); !part.atEnd(); ++part) {
        if (const auto *table = qobject_cast<QTextTable *>(part.currentFrame())) {
            addPieces(pieces, *table, pageHeight);
        } else {
            const QTextBlock block = part.currentBlock();
            const QRectF place = placeOf(block);
            pieces.push_back(
                {place.top(), place.bottom(), block.blockFormat().boolProperty(keepsWithNext)});
        }
    }
    return pieces;
}

/// Where in the text each page begins; its end is one more.
std::vector<double> pageTops(const std::vector<Piece> &pieces, double pageHeight)
{
    std::vector<double> tops{0};
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (pieces[i].bottom - tops.back() <= pageHeight)
            continue;
        std::size_t first = i;
        while (first > 0 && pieces[first - 1].keepsNext && pieces[first - 1].top > tops.back()
               && pieces[i].bottom - pieces[first - 1].top <= pageHeight)
            --first;
        if (pieces[first].top > tops.back())
            tops.push_back(pieces[first].top);
        while (pieces[i].bottom - tops.back() > pageHeight) // no page holds it
            tops.push_back(tops.back() + pageHeight);
    }
    tops.push_back(pieces.empty() ? 0 : pieces.back().bottom);
    return tops;
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
    const std::vector<double> tops = pageTops(piecesOf(*laid.text, height), height);
    const int pages = static_cast<int>(tops.size()) - 1;
    for (int number = 1; number <= pages; ++number) {
        if (number > 1 && !device.newPage())
            return false;
        const auto at = static_cast<std::size_t>(number);
        const QRectF part(0, tops[at - 1], page.width(), tops[at] - tops[at - 1]);
        painter.save();
        painter.translate(0, -part.top());
        painter.setClipRect(part);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = part;
        context.palette.setColor(QPalette::Text, Qt::black);
        laid.text->documentLayout()->draw(&painter, context);
        painter.restore();
        paintFoot(painter, page, qtText(steps.document.title), number, pages);
    }
    return painter.end();
}

} // namespace veskora
