#pragma once

#include <QTextEdit>

namespace veskora {

/// The message log: lines come at its end and are scrolled into sight, and what the user has
/// selected stays selected.
class MessageLog : public QTextEdit
{
    Q_OBJECT
public:
    explicit MessageLog(QWidget *parent = nullptr);

    void insert(const QString &text, const QColor &colour, bool bold);
    void showNewestLine();

protected:
    /// The toolkit's own menu knows only the languages that the toolkit knows.
    void contextMenuEvent(QContextMenuEvent *event) override;
};

/// The lines that a run of the program begins with.
void logStartLines();

} // namespace veskora
