#include "PrintedBlocks.h"

#include "Functions.h"
#include "MathFunc.h"
#include "PaperKanvas.h"
#include "PrintedTable.h"
#include "QtColour.h"
#include "ReportPicture.h"
#include "ResultWarnings.h"
#include "Sentences.h"
#include "Zoom.h"

#include <algorithm>
#include <map>

namespace veskora {

namespace {

constexpr double headingPoints[] = {13, 10.5}, titlePoints = 18, textPoints = 9;
constexpr double headingSpaces[] = {0.7, 0.5}; // cm
constexpr double ruleWidth = 0.025;            // cm

/// Lines of text in one font.
class PrintedText : public PrintedBlock
{
public:
    PrintedText(const std::string &text, const QFont &font, QColor colour, double spaceAbove,
                const Sheet &sheet, bool leadsOn = false)
        : font_(font),
          colour_(colour),
          lines_(sheet.wrapped(QString::fromStdString(text), font, sheet.width())),
          lineHeight_(1.1 * sheet.metrics(font).height()),
          ascent_(sheet.metrics(font).ascent()),
          spaceAbove_(spaceAbove),
          leadsOn_(leadsOn)
    {}

    std::size_t parts() const override { return static_cast<std::size_t>(lines_.size()); }
    double heightOf(std::size_t) const override { return lineHeight_; }
    double spaceAbove() const override { return spaceAbove_; }
    std::size_t partsToBegin() const override
    {
        constexpr std::size_t most = 12;
        return parts() <= most ? parts() : most / 2;
    }
    bool leadsOn() const override { return leadsOn_; }
    void paint(QPainter &painter, double top, std::size_t first, std::size_t end) const override
    {
        painter.setFont(font_);
        painter.setPen(colour_);
        for (double y = top + ascent_; first < end; ++first, y += lineHeight_)
            painter.drawText(QPointF(0, y), lines_.at(static_cast<qsizetype>(first)));
    }

private:
    QFont font_;
    QColor colour_;
    QStringList lines_;
    double lineHeight_, ascent_, spaceAbove_;
    bool leadsOn_;
};

class PrintedTitle : public PrintedBlock
{
public:
    PrintedTitle(const TitleBlock &block, const Sheet &sheet)
        : sheet_(sheet),
          font_(sheet.font(textPoints + 1)),
          title_(block.title, sheet.font(titlePoints, true), Qt::black, 0, sheet)
    {
        for (const auto &[label, value] : block.lines)
            labelWidth_ = std::max(
                labelWidth_, sheet.metrics(font_).horizontalAdvance(QString::fromStdString(label)));
        labelWidth_ += sheet.cm(0.6);
        for (const auto &[label, value] : block.lines)
            lines_.push_back(
                {QString::fromStdString(label),
                 sheet.wrapped(QString::fromStdString(value), font_, sheet.width() - labelWidth_)});
    }
    double heightOf(std::size_t) const override
    {
        qsizetype rows = 0;
        for (const auto &[label, values] : lines_)
            rows += values.size();
        return title_.height(0, title_.parts()) + static_cast<double>(rows) * rowHeight()
               + 2 * sheet_.cm(0.4);
    }
    double spaceAbove() const override { return 0; }
    void paint(QPainter &painter, double top, std::size_t, std::size_t) const override
    {
        title_.paint(painter, top, 0, title_.parts());
        double y = top + title_.height(0, title_.parts()) + sheet_.cm(0.2);
        rule(painter, y);
        y += sheet_.cm(0.2);
        painter.setFont(font_);
        const double ascent = sheet_.metrics(font_).ascent();
        for (const auto &[label, values] : lines_) {
            painter.drawText(QPointF(0, y + ascent), label);
            for (const QString &value : values) {
                painter.drawText(QPointF(labelWidth_, y + ascent), value);
                y += rowHeight();
            }
        }
        rule(painter, y + sheet_.cm(0.1));
    }

private:
    double rowHeight() const { return 1.2 * sheet_.metrics(font_).height(); }
    void rule(QPainter &painter, double y) const
    {
        painter.setPen(QPen(Qt::black, sheet_.cm(ruleWidth)));
        painter.drawLine(QPointF(0, y), QPointF(sheet_.width(), y));
    }

    struct Line
    {
        QString label;
        QStringList values;
    };
    const Sheet sheet_;
    QFont font_;
    PrintedText title_;
    double labelWidth_ = 0;
    std::vector<Line> lines_;
};

class PrintedContents : public PrintedBlock
{
public:
    PrintedContents(const Document &document, const Sheet &sheet)
        : sheet_(sheet), font_(sheet.font(textPoints)), bold_(sheet.font(textPoints, true))
    {
        for (std::size_t block = 0; block < document.blocks.size(); ++block)
            if (const auto *heading = std::get_if<Heading>(&document.blocks[block]))
                entries_.push_back(
                    {block, heading->level, QString::fromStdString(heading->text), 0});
    }
    std::size_t parts() const override { return entries_.size(); }
    double heightOf(std::size_t) const override { return 1.2 * sheet_.metrics(font_).height(); }
    double spaceAbove() const override { return sheet_.cm(0.2); }
    std::size_t partsToBegin() const override { return entries_.size(); }
    void paint(QPainter &painter, double top, std::size_t first, std::size_t end) const override
    {
        painter.setPen(Qt::black);
        for (double y = top + sheet_.metrics(bold_).ascent(); first < end; ++first) {
            const auto &[block, level, text, page] = entries_[first];
            const QFont &font = level == 1 ? bold_ : font_;
            painter.setFont(font);
            painter.drawText(QPointF(sheet_.cm(level == 1 ? 0 : 0.5), y), text);
            const QString number = QString::number(page);
            const double width = sheet_.metrics(font).horizontalAdvance(number);
            painter.drawText(QPointF(sheet_.cm(11) - width, y), number);
            y += heightOf(first);
        }
    }
    void tellPages(const std::map<std::size_t, int> &pageOf)
    {
        for (Entry &entry : entries_)
            entry.page = pageOf.at(entry.block);
    }

private:
    struct Entry
    {
        std::size_t block;
        int level;
        QString text;
        int page;
    };
    const Sheet sheet_;
    QFont font_, bold_;
    std::vector<Entry> entries_;
};

/// Half a page with its heading, or a whole one where that shows the model clearly larger.
double pictureHeight(const Sheet &sheet)
{
    const double warnings = static_cast<double>(resultWarnings().size()) * sheet.cm(0.6);
    const double whole = sheet.height() - sheet.cm(3.4) - 2 * warnings; // two headings and a note
    const double half = whole / 2 - sheet.cm(0.5);
    const double below = sheet.cm(2.5); // caption and extremes
    const Extent model = modelExtent();
    const auto scale = [&](double room) {
        const double ordinates = sheet.cm(2) + 0.2 * std::min(sheet.width(), room - below);
        return std::min((sheet.width() - ordinates) / (model.xmax - model.xmin),
                        (room - below - ordinates) / (model.ymax - model.ymin));
    };
    constexpr double clearly = 1.8;
    return scale(whole) > clearly * scale(half) ? whole : half;
}

class PrintedPicture : public PrintedBlock
{
public:
    PrintedPicture(const Picture &picture, const Sheet &sheet)
        : sheet_(sheet),
          font_(sheet.font(textPoints - 1)),
          shown_(picture.shown),
          height_(pictureHeight(sheet))
    {
        for (const TextTable &table : picture.extremes)
            extremes_.emplace_back(table, sheet);
    }
    double heightOf(std::size_t) const override { return height_; }
    double spaceAbove() const override { return sheet_.cm(0.15); }
    void paint(QPainter &painter, double top, std::size_t, std::size_t) const override
    {
        double below = captionLines * lineHeight();
        for (const PrintedTable &table : extremes_)
            below += table.spaceAbove() + table.height(0, table.parts());
        const QRectF area(0, top, sheet_.width(), height_ - below);
        PaperKanvas kanvas(painter, area, sheet_.cm(1));
        kanvas.setForPrint();
        kanvas.setCrowded(Crowded::leaveOut);
        std::string caption = drawReportPicture(shown_, kanvas);
        kanvas.finish();
        if (const int hidden = kanvas.valuesWithoutRoom(); hidden > 0)
            caption += ". "
                       + filled(Metafrasi(1950, "Values without room in the picture, which the "
                                                "tables have: %1"),
                                {numberText(hidden)});
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Qt::gray, sheet_.cm(ruleWidth)));
        painter.drawRect(area);
        painter.setFont(font_);
        painter.setPen(Qt::black);
        double y = area.bottom() + lineHeight();
        const QStringList rows =
            sheet_.wrapped(QString::fromStdString(caption), font_, sheet_.width());
        for (const QString &row : rows.mid(0, captionLines)) {
            painter.drawText(QPointF(0, y), row);
            y += lineHeight();
        }
        y -= 0.7 * lineHeight(); // from a base line to where a table begins
        for (const PrintedTable &table : extremes_) {
            y += table.spaceAbove();
            table.paint(painter, y, 0, table.parts());
            y += table.height(0, table.parts());
        }
    }

private:
    static constexpr int captionLines = 3;
    double lineHeight() const { return sheet_.metrics(font_).lineSpacing(); }

    const Sheet sheet_;
    QFont font_;
    std::int16_t shown_;
    double height_;
    std::vector<PrintedTable> extremes_;
};

/// One of the alternatives of `Block` each.
struct Print
{
    using Printed = std::unique_ptr<PrintedBlock>;

    Printed operator()(const TitleBlock &block) const
    {
        return std::make_unique<PrintedTitle>(block, sheet);
    }
    Printed operator()(const Contents &) const
    {
        return std::make_unique<PrintedContents>(document, sheet);
    }
    Printed operator()(const Heading &heading) const
    {
        const int place = heading.level - 1;
        return std::make_unique<PrintedText>(heading.text, sheet.font(headingPoints[place], true),
                                             Qt::black, sheet.cm(headingSpaces[place]), sheet,
                                             true);
    }
    Printed operator()(const Paragraph &paragraph) const
    {
        const bool isBold = paragraph.kind == Paragraph::Kind::bold;
        const bool isWarning = paragraph.kind == Paragraph::Kind::warning;
        return std::make_unique<PrintedText>(
            paragraph.text, sheet.font(textPoints, isBold || isWarning),
            isWarning ? qtColour(logColourWord(logColour::red)) : QColor(Qt::black),
            sheet.cm(isBold ? 0.35 : 0.15), sheet, paragraph.kind != Paragraph::Kind::plain);
    }
    Printed operator()(const TextTable &table) const
    {
        return std::make_unique<PrintedTable>(table, sheet);
    }
    Printed operator()(const Picture &picture) const
    {
        return std::make_unique<PrintedPicture>(picture, sheet);
    }

    const Document &document;
    const Sheet &sheet;
};

} // namespace

std::vector<std::unique_ptr<PrintedBlock>> printedBlocks(const Document &document,
                                                         const Sheet &sheet)
{
    std::vector<std::unique_ptr<PrintedBlock>> blocks;
    for (const Block &block : document.blocks)
        blocks.push_back(std::visit(Print{document, sheet}, block));
    return blocks;
}

void tellPages(const std::vector<std::unique_ptr<PrintedBlock>> &blocks,
               const std::vector<Page> &pages)
{
    std::map<std::size_t, int> pageOf;
    for (std::size_t page = 0; page < pages.size(); ++page)
        for (const Placed &placed : pages[page])
            pageOf.try_emplace(placed.block, static_cast<int>(page) + 1);
    for (const auto &block : blocks)
        if (auto *contents = dynamic_cast<PrintedContents *>(block.get()))
            contents->tellPages(pageOf);
}

} // namespace veskora
