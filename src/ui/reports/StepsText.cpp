#include "StepsText.h"

#include "Functions.h"
#include "PictureObject.h"
#include "Sentences.h"
#include "Text.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QTextCursor>
#include <QTextTable>

#include <algorithm>
#include <map>
#include <numeric>

namespace veskora {

namespace {

using steps::Cell;
using steps::Grid;

// Logical pixels: blank of cells above and beside, and before formulas and matrices.
constexpr double paddingOfCells = 2, besideCells = 5, indent = 30;

const QColor ink("#202428"), linkInk("#1a5a96"), labelInk("#3c454d"), warningInk("#a01010");
const QColor freeInk("#0040c0"), heldInk("#707070"); // as in the drawing of the freedoms
const QColor rule("#cfd4d9"), labelGround("#f1f3f5");

double scaleOf(const QPaintDevice *device)
{
    return device->logicalDpiX() / 96.0;
}

bool isEmpty(const Cell &cell)
{
    return cell.text.runs.empty() || cell.text.plainText().empty();
}

/// Text that may be broken into lines.
bool isProse(const Grid &grid, const Cell &cell)
{
    return !grid.isMatrix && !cell.value && cell.text.runs.size() == 1;
}

bool isLabelled(const Grid &grid)
{
    return std::any_of(grid.rows.begin(), grid.rows.end(),
                       [](const steps::GridRow &row) { return !isEmpty(row.label); });
}

bool hasHeader(const Grid &grid)
{
    return !std::all_of(grid.columns.begin(), grid.columns.end(), isEmpty);
}

/// Some columns of a grid.
Grid partOf(const Grid &grid, std::size_t first, std::size_t end)
{
    const auto cut = [&](std::vector<Cell> &cells) {
        const auto begin = cells.begin();
        cells = {begin + static_cast<std::ptrdiff_t>(std::min(first, cells.size())),
                 begin + static_cast<std::ptrdiff_t>(std::min(end, cells.size()))};
    };
    Grid part = grid;
    cut(part.columns);
    for (steps::GridRow &row : part.rows)
        cut(row.cells);
    return part;
}

/// Which sides of a matrix have one.
struct Brackets
{
    bool left = true, right = true;
};

class Writer
{
public:
    Writer(QTextDocument &text, QPaintDevice *device, double room)
        : cursor_(&text), device_(device), font_(text.defaultFont()), room_(room)
    {}

    /// Of @p text, whose document is empty.
    void write(const steps::Document &document, StepsText &text);

private:
    QTextTable *writeContents(const std::vector<steps::Section> &sections);
    int write(const steps::Section &section);
    void heading(const std::string &text, int level);
    void write(const steps::Paragraph &paragraph);
    void write(const steps::Formula &formula);
    void write(const Grid &grid);
    void write(const steps::Links &links);
    void write(const steps::Picture &picture);

    struct Fit;
    Fit fitOf(const Grid &grid) const;
    void writePart(const Grid &grid, std::size_t first, std::size_t end, const QFont &font);
    QTextTable *insertTable(int rows, int columns, const QTextTableFormat &format);
    void writeTable(const Grid &grid, const QFont &font, Brackets brackets = {});
    void writeName(QTextTable &table, const Grid &grid, const QFont &font);
    void writeCell(const QTextTableCell &place, const Cell &cell, const QFont &font, bool isLabel,
                   bool isProse);
    void formatCell(QTextTableCell place, const Grid &grid, int column, int first, bool isLabel,
                    Brackets brackets);
    void insert(QTextCursor &cursor, const steps::Line &line, const QTextCharFormat &format) const;
    QTextBlockFormat paragraphFormat(bool keeps = false) const;
    void begin(const QTextBlockFormat &format);
    std::vector<double> lettersOf(const Grid &grid) const;

    QTextCursor cursor_;
    QPaintDevice *device_;
    QFont font_;
    double room_;
    std::map<std::string, double> factors_; ///< of letters, by the names of matrices of a section
    int pictures_ = 0;
    bool isFree_ = true; ///< the last block, as at the beginning and behind a table
};

QTextCharFormat charFormat(const QFont &font, const QColor &colour = ink)
{
    QTextCharFormat format;
    format.setFont(font);
    format.setForeground(colour);
    return format;
}

QFont resized(QFont font, double factor)
{
    font.setPointSizeF(font.pointSizeF() * factor);
    return font;
}

QTextBlockFormat Writer::paragraphFormat(bool keeps) const
{
    QTextBlockFormat format;
    format.setTopMargin(4);
    format.setBottomMargin(6);
    format.setLineHeight(120, QTextBlockFormat::ProportionalHeight);
    if (keeps)
        format.setProperty(keepsWithNext, true);
    return format;
}

/// Begins a block, with the last one where it is free.
void Writer::begin(const QTextBlockFormat &format)
{
    cursor_.movePosition(QTextCursor::End);
    if (isFree_)
        cursor_.setBlockFormat(format);
    else
        cursor_.insertBlock(format);
    isFree_ = false;
}

void Writer::insert(QTextCursor &cursor, const steps::Line &line,
                    const QTextCharFormat &format) const
{
    using Style = steps::Run::Style;
    for (const steps::Run &run : line.runs) {
        QTextCharFormat styled = format;
        if (run.style == Style::matrix)
            styled.setFontWeight(QFont::Bold);
        else if (run.style == Style::subscript)
            styled.setVerticalAlignment(QTextCharFormat::AlignSubScript);
        else if (run.style == Style::superscript)
            styled.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
        cursor.insertText(qtText(run.text), styled);
    }
}

void Writer::heading(const std::string &text, int level)
{
    constexpr double sizes[] = {1.6, 1.3, 1.1};
    QTextBlockFormat format = paragraphFormat(true);
    format.setHeadingLevel(level);
    format.setTopMargin(level > 1 ? 18 : 4);
    QFont font = resized(font_, sizes[level - 1]);
    font.setBold(true);
    begin(format);
    cursor_.insertText(qtText(text), charFormat(font));
}

void Writer::write(const steps::Paragraph &paragraph)
{
    begin(paragraphFormat(paragraph.text.ends_with(':')));
    QTextCharFormat format = charFormat(font_, paragraph.isWarning ? warningInk : ink);
    if (paragraph.isWarning)
        format.setFontWeight(QFont::Bold);
    cursor_.insertText(qtText(paragraph.text), format);
}

QFont formulaFont(const QFont &font)
{
    QFont serif = resized(font, 1.15);
    serif.setFamilies({"Liberation Serif", "Times New Roman"});
    serif.setStyleHint(QFont::Serif);
    return serif;
}

void Writer::write(const steps::Formula &formula)
{
    QTextBlockFormat format = paragraphFormat(true);
    format.setLeftMargin(indent * scaleOf(device_)); // which the toolkit does for tables alone
    begin(format);
    insert(cursor_, formula.line, charFormat(formulaFont(font_)));
}

void Writer::write(const steps::Links &links)
{
    if (room_ > 0)
        return; // on paper they lead nowhere, and the contents tell the pages
    begin(paragraphFormat());
    cursor_.insertText(qtText(links.lead), charFormat(font_));
    for (const auto &[name, id] : links.links) {
        const bool isFirst = &name == &links.links.front().first;
        cursor_.insertText(isFirst ? " " : ", ", charFormat(font_));
        QTextCharFormat format = charFormat(font_, linkInk);
        format.setAnchor(true);
        format.setAnchorHref("#" + qtText(id));
        cursor_.insertText(qtText(name), format);
    }
}

void Writer::write(const steps::Picture &picture)
{
    QTextBlockFormat format = paragraphFormat(true);
    format.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
    begin(format);
    QTextCharFormat object = PictureObject::format(pictures_++);
    object.setToolTip(qtText(picture.caption));
    cursor_.insertText(QString(QChar::ObjectReplacementCharacter), object);
    begin(paragraphFormat());
    cursor_.insertText(qtText(picture.caption), charFormat(resized(font_, 0.95), labelInk));
}

/// Of the letters of its columns: first what stands before the entries, then each of those.
std::vector<double> Writer::lettersOf(const Grid &grid) const
{
    const QFontMetricsF metrics(font_, device_), formula(formulaFont(font_), device_);
    const auto widthOf = [](const steps::Line &line, const QFontMetricsF &letters) {
        return letters.horizontalAdvance(qtText(line.plainText()));
    };
    double labels = widthOf(grid.corner, metrics);
    std::vector<double> widths{0};
    for (const Cell &column : grid.columns)
        widths.push_back(widthOf(column.text, metrics));
    for (const steps::GridRow &row : grid.rows) {
        labels = std::max(labels, widthOf(row.label.text, metrics));
        for (std::size_t c = 0; c < row.cells.size(); ++c)
            if (!isProse(grid, row.cells[c]))
                widths[c + 1] = std::max(widths[c + 1], widthOf(row.cells[c].text, metrics));
    }
    widths[0] = widthOf(grid.name, formula) + (isLabelled(grid) ? labels : 0);
    return widths;
}

/// How a grid fits the page.
struct Writer::Fit
{
    std::vector<double> widths; ///< of the letters, as `lettersOf` has them
    double before, beside;      ///< blank before its entries and of each column
    double factor;              ///< that its letters are smaller by
};

constexpr double leastPoints = 6; // that are read with ease

Writer::Fit Writer::fitOf(const Grid &grid) const
{
    Fit fit{lettersOf(grid), 0, 2 * (besideCells + 1) * scaleOf(device_), 1};
    fit.before = 2 * fit.beside + (grid.isMatrix ? indent * scaleOf(device_) : 0);
    const double blank = fit.before + static_cast<double>(grid.columns.size()) * fit.beside;
    const double letters = std::accumulate(fit.widths.begin(), fit.widths.end(), 0.0);
    fit.factor = std::clamp((room_ - blank) / letters, leastPoints / font_.pointSizeF(), 1.0);
    return fit;
}

void Writer::write(const Grid &grid)
{
    if (grid.rows.empty())
        return;
    if (room_ == 0)
        return writeTable(grid, font_);
    const Fit fit = fitOf(grid);
    const auto ofName = factors_.find(grid.name.plainText());
    const double factor = ofName == factors_.end() ? fit.factor : ofName->second;
    const bool isParted = fit.factor <= leastPoints / font_.pointSizeF();
    for (std::size_t first = 0, end = 0; first < grid.columns.size(); first = end) {
        double taken = fit.before + factor * fit.widths[0];
        do
            taken += fit.beside + factor * fit.widths[++end];
        while (end < grid.columns.size()
               && (!isParted || taken + fit.beside + factor * fit.widths[end + 1] <= room_));
        writePart(grid, first, end, resized(font_, factor));
    }
}

/// All of @p grid, or some of its columns under a line that says which.
void Writer::writePart(const Grid &grid, std::size_t first, std::size_t end, const QFont &font)
{
    const bool isFirst = first == 0, isLast = end == grid.columns.size();
    if (!isFirst || !isLast) {
        begin(paragraphFormat(true));
        const auto name = [&](std::size_t column) { return grid.columns[column].text.plainText(); };
        cursor_.insertText(
            qtText(filled(Metafrasi(2126, "Columns %1 to %2"), {name(first), name(end - 1)})),
            charFormat(resized(font_, 0.95), labelInk));
    }
    writeTable(partOf(grid, first, end), font, {isFirst, isLast});
}

QTextTable *Writer::insertTable(int rows, int columns, const QTextTableFormat &format)
{
    cursor_.movePosition(QTextCursor::End);
    QTextTable *table = cursor_.insertTable(rows, columns, format);
    cursor_.movePosition(QTextCursor::End);
    QTextCharFormat small; // the block behind, which may stay empty, takes hardly any room
    small.setFontPointSize(1);
    cursor_.setBlockCharFormat(small);
    isFree_ = true;
    return table;
}

void Writer::writeTable(const Grid &grid, const QFont &font, Brackets brackets)
{
    QTextTableFormat format;
    format.setBorder(grid.isMatrix ? 0 : 1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(rule);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setTopMargin(4);
    format.setBottomMargin(10);
    format.setLeftMargin(grid.isMatrix ? indent : 0);
    const int named = grid.name.runs.empty() ? 0 : 1;
    const int labelled = isLabelled(grid) ? 1 : 0, header = hasHeader(grid) ? 1 : 0;
    const int first = named + labelled;
    format.setHeaderRowCount(header);
    QTextTable *table = insertTable(static_cast<int>(grid.rows.size()) + header,
                                    static_cast<int>(grid.columns.size()) + first, format);
    if (named != 0)
        writeName(*table, grid, font);
    const auto put = [&](int row, int column, const Cell &cell, bool isLabel) {
        const QTextTableCell place = table->cellAt(row, column);
        formatCell(place, grid, column, first, isLabel, brackets);
        writeCell(place, cell, font, isLabel, !isLabel && isProse(grid, cell));
    };
    if (header != 0 && labelled != 0)
        put(0, named, {grid.corner}, true);
    for (std::size_t c = 0; header != 0 && c < grid.columns.size(); ++c)
        put(0, first + static_cast<int>(c), grid.columns[c], true);
    for (std::size_t r = 0; r < grid.rows.size(); ++r) {
        const int row = static_cast<int>(r) + header;
        if (labelled != 0)
            put(row, named, grid.rows[r].label, true);
        for (std::size_t c = 0; c < grid.rows[r].cells.size(); ++c)
            put(row, first + static_cast<int>(c), grid.rows[r].cells[c], false);
    }
}

/// "K =" before the middle of its rows.
void Writer::writeName(QTextTable &table, const Grid &grid, const QFont &font)
{
    constexpr int mostRows = 40; // a taller one may go over a page's end
    if (table.rows() > 1)
        table.mergeCells(0, 0, table.rows(), 1);
    QTextTableCell place = table.cellAt(0, 0);
    QTextTableCellFormat format;
    format.setVerticalAlignment(table.rows() > mostRows ? QTextCharFormat::AlignTop
                                                        : QTextCharFormat::AlignMiddle);
    format.setRightPadding(besideCells);
    place.setFormat(format);
    QTextCursor cursor = place.firstCursorPosition();
    QTextBlockFormat block;
    block.setNonBreakableLines(true);
    cursor.setBlockFormat(block);
    insert(cursor, grid.name, charFormat(formulaFont(font)));
}

/// @param first  column that holds entries
void Writer::formatCell(QTextTableCell place, const Grid &grid, int column, int first, bool isLabel,
                        Brackets brackets)
{
    QTextTableCellFormat format;
    format.setTopPadding(paddingOfCells);
    format.setBottomPadding(paddingOfCells);
    format.setLeftPadding(besideCells);
    format.setRightPadding(besideCells);
    if (!grid.isMatrix && isLabel)
        format.setBackground(labelGround);
    if (grid.isMatrix && !isLabel) { // the brackets
        constexpr double width = 2;
        const int last = first + static_cast<int>(grid.columns.size()) - 1;
        if (column == first && brackets.left) {
            format.setLeftBorder(width);
            format.setLeftBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setLeftBorderBrush(ink);
        }
        if (column == last && brackets.right) {
            format.setRightBorder(width);
            format.setRightBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setRightBorderBrush(ink);
        }
    }
    place.setFormat(format);
}

void Writer::writeCell(const QTextTableCell &place, const Cell &cell, const QFont &font,
                       bool isLabel, bool isProse)
{
    QTextBlockFormat block;
    block.setAlignment(isProse ? Qt::AlignLeft : Qt::AlignRight);
    block.setNonBreakableLines(!isProse);
    QTextCursor cursor = place.firstCursorPosition();
    cursor.setBlockFormat(block);
    QTextCharFormat format = charFormat(font, cell.isHeld   ? heldInk
                                              : cell.isFree ? freeInk
                                              : isLabel     ? labelInk
                                                            : ink);
    format.setFontItalic(cell.isHeld);
    format.setToolTip(qtText(cell.origin));
    insert(cursor, cell.text, format);
}

QTextTable *Writer::writeContents(const std::vector<steps::Section> &sections)
{
    constexpr double pageNumber = 40; // logical pixels
    heading(Metafrasi(2172, "Contents"), 2);
    QTextTableFormat format;
    format.setBorder(0);
    format.setCellSpacing(0);
    format.setBottomMargin(10);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    format.setColumnWidthConstraints(
        {QTextLength(), QTextLength(QTextLength::FixedLength, pageNumber)});
    QTextTable *table = insertTable(static_cast<int>(sections.size()), 2, format);
    for (int row = 0; row < table->rows(); ++row) {
        const steps::Section &section = sections[static_cast<std::size_t>(row)];
        QTextBlockFormat line;
        line.setLeftMargin(section.level > 1 ? indent * scaleOf(device_) : 0);
        QTextCursor cursor = table->cellAt(row, 0).firstCursorPosition();
        cursor.setBlockFormat(line);
        cursor.insertText(qtText(section.heading), charFormat(font_));
        line.setLeftMargin(0);
        line.setAlignment(Qt::AlignRight);
        cursor = table->cellAt(row, 1).firstCursorPosition();
        cursor.setBlockFormat(line);
        cursor.setBlockCharFormat(charFormat(font_));
    }
    return table;
}

/// @return where it begins
int Writer::write(const steps::Section &section)
{
    factors_.clear();
    for (const steps::Block &block : section.blocks)
        if (const auto *grid = std::get_if<Grid>(&block);
            grid != nullptr && grid->isMatrix && !grid->rows.empty() && room_ > 0) {
            double &factor = factors_.try_emplace(grid->name.plainText(), 1).first->second;
            factor = std::min(factor, fitOf(*grid).factor);
        }
    heading(section.heading, section.level + 1);
    const int begin = cursor_.block().position();
    for (const steps::Block &block : section.blocks)
        std::visit([this](const auto &one) { write(one); }, block);
    return begin;
}

void Writer::write(const steps::Document &document, StepsText &text)
{
    cursor_.beginEditBlock(); // else each insertion would lay out the text anew
    heading(document.title, 1);
    if (room_ > 0)
        text.contents = writeContents(document.sections);
    for (const steps::Section &section : document.sections)
        text.sections.push_back(write(section));
    cursor_.endEditBlock();
}

} // namespace

DrawnSteps drawn(steps::Document document)
{
    DrawnSteps result{std::move(document), {}};
    for (const steps::Section &section : result.document.sections)
        for (const steps::Block &block : section.blocks)
            if (const auto *picture = std::get_if<steps::Picture>(&block))
                result.pictures.push_back(drawnStepPicture(*picture));
    return result;
}

QRectF blockPlace(const QTextBlock &block)
{
    return block.document()->documentLayout()->blockBoundingRect(block);
}

StepsText stepsText(const DrawnSteps &steps, QPaintDevice *device, const QFont &font, double room)
{
    StepsText result{std::make_unique<QTextDocument>(), {}};
    QTextDocument &text = *result.text;
    text.setUndoRedoEnabled(false);
    text.setDefaultFont(font);
    text.setMetaInformation(QTextDocument::DocumentTitle, qtText(steps.document.title));
    text.documentLayout()->setPaintDevice(device);
    new PictureObject(&text, steps.pictures);
    if (room > 0) {
        text.setDocumentMargin(0);
        text.setTextWidth(room);
    }
    Writer(text, device, room).write(steps.document, result);
    return result;
}

} // namespace veskora
