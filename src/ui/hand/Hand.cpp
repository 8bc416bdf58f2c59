#include "Hand.h"

#include "HitTest.h"
#include "Metablites.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QShortcut>

#include <utility>

namespace veskora {

Hand::Hand(CanvasObjects &canvas)
    : canvas_(canvas),
      under_(canvas.highlights),
      drawing_(canvas, under_),
      pan_(canvas),
      run_(canvas),
      keys_(canvas.Picture1, run_)
{
    const CanvasWidget *picture = canvas.Picture1;
    connect(picture, &CanvasWidget::pressed, this, &Hand::pressed);
    connect(picture, &CanvasWidget::moved, this, &Hand::moved);
    connect(picture, &CanvasWidget::released, this, &Hand::released);
    connect(picture, &CanvasWidget::abandoned, this, &Hand::giveUpDrag);
    connect(picture, &CanvasWidget::doubleClicked, this, &Hand::doubleClicked);
    connect(picture, &CanvasWidget::left, this, &Hand::pointerLeft);
    connect(picture, &CanvasWidget::wheelTurned, this, [this](const Point &at, double clicks) {
        if (!isDragging())
            run_.zoomByClicks(at, clicks);
    });
    connect(picture, &CanvasWidget::pinched, this, [this](const Point &at, double factor) {
        if (!isDragging())
            run_.zoom(at, factor);
    });
    connect(picture, &CanvasWidget::pinchEnded, &run_, &ViewRun::end);
    connect(&run_, &ViewRun::sketched, this, &Hand::lookAgain);
    connect(&run_, &ViewRun::ended, this, &Hand::viewMoved);
    // The pointer's picture is made for one resolution.
    connect(picture, &CanvasWidget::resized, this, &Hand::showPointer);
    connect(&drawing_, &Tool::edited, this, &Hand::edited);
    connect(&drawing_, &DrawingTool::groupWanted, this, &Hand::groupWanted);
    equipSupportKeys();
    qApp->installEventFilter(this);
    showPointer();
}

// ------------------------------------------------------------------------------------------ tools

void Hand::take(std::unique_ptr<Tool> tool)
{
    taken_ = std::move(tool);
    connect(taken_.get(), &Tool::edited, this, &Hand::edited);
    connect(taken_.get(), &Tool::elementPicked, this, &Hand::elementPicked);
    hideMarks();
    tellTool();
}

void Hand::Button_Xeraki()
{
    toggle<PanTool>();
}

void Hand::Button_Zoom()
{
    toggle<ZoomTool>();
}

void Hand::Button_Zoom_Window()
{
    toggle<ZoomWindowTool>();
}

void Hand::Reset_Pointer()
{
    if (Patimeno_Koumpi())
        giveUpDrag();
    if (isTaken<PickTool>())
        hideMarks(); // no other one has any over a diagram
    taken_.reset();
    tellTool();
}

void Hand::tellTool()
{
    showPointer();
    canvas_.Picture1->setFirstPressCounts(isTaken<PickTool>()); // of a window beside this one
    emit toolChanged();
}

Tool &Hand::tool()
{
    if (dragButton_ == Qt::MiddleButton)
        return pan_;
    return taken_ ? *taken_ : drawing_;
}

void Hand::showPointer()
{
    canvas_.Picture1->setCursor(tool().pointer(canvas_.Picture1->devicePixelRatioF()));
}

// ------------------------------------------------------------------------------------------- drag

void Hand::pressed(Qt::MouseButton button, const Point &at)
{
    run_.end();
    if (Patimeno_Koumpi() && button != dragButton_)
        return; // one drag at a time
    // A window that has gone leaves the pointer where no move has told of it.
    if (!Patimeno_Koumpi())
        look(at);
    if (button != Qt::LeftButton && button != Qt::MiddleButton)
        return;
    Patima_X = static_cast<float>(at.x);
    Patima_Y = static_cast<float>(at.y);
    Agkyra_X = static_cast<float>(at.x + Arxi_X);
    Agkyra_Y = static_cast<float>(at.y + Arxi_Y);
    canvas_.Label2->hideAt(at);
    dragButton_ = button;
    if (button == Qt::MiddleButton) {
        hideMarks();
        showPointer();
    } else {
        canvas_.highlights.hideElement();
    }
    if (!tool().press(at))
        dragButton_ = Qt::NoButton;
}

void Hand::moved(Qt::MouseButtons buttons, const Point &at)
{
    if (Patimeno_Koumpi() && !buttons.testFlag(dragButton_))
        giveUpDrag(); // the release went to somebody else
    pointerOnCanvas_ = true;
    emit pointerMoved(at);
    if (Patimeno_Koumpi())
        tool().move(at);
    if (Patimeno_Koumpi() && !isDrawing())
        return;
    Neos_Kombos_Sto_Patima = false;
    look(at);
}

void Hand::released(Qt::MouseButton button, const Point &at)
{
    if (button == Qt::RightButton && !Patimeno_Koumpi())
        askForMenu();
    if (button != (Patimeno_Koumpi() ? dragButton_ : Qt::LeftButton))
        return;
    if (Patimeno_Koumpi())
        tool().release(at);
    endDrag();
    look(at);
}

/// Ends a drag whose release will not come: it defines nothing.
void Hand::giveUpDrag()
{
    if (Patimeno_Koumpi())
        tool().cancel();
    endDrag();
}

void Hand::takeBackDrag()
{
    if (!Patimeno_Koumpi())
        return;
    tool().takeBack();
    endDrag();
}

void Hand::endDrag()
{
    const bool isOfView = !isDrawing();
    if (std::exchange(dragButton_, Qt::NoButton) == Qt::MiddleButton)
        showPointer();
    if (isOfView)
        emit viewMoved();
}

void Hand::doubleClicked(Qt::KeyboardModifiers with)
{
    tool().doubleClick({under_.Teleftaio_X, under_.Teleftaio_Y},
                       with.testFlag(Qt::ControlModifier));
}

/// They belong to the canvas while it has the focus, as letters are typed elsewhere. Shortcuts find
/// them on keyboards of other scripts too.
void Hand::equipSupportKeys()
{
    struct Support
    {
        const char *keys, *code;
    };
    for (const auto &[keys, code] :
         {Support{"F", "xxx"}, Support{"P", "xxo"}, Support{"R", "oxo"}, Support{"0", "ooo"}}) {
        auto *shortcut = new QShortcut(QKeySequence(keys), canvas_.Picture1);
        shortcut->setContext(Qt::WidgetShortcut);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, [this, code = code] {
            run_.end();
            if (pointerOnCanvas_ && isDrawing())
                drawing_.setSupport(code);
        });
    }
}

// -------------------------------------------------------------------------- what lies under it

void Hand::look(const Point &at)
{
    if (isTaken<PickTool>() && dragButton_ != Qt::MiddleButton)
        canvas_.highlights.showElement(elementUnderPointer(at.x, at.y));
    else if (Katastasi_Provolis == view::model)
        under_.look(at, Patimeno_Koumpi(), isToolOn());
}

void Hand::lookAgain()
{
    const std::array<int, 2> rows = {Arithmos_Kombon, Arithmos_Stoixeion};
    const auto before = std::exchange(rowsSeen_, rows);
    if (rows[0] < before[0] || rows[1] < before[1]) { // rows have another number now, or none
        forgetPointed();
        if (isRowMenuOpen())
            rowMenu_->close();
        if (Patimeno_Koumpi())
            giveUpDrag();
    }
    if (!pointerOnCanvas_ || isRowMenuOpen() || QApplication::activeModalWidget() != nullptr)
        return;
    const Point at = canvas_.Picture1->placeAt(pointer_);
    emit pointerMoved(at);
    look(at);
}

void Hand::pointerLeft()
{
    pointerOnCanvas_ = false;
    if (!isRowMenuOpen()) // it tells of what is marked
        hideMarks();
}

bool Hand::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseMove)
        pointer_ = static_cast<const QMouseEvent *>(event)->globalPosition();
    return QObject::eventFilter(watched, event);
}

// ------------------------------------------------------------------------------------------ menus

void Hand::setMenus(QMenu *toolMenu, QMenu *rowMenu)
{
    rowMenu_ = rowMenu;
    for (const QMenu *menu : {toolMenu, rowMenu})
        connect(menu, &QMenu::aboutToHide, this, &Hand::menuClosed, Qt::QueuedConnection);
}

bool Hand::isRowMenuOpen() const
{
    return rowMenu_ != nullptr && rowMenu_->isVisible();
}

void Hand::askForMenu()
{
    if (isToolOn())
        emit toolMenuWanted();
    else if (under_.Pano_Se_Kombo() || under_.Pano_Se_Stoixeio())
        emit rowMenuWanted(under_.Pano_Se_Kombo() ? under_.Kombos_Deikti : 0,
                           under_.Pano_Se_Stoixeio() ? under_.Stoixeio_Deikti : 0);
}

/// While it was open the pointer may have gone anywhere.
void Hand::menuClosed()
{
    pointerOnCanvas_ = QApplication::widgetAt(pointer_.toPoint()) == canvas_.Picture1;
    if (!pointerOnCanvas_)
        hideMarks();
    lookAgain();
}

} // namespace veskora

#include "moc_Hand.cpp"
