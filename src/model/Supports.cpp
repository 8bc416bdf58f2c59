#include "Supports.h"

#include <algorithm>

namespace veskora {

std::string supportCode(bool x, bool y, bool rotation)
{
    std::string code;
    for (const bool constrained : {x, y, rotation})
        code += constrained ? 'x' : 'o';
    return code;
}

std::string_view nextSupport(std::string_view code)
{
    const auto *at = std::ranges::find(supportRing, code);
    return at == supportRing.end() || at + 1 == supportRing.end() ? supportRing.front() : *(at + 1);
}

} // namespace veskora
