#include "Ektiposi.h"

#include "Metablites.h"
#include "Printing.h"
#include "QtDesktop.h"
#include "Text.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPageLayout>
#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

// mm; most printers leave the outermost 4 mm of the paper alone.
const QMarginsF margins(20, 20, 5, 15);

QFont reportFont()
{
    constexpr int points = 10;
    QFont font("Courier", points);
    font.setStyleHint(QFont::TypeWriter); // columns stand under each other whatever font is there
    font.setFixedPitch(true);
    font.setKerning(false);
    return font;
}

/// The lines of @p text without the blanks at their ends, which pad columns, and without the empty
/// ones at its end, which would take a page of their own.
QStringList printedLines(const QString &text)
{
    QStringList lines = text.split('\n');
    for (QString &line : lines)
        while (line.endsWith(' '))
            line.chop(1);
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

/// Cuts lines after @p width characters.
QStringList wrapped(const QStringList &lines, qsizetype width)
{
    QStringList rows;
    for (const QString &line : lines) {
        qsizetype from = 0;
        do
            rows << line.mid(from, width);
        while ((from += width) < line.size());
    }
    return rows;
}

/// Turning the paper turns its margins, so they are set anew; a printer refuses all of them when
/// one is less than it needs.
void turnPaper(QPagedPaintDevice &device, QPageLayout::Orientation orientation)
{
    device.setPageOrientation(orientation);
    QPageLayout layout = device.pageLayout();
    layout.setUnits(QPageLayout::Millimeter);
    const QMarginsF least = layout.minimumMargins();
    device.setPageMargins(
        {std::max(margins.left(), least.left()), std::max(margins.top(), least.top()),
         std::max(margins.right(), least.right()), std::max(margins.bottom(), least.bottom())},
        QPageLayout::Millimeter);
}

} // namespace

bool printPages(QPagedPaintDevice &device, const QString &text)
{
    const QStringList lines = printedLines(text);
    const QFont font = reportFont();
    const QFontMetricsF metrics(font, &device);
    const double pitch = metrics.horizontalAdvance('0');
    const auto columns = [&] {
        const double width = device.pageLayout().paintRectPixels(device.logicalDpiX()).width();
        return static_cast<qsizetype>(std::floor(width / pitch));
    };
    qsizetype longest = 0;
    for (const QString &line : lines)
        longest = std::max(longest, line.size());

    turnPaper(device, QPageLayout::Portrait);
    if (longest > columns())
        turnPaper(device, QPageLayout::Landscape);
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setFont(font);
    const double step = metrics.lineSpacing();
    const double height = device.pageLayout().paintRectPixels(device.logicalDpiY()).height();
    if (columns() < 1 || step > height)
        return false; // labels and the like
    double top = 0;
    for (const QString &row : wrapped(lines, columns())) {
        if (top + step > height) {
            if (!device.newPage())
                return false;
            top = 0;
        }
        painter.drawText(QPointF(0, top + metrics.ascent()), row);
        top += step;
    }
    return painter.end();
}

void Ektiposi(const std::string &text)
{
    printOut(
        {applicationName(), Onoma_Arxeiou, "",
         [text = qtText(text)](QPagedPaintDevice &device) { return printPages(device, text); }});
}

} // namespace veskora
