#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace veskora {

/// Whether a widget has been painted.
class PaintedOnce : public QObject
{
public:
    explicit PaintedOnce(QWidget &widget) { widget.installEventFilter(this); }

    /// Until it has been painted since this was made.
    void wait()
    {
        while (!painted_)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool painted_ = false;
};

} // namespace veskora
