#include "Sketching.h"

#include "Functions.h"
#include "HitTest.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "RowLines.h"
#include "RowQueries.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <cmath>
#include <limits>

namespace veskora {

namespace {

double nodeCoordinate(double coordinate)
{
    return nai_grid ? Kannabos_Sintetagmeni(coordinate)
                    : Stroggylopoiisi(coordinate, Dekadika_Sintetagmenon);
}

/// Whether the rounding, which counts in 32 bits, can tell @p coordinate.
bool canBeTold(double coordinate)
{
    const double steps =
        nai_grid ? coordinate / kannab : coordinate * std::pow(10.0, Dekadika_Sintetagmenon);
    return std::abs(steps) < std::numeric_limits<std::int32_t>::max();
}

} // namespace

Point nodePlaceFor(const Point &at)
{
    return {nodeCoordinate(Othoni_X(at.x)), nodeCoordinate(Othoni_Y(at.y))};
}

int sketchNode(const Point &at)
{
    if (Arithmos_Kombon >= maxNodes)
        return 0;
    if (!canBeTold(Othoni_X(at.x)) || !canBeTold(Othoni_Y(at.y))) {
        Grammi_Log(Metafrasi(135, "This place is too far from the origin for a node."),
                   logColour::red);
        return 0;
    }
    const Point place = nodePlaceFor(at);
    const int n = addNode(static_cast<float>(place.x), static_cast<float>(place.y));
    std::string text = Metafrasi(118, "New node #") + numberText(n) + Metafrasi(119, ", x=")
                       + numberText(Komboi(n, node::x)) + Metafrasi(120, ", y=")
                       + numberText(Komboi(n, node::y)) + ", ";
    const std::string code = restraintText(n); // none, as the row is new
    text += code.empty() ? Metafrasi(121, "Free") : Metafrasi(122, "Constraints:") + " " + code;
    Grammi_Log(text, logColour::navy);
    Sxedio_Kombou(n);
    return n;
}

int sketchElement(int start, int end)
{
    if (Arithmos_Omadon == 0 || start < 1 || start > Arithmos_Kombon || start == end
        || Arithmos_Stoixeion >= maxElements || areJoined(start, end))
        return 0;
    const int e = addElement(start, end, groupToDraw());
    Grammi_Log(Metafrasi(123, "New element #") + numberText(e) + ", " + Metafrasi(124, "Node i: #")
                   + numberText(start) + ", " + Metafrasi(125, "Node j: #") + numberText(end) + ", "
                   + Metafrasi(126, "E,A,I Group: #") + numberText(groupOf(e)) + ", "
                   + Metafrasi(127, "P2 Type"),
               logColour::navy);
    return e;
}

int sketchSupport(const Point &at, bool backwards)
{
    constexpr double near = 2; // centimetres
    const int n = nearestNode(at.x, at.y, near);
    if (n == 0 || !stepSupport(n, backwards))
        return 0;
    logNode(n, false);
    return n;
}

} // namespace veskora
