#include "FreedomArrows.h"
#include "Kanvas.h"
#include "Metablites.h"
#include "Steps.h"
#include "Sxediastika.h"
#include "Zoom.h"

namespace veskora::steps {

void drawStepPicture(const Picture &picture)
{
    Picture1().clear();
    if (picture.kind == Picture::Kind::element)
        return drawEndForces(picture.element, picture.endForces);
    const CanvasView before = currentView();
    constexpr double margin = 1.8; // for the arrows of nodes at the edge
    fitModel(margin);
    Sxedio_Stoixeion();
    Sxedio_Kombon();
    drawFreedoms(picture.numbers, picture.free);
    setView(before);
}

} // namespace veskora::steps
