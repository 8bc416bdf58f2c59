#pragma once

namespace veskora {

/// The deformed elements alone, in the pen in force.
void drawDeformedElements();

/// What the picture of results in view has over the frame, in the pen in force; nothing of the
/// model.
void traceDiagram();

} // namespace veskora
