#include "ViewTools.h"

#include "CanvasObjects.h"
#include "Metablites.h"
#include "Zoom.h"

namespace veskora {

void ViewTool::release(const Point &)
{
    Apothikefsi_Zoom();
}

void ViewTool::cancel()
{
    Apothikefsi_Zoom();
}

void ViewTool::takeBack()
{
    takeBackView();
}

PanTool::PanTool(CanvasObjects &canvas) : ViewTool(canvas, {":/icons/pointer_hand.svg", 16, 18})
{}

void PanTool::move(const Point &at)
{
    moveOrigin(Agkyra_X - at.x, Agkyra_Y - at.y);
    canvas_.showSketch();
}

ZoomTool::ZoomTool(CanvasObjects &canvas) : ViewTool(canvas, {":/icons/pointer_zoom.svg", 12, 12})
{}

void ZoomTool::move(const Point &at)
{
    Zoom_Syrsimatos(Patima_Y, at.y);
    Patima_Y = static_cast<float>(at.y);
    canvas_.showSketch();
}

ZoomWindowTool::ZoomWindowTool(CanvasObjects &canvas)
    : ViewTool(canvas, {":/icons/pointer_zoom_window.svg", 8, 8})
{}

void ZoomWindowTool::move(const Point &at)
{
    canvas_.Shape1->span(Patima_X, Patima_Y, at.x, at.y);
    canvas_.Shape1->show();
}

void ZoomWindowTool::release(const Point &at)
{
    Zoom_Parathyrou(Patima_X, Patima_Y, at.x, at.y);
    Apothikefsi_Zoom();
    canvas_.Shape1->hide();
}

void ZoomWindowTool::cancel()
{
    canvas_.Shape1->hide();
}

} // namespace veskora

#include "moc_ViewTools.cpp"
