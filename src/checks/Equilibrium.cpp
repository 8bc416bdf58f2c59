#include "Equilibrium.h"

namespace veskora {

Finding checkEquilibrium()
{
    return {FindingKind::equilibrium, Severity::good, {}, {}, {}, veskora::Equilibrium{}};
}

} // namespace veskora
