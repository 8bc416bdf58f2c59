#include "DiagramOutline.h"

#include "ElementLine.h"
#include "Functions.h"
#include "Kanvas.h"
#include "MathFunc.h"
#include "Reach.h"

#include <algorithm>
#include <limits>

namespace veskora {

namespace {

/// A stretch of the canvas, centimetres; empty at first.
struct Box
{
    double left = std::numeric_limits<double>::infinity(), right = -left;
    double top = left, bottom = -left;

    void add(double x, double y)
    {
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
    bool fits(double width, double height) const
    {
        return right - left <= width && bottom - top <= height;
    }
    bool isInside(const Kanvas &kanvas, const EdgeRoom &room = {}) const
    {
        return left >= room.left && top >= room.top && right <= kanvas.width() - room.right
               && bottom <= kanvas.height() - room.bottom;
    }
};

Box nodeBox()
{
    Box box;
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const Point place = toCanvas(nodePlace(n));
        box.add(place.x, place.y);
    }
    return box;
}

bool showsResults()
{
    return Katastasi_Provolis >= view::M && Katastasi_Provolis <= view::deformed;
}

/// Of the nodes and the diagram.
Box outline()
{
    Box box = nodeBox();
    for (const Reach &reach : diagramReaches())
        box.add(reach.tip.x, reach.tip.y);
    return box;
}

/// Whether all of it stands between the margins at the scale 1:@p scale.
bool fitsAt(double scale)
{
    const CanvasView before = currentView();
    Klimaka = static_cast<float>(scale);
    const bool fits = outline().fits(Picture1().width() - 2 * bestFitMargin,
                                     Picture1().height() - 2 * bestFitMargin);
    setView(before);
    return fits;
}

void reportNoRoom()
{
    Grammi_Log(Metafrasi(1835,
                         "The diagram goes beyond the edge of the picture at any scale of the "
                         "view. Reduce it by the button -, or in the View options."),
               logColour::red);
}

} // namespace

bool isDiagramCut(const EdgeRoom &room)
{
    return showsResults() && Arithmos_Kombon > 0 && !outline().isInside(Picture1(), room);
}

void reportCutDiagram()
{
    if (!showsResults())
        return;
    std::optional<CutDiagram> &reported =
        cutReportedFor.at(static_cast<std::size_t>(Katastasi_Provolis));
    if (!isDiagramCut())
        return reported.reset();
    const CutDiagram cut{currentView(), analysesFinished};
    if (reported == cut || !nodeBox().isInside(Picture1()))
        return;
    reported = cut;
    if (!fitsAt(coarsestScale))
        return reportNoRoom();
    Grammi_Log(Metafrasi(1834, "The diagram goes beyond the edge of the picture. Zoom Extents, "
                               "pressed twice, shows all of it."),
               logColour::red);
}

void Zoom_Diagram()
{
    double fine = Klimaka;
    double coarse = coarsestScale;
    if (!fitsAt(coarse))
        return reportNoRoom();
    // The outline shrinks with the scale, but its ordinates stay as they are: no formula gives the
    // scale at once.
    constexpr double accuracy = 1e-6;
    while (coarse > fine * (1 + accuracy)) {
        const double middle = std::sqrt(fine * coarse);
        (fitsAt(middle) ? coarse : fine) = middle;
    }
    Klimaka = static_cast<float>(Stroggylopoiisi(coarse, scaleDecimals));
    const Box box = outline();
    moveOrigin(Arxi_X + (box.left + box.right - Picture1().width()) / 2,
               Arxi_Y + (box.top + box.bottom - Picture1().height()) / 2);
}

} // namespace veskora
