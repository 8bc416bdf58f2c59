#pragma once
/// @file
/// The tools that change the view. They work in every view.

#include "Tool.h"

namespace veskora {

struct CanvasObjects;

/// What they share: a drag that has changed the view is one step of Zoom Previous, also where its
/// release is lost.
class ViewTool : public Tool
{
    Q_OBJECT
public:
    void release(const Point &at) override;
    void cancel() override;
    void takeBack() override;
    QCursor pointer(double scale) const override { return picture_.cursor(scale); }

protected:
    ViewTool(CanvasObjects &canvas, const PointerPicture &picture)
        : canvas_(canvas), picture_(picture)
    {}

    CanvasObjects &canvas_;

private:
    const PointerPicture picture_;
};

/// Takes hold of the drawing and moves it.
class PanTool : public ViewTool
{
    Q_OBJECT
public:
    explicit PanTool(CanvasObjects &canvas);
    void move(const Point &at) override;
};

/// Zooms by dragging: downward out, upward in.
class ZoomTool : public ViewTool
{
    Q_OBJECT
public:
    explicit ZoomTool(CanvasObjects &canvas);
    void move(const Point &at) override;
};

/// Makes the frame that is drawn fill the canvas.
class ZoomWindowTool : public ViewTool
{
    Q_OBJECT
public:
    explicit ZoomWindowTool(CanvasObjects &canvas);
    void move(const Point &at) override;
    void release(const Point &at) override;
    void cancel() override;
    void takeBack() override { cancel(); }
};

} // namespace veskora
