#include "MessageLog.h"

#include "Desktop.h"
#include "Functions.h"
#include "Mnemonics.h"
#include "Text.h"

#include <QContextMenuEvent>
#include <QDate>
#include <QLocale>
#include <QMenu>
#include <QScrollBar>
#include <QTextCursor>

#include <array>

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
    const auto entry = [menu](const char *name, const std::string &caption,
                              const QKeySequence &keys) {
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

void logStartLines()
{
    static const std::array weekdays = {Phrase{106, "Monday"},    Phrase{107, "Tuesday"},
                                        Phrase{108, "Wednesday"}, Phrase{109, "Thursday"},
                                        Phrase{110, "Friday"},    Phrase{111, "Saturday"},
                                        Phrase{105, "Sunday"}};
    const std::string title(applicationTitle);
    Grammi_Log(title + " - " + Metafrasi(2001, "Linear static analysis of plane frames program"),
               logColour::navy, true, true);
    Grammi_Log(Metafrasi(112, "Made at Kalvorn for those who design frames and those who learn to"),
               logColour::navy, true);
    Grammi_Log("", logColour::black);
    const QDate today = QDate::currentDate();
    const auto day = static_cast<std::size_t>(today.dayOfWeek() - Qt::Monday);
    Grammi_Log(weekdays.at(day).text() + " "
                   + plainText(QLocale().toString(today, QLocale::ShortFormat)),
               logColour::grey);
}

} // namespace veskora

#include "moc_MessageLog.cpp"
