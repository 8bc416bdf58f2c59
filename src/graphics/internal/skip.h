#pragma once

#include "Fault.h"

namespace veskora {

/// Runs one step of a drawing; where it faults the step is left out and the drawing goes on.
template <typename Step>
void skipFaults(Step step)
{
    try {
        step();
    } catch (const Fault &) {
        // A picture with a gap tells more than none.
    }
}

} // namespace veskora
