#include "MessageLog.h"

#include "Functions.h"
#include "Mnemonics.h"
#include "QtDesktop.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextCursor>

namespace veskora {

MessageLog::MessageLog(QWidget *parent) : QTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    // Its own light ground: its colours are made for one.
    setStyleSheet("QTextEdit { background-color: white; color: black; }");
}

void MessageLog::insert(const QString &text, const QColor &colour, bool bold)
{
    QTextCursor selection = textCursor();
    const int anchor = selection.anchor(), position = selection.position();
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    QTextCharFormat format;
    format.setForeground(colour);
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    end.insertText(text, format);
    if (anchor != position) { // one that reaches to the end would grow
        selection.setPosition(anchor);
        selection.setPosition(position, QTextCursor::KeepAnchor);
        setTextCursor(selection);
    }
    showNewestLine();
}

void MessageLog::showNewestLine()
{
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void MessageLog::contextMenuEvent(QContextMenuEvent *event)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName("logMenu");
    const auto entry = [menu](const char *name, const std::string &caption, QKeySequence keys) {
        QAction *action = menu->addAction(qtText(caption));
        action->setObjectName(name);
        action->setShortcut(keys);
        return action;
    };
    if (textCursor().hasSelection()) // without one there is nothing that it could do
        connect(entry("logCopy", Metafrasi(2101, "Copy"), QKeySequence::Copy), &QAction::triggered,
                this, &QTextEdit::copy);
    connect(entry("logSelectAll", Metafrasi(1700, "Select all"), QKeySequence::SelectAll),
            &QAction::triggered, this, &QTextEdit::selectAll);
    assignMnemonics(menu->actions());
    menu->popup(event->globalPos());
}

} // namespace veskora
