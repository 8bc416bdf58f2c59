#pragma once

#include <QObject>

namespace veskora {

class CanvasWidget;
class ViewRun;

/// The keys that move and zoom the view. A held one goes on, so they are no commands of a menu. The
/// arrows belong to the canvas while it has the focus, Ctrl++ and Ctrl+- to its whole window.
class ViewKeys : public QObject
{
    Q_OBJECT
public:
    ViewKeys(CanvasWidget *canvas, ViewRun &run);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool moves(int key, Qt::KeyboardModifiers with);
    bool zooms(int key, Qt::KeyboardModifiers with);

    CanvasWidget *const canvas_;
    ViewRun &run_;
};

} // namespace veskora
