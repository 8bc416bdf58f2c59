#include "PickTool.h"

#include "HitTest.h"

namespace veskora {

/// No drag begins.
bool PickTool::press(const Point &at)
{
    if (const int e = elementUnderPointer(at.x, at.y); e != 0)
        emit elementPicked(e);
    return false;
}

} // namespace veskora

#include "moc_PickTool.cpp"
