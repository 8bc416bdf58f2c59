#pragma once
/// @file
/// The lines of a session: those of a file, or new ones that are written before they are done.

#include <QFile>
#include <QStringList>

#include <optional>

namespace veskora {

/// A line of a script: what is done, and to what. Fields parted by tabs, the first of which is the
/// verb:
///
///     start   welcome|plain LANGUAGE MODEL    the first line: how the program is started
///     menu    MENU ACTION             in the menu bar, or below it
///     pick    ACTION                  in the pop-up that is open
///     press, release, move, click, twice (a double click)   PLACE X Y BUTTON MODIFIERS
///     drag    PLACE X Y BUTTON MODIFIERS X2 Y2
///     wheel   PLACE X Y DELTA MODIFIERS
///     key     KEYS                    where the focus is
///     type    PLACE TEXT              in place of what the field has
///     close   PLACE                   a window, by its frame
///     timer   NAME                    one that runs comes to its end: time stands still else
///     drop    FILE...                 on the main window
///     resize  WIDTH HEIGHT            of the main window
///     undo, redo                      of the model
///     walk                            back to the first step and forth again
///     answer  WORD                    to what the line before asks; "box": by its box
struct Line
{
    QStringList fields;

    QString verb() const { return fields.value(0); }
    QString at(qsizetype place) const { return fields.value(place); }
    int number(qsizetype place) const { return fields.value(place).toInt(); }
    /// Acts on the canvas by the mouse.
    bool isGesture() const { return at(1).endsWith("/Picture1"); }
};

class Script
{
public:
    /// The lines of the file @p path once more, or new ones, which are kept there.
    Script(const QString &path, bool isReplay);

    bool isReplay() const { return isReplay_; }
    /// At once, so that a crash leaves it; of a replay nothing is kept.
    void keep(const QStringList &fields);
    /// The next line of a replay; answers that nothing has asked for are left out.
    std::optional<Line> next();
    /// The next line of a replay where it is an answer, else none.
    std::optional<QString> nextAnswer();

private:
    const bool isReplay_;
    QFile file_;
    QList<Line> replayed_;
};

} // namespace veskora
