#include "CalculationReport.h"

#include "Functions.h"
#include "MathFunc.h"
#include "PrintedBlocks.h"
#include "Sentences.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>

#include <algorithm>
#include <array>

namespace veskora {

Paper usualPaper(QLocale::Territory territory)
{
    constexpr auto letter =
        std::to_array({QLocale::Belize, QLocale::Canada, QLocale::Chile, QLocale::Colombia,
                       QLocale::CostaRica, QLocale::ElSalvador, QLocale::Guatemala, QLocale::Mexico,
                       QLocale::Nicaragua, QLocale::Panama, QLocale::Philippines,
                       QLocale::PuertoRico, QLocale::UnitedStates, QLocale::Venezuela});
    return std::find(letter.begin(), letter.end(), territory) != letter.end() ? Paper::letter
                                                                              : Paper::A4;
}

namespace {

constexpr double footHeight = 1.0; // cm

QString elided(const std::string &text, const QFontMetricsF &metrics, double width)
{
    return metrics.elidedText(QString::fromStdString(text), Qt::ElideMiddle, width);
}

void paintFoot(QPainter &painter, const Document &document, const Sheet &sheet, int page, int pages)
{
    const QFont font = sheet.font(8);
    const QFontMetricsF metrics = sheet.metrics(font);
    const double line = sheet.height() + sheet.cm(0.5);
    const double third = sheet.width() / 3;
    painter.setFont(font);
    painter.setPen(QPen(Qt::black, sheet.cm(0.018)));
    painter.drawLine(QPointF(0, line), QPointF(sheet.width(), line));
    const QRectF foot(0, line + sheet.cm(0.1), third, metrics.height());
    const double room = third - sheet.cm(0.2);
    painter.drawText(foot, Qt::AlignLeft, elided(document.name, metrics, room));
    painter.drawText(foot.translated(third, 0), Qt::AlignHCenter,
                     elided(document.title, metrics, room));
    painter.drawText(foot.translated(2 * third, 0), Qt::AlignRight,
                     QString::fromStdString(filled(Metafrasi(1935, "Page %1 of %2"),
                                                   {numberText(page), numberText(pages)})));
}

/// @return whether @p progress let it come to its end
bool paintPages(QPdfWriter &pdf, const Document &document, const PageProgress &progress)
{
    QPainter painter(&pdf);
    Sheet whole(pdf, pdf.width(), pdf.height());
    const Sheet sheet(pdf, pdf.width(), pdf.height() - whole.cm(footHeight));
    const auto blocks = printedBlocks(document, sheet);
    const std::vector<Page> pages = pagesOf(blocks, sheet.height());
    tellPages(blocks, pages);
    const int count = static_cast<int>(pages.size());
    for (int page = 1; page <= count; ++page) {
        if (page > 1)
            pdf.newPage();
        for (const auto &[block, first, end, top] : pages[static_cast<std::size_t>(page) - 1])
            blocks[block]->paint(painter, top, first, end);
        paintFoot(painter, document, sheet, page, count);
        if (!progress(page, count))
            return false;
    }
    return true;
}

} // namespace

std::string pdfOf(const Document &document, Paper paper, const PageProgress &progress)
{
    constexpr int dotsPerInch = 1200;
    const QMarginsF margins(20, 15, 15, 12); // mm; wider where it is bound
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setResolution(dotsPerInch);
    pdf.setPageSize(QPageSize(paper == Paper::A4 ? QPageSize::A4 : QPageSize::Letter));
    pdf.setPageMargins(margins, QPageLayout::Millimeter);
    pdf.setTitle(QString::fromStdString(document.title));
    pdf.setCreator(QString::fromStdString(document.program));
    return paintPages(pdf, document, progress) ? content.toStdString() : std::string();
}

} // namespace veskora
