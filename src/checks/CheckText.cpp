#include "CheckText.h"

namespace veskora {

FindingText textOf(const Finding &)
{
    return {};
}

std::string textOf(Severity)
{
    return {};
}

std::string checkText(std::span<const Finding>)
{
    return {};
}

} // namespace veskora
