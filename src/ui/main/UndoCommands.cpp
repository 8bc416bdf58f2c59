#include "UndoCommands.h"

#include "CanvasObjects.h"
#include "Commands.h"
#include "Desktop.h"
#include "Functions.h"
#include "Hand.h"
#include "ModelDialog.h"
#include "PictureCommands.h"
#include "QtDesktop.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

namespace veskora {

UndoCommands::UndoCommands(QWidget *window, const CanvasObjects &canvas, Hand &hand,
                           PictureCommands &picture)
    : window_(window), canvas_(canvas), hand_(hand), picture_(picture)
{
    qApp->installEventFilter(this);
}

// ------------------------------------------------------------------------------ where a step ends

bool UndoCommands::isActionRunning() const
{
    return hand_.isDragging() || QtDesktop::isAsking();
}

void UndoCommands::takeStep()
{
    if (!isActionRunning())
        history_.takeStep();
}

/// The second press of a double click on the canvas goes on with what the first one began.
bool UndoCommands::beginsAction(const QObject &watched, const QEvent &event) const
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        return watched.isWidgetType(); // the window's system half gets more of them
    case QEvent::MouseButtonDblClick:
        return watched.isWidgetType() && !(&watched == canvas_.Picture1 && wasPressOnCanvas_);
    case QEvent::KeyPress:
    case QEvent::Shortcut:
        return true;
    case QEvent::Timer: // presses a button for a user without mouse and keyboard
        return qobject_cast<const QAbstractButton *>(&watched) != nullptr;
    default:
        return false;
    }
}

bool UndoCommands::eventFilter(QObject *watched, QEvent *event)
{
    if (beginsAction(*watched, *event))
        takeStep();
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType())
        wasPressOnCanvas_ = watched == canvas_.Picture1;
    if (isLeftToModel(*event)) {
        event->ignore();
        return true;
    }
    if (redoesInField(watched, *event)) {
        event->accept();
        return true;
    }
    if (!pressesInDialog(watched, *event))
        return false;
    event->accept();
    return true;
}

namespace {

QLineEdit *focusedField()
{
    QWidget *const focused = QApplication::focusWidget();
    if (const auto *list = qobject_cast<QComboBox *>(focused))
        return list->lineEdit();
    if (qobject_cast<QAbstractSpinBox *>(focused) != nullptr)
        return focused->findChild<QLineEdit *>();
    return qobject_cast<QLineEdit *>(focused);
}

} // namespace

/// A text field claims the keys of undo and redo even where it has nothing to undo. Where its
/// window has the commands they shall have them then.
bool UndoCommands::isLeftToModel(const QEvent &event)
{
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const QLineEdit *field = focusedField();
    if (field == nullptr)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    return (key.matches(QKeySequence::Undo) && !field->isUndoAvailable())
           || (key.matches(QKeySequence::Redo) && !field->isRedoAvailable());
}

/// Where the desktop has other keys for it, a field does not know Ctrl+Y. Its own typing that was
/// taken back comes before an edit of the model.
bool UndoCommands::redoesInField(const QObject *watched, const QEvent &event)
{
    const bool isPress = event.type() == QEvent::KeyPress;
    if ((!isPress && event.type() != QEvent::ShortcutOverride)
        || watched != QApplication::focusWidget()
        || static_cast<const QKeyEvent &>(event).keyCombination() != (Qt::CTRL | Qt::Key_Y))
        return false;
    QLineEdit *field = focusedField();
    if (field == nullptr || !field->isRedoAvailable())
        return false;
    if (isPress)
        field->redo();
    return true;
}

/// A key of the menu comes to a model dialog itself where nothing in it took it. The dialog keeps
/// it from the main window, so it is passed on; but those pressed in a text field are the field's.
bool UndoCommands::pressesInDialog(const QObject *watched, const QEvent &event) const
{
    if (event.type() != QEvent::KeyPress || qobject_cast<const ModelDialog *>(watched) == nullptr)
        return false;
    const QKeySequence keys(static_cast<const QKeyEvent &>(event).keyCombination());
    for (QAction *action : window_->findChild<QMenu *>(commandPlace::editMenu)->actions()) {
        if (!action->shortcuts().contains(keys))
            continue;
        if (focusedField() == nullptr)
            action->trigger();
        return true;
    }
    return false;
}

/// The log has changes in blue and deletions in green; in other colours it tells of other things.
void UndoCommands::noteLine(const std::string &text, std::uint32_t colour)
{
    const bool isDeletion = colour == logColourWord(logColour::green);
    const std::size_t begin = text.find_first_not_of("\r\n ");
    if ((isDeletion || colour == logColourWord(logColour::navy)) && begin != std::string::npos)
        history_.noteLine(text.substr(begin), isDeletion);
}

// ------------------------------------------------------------------------------ undo and redo

void UndoCommands::undo()
{
    go(&History::undo, Metafrasi(1822, "Undo: "), Metafrasi(1824, "There is nothing to undo."));
}

void UndoCommands::redo()
{
    go(&History::redo, Metafrasi(1823, "Redo: "), Metafrasi(1825, "There is nothing to redo."));
}

void UndoCommands::go(const std::string *(History::*way)(), const std::string &went,
                      const std::string &nothing)
{
    // A drag can have led to a dialog.
    if (isActionRunning())
        return canvas_.tellWhyNot(
            Metafrasi(1828, "This can be done when the action that goes on has ended."));
    history_.takeStep();
    const std::string *change = (history_.*way)();
    if (change == nullptr)
        return canvas_.tellWhyNot(nothing);
    hand_.forgetPointed(); // rows may have other numbers now
    for (ModelDialog *dialog : window_->findChildren<ModelDialog *>())
        dialog->refill();
    if (Allagi_Montelou) // a diagram of other tables would be shown
        picture_.Button_Foreas();
    else
        desktop().redraw();
    Grammi_Log(went + *change, logColour::black);
}

} // namespace veskora

#include "moc_UndoCommands.cpp"
