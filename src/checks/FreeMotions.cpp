#include "FreeMotions.h"

namespace veskora {

std::vector<Finding> findMotions()
{
    return {{FindingKind::noFreeMotion, Severity::good, {}, {}, {}, {}}};
}

bool canMoveFreely()
{
    return false;
}

} // namespace veskora
