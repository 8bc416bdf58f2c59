#pragma once
/// @file
/// Changes of the view that need no tool.

#include "Kanvas.h"

#include <QObject>

#include <optional>

QT_BEGIN_NAMESPACE
class QTimer;
QT_END_NAMESPACE

namespace veskora {

struct CanvasObjects;

/// A run of small changes of the view: clicks of the wheel, a pinch, keys. A zoom about another
/// place begins another run, and so does whatever comes after half a second of rest. Each run is
/// one step of Zoom Previous. While it goes on the canvas shows a sketch.
class ViewRun : public QObject
{
    Q_OBJECT
public:
    explicit ViewRun(CanvasObjects &canvas);

    /// Makes the drawing @p factor times as large about a canvas point. At the limits of the scale
    /// nothing changes, and the log says so until something has.
    void zoom(const Point &about, double factor);
    /// The same by clicks of a wheel, away from the user inward; three of them double.
    void zoomByClicks(const Point &about, double clicks);
    /// Goes to what lies further right and further up, in widths and heights of the canvas.
    void move(double right, double up);

    void end(); ///< with the run that there is, if any

signals:
    void sketched();
    void ended(); ///< the picture is to be made anew

private:
    void join(std::optional<Point> about);
    void show();

    CanvasObjects &canvas_;
    QTimer *const rest_;
    std::optional<Point> about_; ///< where the zooms of this run began; none: it moves
    bool isOn_ = false;
    bool limitTold_ = false;
};

} // namespace veskora
