#include "StepsBrowser.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextTable>
#include <QWheelEvent>

#include <algorithm>

namespace veskora {

namespace {

/// What is between two blocks of a text; the rows of a table keep their columns, though one of
/// them may have a cell less where another reaches down.
QString between(const QTextTable *before, const QTextTableCell &last, const QTextTable *table,
                const QTextTableCell &cell, int firstColumn)
{
    if (table == nullptr)
        return "\n";
    if (before == table && last.row() == cell.row())
        return cell.column() == last.column() ? " " : QString(cell.column() - last.column(), u'\t');
    return "\n" + QString(cell.column() - firstColumn, u'\t');
}

QString plainSelection(const QTextCursor &selected)
{
    int firstRow = -1, rows = 0, firstColumn = 0, columns = 0;
    selected.selectedTableCells(&firstRow, &rows, &firstColumn, &columns);
    const bool isOfCells = firstRow >= 0; // else from one place of the text to another
    const int end = selected.selectionEnd();
    const QTextTable *before = nullptr;
    QTextTableCell last;
    QString text;
    bool isFirst = true;
    const QTextDocument &document = *selected.document();
    for (QTextBlock block = document.findBlock(selected.selectionStart());
         block.isValid() && block.position() <= end; block = block.next()) {
        QTextCursor cursor(block);
        const QTextTable *table = cursor.currentTable();
        const QTextTableCell cell = table == nullptr ? QTextTableCell() : table->cellAt(cursor);
        if (isOfCells
            && (cell.row() < firstRow || cell.row() >= firstRow + rows
                || cell.column() < firstColumn || cell.column() >= firstColumn + columns))
            continue;
        if (!isFirst)
            text += between(before, last, table, cell, isOfCells ? firstColumn : 0);
        isFirst = false;
        const int from = isOfCells ? 0 : std::max(0, selected.selectionStart() - block.position());
        text += block.text().mid(from, isOfCells ? -1 : end - block.position() - from);
        before = table;
        last = cell;
    }
    text.remove(QChar::ObjectReplacementCharacter);
    return text.replace(QChar::Nbsp, u' ');
}

} // namespace

StepsBrowser::StepsBrowser(QWidget *parent) : QTextBrowser(parent)
{
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
}

QMimeData *StepsBrowser::createMimeDataFromSelection() const
{
    auto *copied = new QMimeData;
    copied->setText(plainSelection(textCursor()));
    copied->setHtml(textCursor().selection().toHtml());
    return copied;
}

void StepsBrowser::wheelEvent(QWheelEvent *event)
{
    if ((event->modifiers() & Qt::ControlModifier) == 0)
        return QTextBrowser::wheelEvent(event);
    turned_ += event->angleDelta().y();
    if (const int steps = turned_ / QWheelEvent::DefaultDeltasPerStep; steps != 0) {
        turned_ -= steps * QWheelEvent::DefaultDeltasPerStep;
        emit zoomWanted(steps);
    }
    event->accept();
}

} // namespace veskora

#include "moc_StepsBrowser.cpp"
