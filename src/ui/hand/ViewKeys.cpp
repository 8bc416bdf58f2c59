#include "ViewKeys.h"

#include "ArrowKeys.h"
#include "CanvasWidget.h"
#include "ViewRun.h"

#include <QKeyEvent>

namespace veskora {

ViewKeys::ViewKeys(CanvasWidget *canvas, ViewRun &run) : canvas_(canvas), run_(run)
{
    canvas->installEventFilter(this);
    canvas->window()->installEventFilter(this); // gets what the widget in focus did not take
}

bool ViewKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *key = static_cast<const QKeyEvent *>(event);
    const Qt::KeyboardModifiers with = key->modifiers() & ~Qt::KeypadModifier;
    return watched == canvas_ ? moves(key->key(), with) : zooms(key->key(), with);
}

bool ViewKeys::moves(int key, Qt::KeyboardModifiers with)
{
    const std::optional<QPoint> step = arrowStep(key);
    if (!step || (with & ~Qt::ShiftModifier) != Qt::NoModifier)
        return false;
    const double part = with == Qt::ShiftModifier ? 0.01 : 0.1;
    run_.move(step->x() * part, -step->y() * part);
    return true;
}

/// On many keyboards + is Shift and =; the one without Shift serves too.
bool ViewKeys::zooms(int key, Qt::KeyboardModifiers with)
{
    const bool isIn = key == Qt::Key_Plus || key == Qt::Key_Equal;
    if ((!isIn && key != Qt::Key_Minus) || (with & ~Qt::ShiftModifier) != Qt::ControlModifier)
        return false;
    const Kanvas &kanvas = canvas_->kanvas();
    run_.zoomByClicks({kanvas.width() / 2, kanvas.height() / 2}, isIn ? 1 : -1);
    return true;
}

} // namespace veskora

#include "moc_ViewKeys.cpp"
