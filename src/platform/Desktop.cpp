#include "Desktop.h"

#include "Fault.h"

namespace veskora {

namespace {
Desktop *current = nullptr;
}

Desktop &desktop()
{
    if (current == nullptr)
        throw Fault(Fault::Kind::system, "no desktop has been set");
    return *current;
}

void setDesktop(Desktop *desktop)
{
    current = desktop;
}

} // namespace veskora
