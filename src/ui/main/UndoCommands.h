#pragma once
/// @file
/// Undo and redo.

#include "History.h"

#include <QObject>

#include <cstdint>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace veskora {

struct CanvasObjects;
class Hand;
class PictureCommands;

/// Goes back and forth on the user's actions, and knows where one ends: whatever the tables have
/// become by the user's next press or key is what the last one made of them. So no dialog and no
/// edit has to tell. What begins while a drag goes on, or a question is open, is of the same
/// action.
class UndoCommands : public QObject
{
    Q_OBJECT
public:
    UndoCommands(QWidget *window, const CanvasObjects &canvas, Hand &hand,
                 PictureCommands &picture);

    void undo();
    void redo();

    /// To be called when an action begins.
    void takeStep();
    /// @p text came to the log in a colour that is a colour word.
    void noteLine(const std::string &text, std::uint32_t colour);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isActionRunning() const;
    bool beginsAction(const QObject &watched, const QEvent &event) const;
    static bool isLeftToModel(const QEvent &event);
    static bool redoesInField(const QObject *watched, const QEvent &event);
    bool pressesInDialog(const QObject *watched, const QEvent &event) const;
    void go(const std::string *(History::*way)(), const std::string &went,
            const std::string &nothing);

    QWidget *const window_;
    const CanvasObjects &canvas_;
    Hand &hand_;
    PictureCommands &picture_;
    History history_;
    bool wasPressOnCanvas_ = false; ///< the last press of a mouse button
};

} // namespace veskora
