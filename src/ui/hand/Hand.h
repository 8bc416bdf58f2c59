#pragma once
/// @file
/// The mouse on the canvas.

#include "CanvasObjects.h"
#include "DrawingTool.h"
#include "PickTool.h"
#include "UnderPointer.h"
#include "ViewKeys.h"
#include "ViewRun.h"
#include "ViewTools.h"

#include <QPointF>

#include <array>
#include <memory>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace veskora {

/// Turns what the mouse does on the canvas into what the tool at hand does, and knows what lies
/// under the pointer. It asks for menus and tells of changes; it knows no command.
class Hand : public QObject
{
    Q_OBJECT
public:
    explicit Hand(CanvasObjects &canvas);

    /// @name Tools
    /// @{

    /// Takes a tool of the class @p T; where it is taken already, puts it away.
    template <typename T>
    void toggle()
    {
        const bool leaving = isTaken<T>();
        Reset_Pointer();
        if (!leaving)
            take(std::make_unique<T>(canvas_));
    }
    template <typename T>
    bool isTaken() const
    {
        return qobject_cast<T *>(taken_.get()) != nullptr;
    }
    void Button_Xeraki();
    void Button_Zoom();
    void Button_Zoom_Window();
    bool Xeraki_Energo() const { return isTaken<PanTool>(); }
    bool Zoom_Energo() const { return isTaken<ZoomTool>(); }
    bool Zoom_Window_Energo() const { return isTaken<ZoomWindowTool>(); }
    void Reset_Pointer(); ///< all of them off, cross pointer
    bool isToolOn() const { return taken_ != nullptr; }
    /// Gives the canvas the pointer of the tool at hand.
    void showPointer();
    /// @}

    /// A button is down on the canvas, or a drag has begun that has not ended.
    bool isDragging() const { return Patimeno_Koumpi() || canvas_.Picture1->isHeld(); }
    /// The user gives up the drag that goes on, if any: nothing is made of it.
    void takeBackDrag();
    /// A command comes: what wheel and keys have done to the view is a step of its own.
    void endViewRun() { run_.end(); }
    /// Finds anew what lies under a pointer that rests: the rows or the view may have changed.
    void lookAgain();
    void hideMarks() { canvas_.highlights.hide(); }
    void forgetPointed() { under_.forget(); }

    /// The pop-ups that `toolMenuWanted` and `rowMenuWanted` lead to: while one is open the pointer
    /// goes unseen, and what the second is about stays marked.
    void setMenus(QMenu *toolMenu, QMenu *rowMenu);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void pointerMoved(const Point &at); ///< canvas cm
    /// A drag or a double click has edited the model, or may have: the picture is to be made anew.
    void edited();
    void viewMoved(); ///< a tool's drag, the wheel or the keys have ended: the same
    void groupWanted();
    void toolChanged(); ///< another one was taken, or put away
    void elementPicked(int e);
    void toolMenuWanted();
    /// @param node, element  what was pointed at, one of them or both; 0 for none
    void rowMenuWanted(int node, int element);

private:
    bool Patimeno_Koumpi() const { return dragButton_ != Qt::NoButton; }
    Tool &tool();
    bool isDrawing() { return &tool() == &drawing_; }
    void take(std::unique_ptr<Tool> tool);
    void tellTool();

    void pressed(Qt::MouseButton button, const Point &at);
    void moved(Qt::MouseButtons buttons, const Point &at);
    void released(Qt::MouseButton button, const Point &at);
    void doubleClicked(Qt::KeyboardModifiers with);
    void equipSupportKeys();
    void pointerLeft();
    void menuClosed();
    void giveUpDrag();
    void endDrag();
    void askForMenu();
    bool isRowMenuOpen() const;
    void look(const Point &at);

    CanvasObjects &canvas_;
    UnderPointer under_;
    DrawingTool drawing_;
    std::unique_ptr<Tool> taken_; ///< none: the hand draws
    PanTool pan_;                 ///< the middle button's, whatever tool is taken
    ViewRun run_;
    ViewKeys keys_;
    Qt::MouseButton dragButton_ = Qt::NoButton; ///< of the drag that goes on, left or middle
    bool pointerOnCanvas_ = false;
    QPointF pointer_;               ///< its last place on the screen
    QMenu *rowMenu_ = nullptr;      ///< none before `setMenus`
    std::array<int, 2> rowsSeen_{}; ///< nodes and elements when it last looked
};

} // namespace veskora
