#include "RowCommands.h"

#include "CanvasObjects.h"
#include "Desktop.h"
#include "Functions.h"
#include "Hand.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "NodeDeletion.h"
#include "RowLines.h"
#include "RowQueries.h"

#include <algorithm>
#include <iterator>

namespace veskora {

void RowCommands::finish(const std::vector<int> &rows, const std::function<void(int)> &log) const
{
    if (rows.empty())
        return canvas_.tellWhyNot(Metafrasi(1715, "Nothing has changed: it is so already."));
    std::ranges::for_each(rows, log);
    desktop().redraw();
}

// ------------------------------------------------------------------------------------------ nodes

namespace {

void logChangedNode(int n)
{
    logNode(n, false);
}

void logChangedElement(int e)
{
    logElement(e, false);
}

} // namespace

void RowCommands::holdRotation(int n)
{
    finish(holdRotations({&n, 1}), logChangedNode);
}

void RowCommands::holdRotationsOfHinges()
{
    finish(holdRotations(nodesOfHinges()), logChangedNode);
}

void RowCommands::deleteNode(int n)
{
    hand_.hideMarks();
    if (deleteNodeWithElements(n))
        desktop().redraw();
}

// --------------------------------------------------------------------------------------- elements

void RowCommands::hingeBothEnds(int e)
{
    finish(veskora::hingeBothEnds({&e, 1}), logChangedElement);
}

void RowCommands::hingeGroup(int e)
{
    finish(veskora::hingeBothEnds(elementsOfGroup(groupOf(e))), logChangedElement);
}

void RowCommands::shareLoads(int e)
{
    const std::vector<int> group = elementsOfGroup(groupOf(e));
    std::vector<int> loaded;
    std::ranges::copy_if(group, std::back_inserter(loaded), isLoadedElement);
    finish(veskora::shareLoads(e, group), [&loaded](int other) {
        Grammi_Log(loadsLine(elementalLoadWords(), other, elementalLoads(other),
                             std::ranges::binary_search(loaded, other)),
                   logColour::navy);
    });
}

void RowCommands::drawInGroup(int e)
{
    drawnGroup = static_cast<std::int16_t>(groupOf(e));
    Grammi_Log(Metafrasi(1713, "From now on new elements on the canvas belong to group #")
                   + numberText(drawnGroup),
               logColour::black);
    desktop().redraw();
}

} // namespace veskora
