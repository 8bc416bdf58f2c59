#pragma once
/// @file
/// What the left button does on the canvas.

#include "Kanvas.h"

#include <QCursor>
#include <QObject>

namespace veskora {

/// One of the things that the left button can do on the canvas: drawing, or a tool that the user
/// has taken. Places are canvas centimetres; those of the press stand in `Patima_X` and its
/// neighbours by the time it is told. A drag ends in `release`, `cancel` or `takeBack`, and
/// whatever the tool showed for it goes then.
class Tool : public QObject
{
    Q_OBJECT
public:
    /// @return whether a drag begins
    virtual bool press([[maybe_unused]] const Point &at) { return true; }
    /// The pointer has moved while the button is down.
    virtual void move(const Point &at) = 0;
    virtual void release(const Point &at) = 0;
    /// The drag ends, and its release has gone to somebody else.
    virtual void cancel() = 0;
    /// The user gives the drag up: nothing is left of it, as if it had never begun.
    virtual void takeBack() = 0;
    /// Its second press is not told.
    virtual void doubleClick([[maybe_unused]] const Point &at, [[maybe_unused]] bool withCtrl) {}
    /// Its pointer picture. @p scale is device pixels of one logical pixel.
    virtual QCursor pointer(double scale) const = 0;

signals:
    void edited(); ///< the model was, or may have been; the picture is still that from before
    void elementPicked(int e);
};

/// A pointer among the icons, and its hot spot in a picture of 32 logical pixels.
struct PointerPicture
{
    const char *icon;
    int x, y;

    QCursor cursor(double scale) const;
};

} // namespace veskora
