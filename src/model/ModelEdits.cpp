#include "ModelEdits.h"

#include "Metablites.h"
#include "RowQueries.h"

#include <algorithm>

namespace veskora {

int addNode(float x, float y)
{
    const int n = ++Arithmos_Kombon;
    std::ranges::fill(Komboi.row(n), 0.0F);
    std::ranges::fill(Elatiria.row(n), 0.0F);
    Komboi(n, node::x) = x;
    Komboi(n, node::y) = y;
    Allagi_Montelou = true;
    return n;
}

int addElement(int nodeI, int nodeJ, int group)
{
    const int e = ++Arithmos_Stoixeion;
    std::ranges::fill(Stoixeia.row(e).first(element::used), 0.0F);
    Stoixeia(e, element::nodeI) = static_cast<float>(nodeI);
    Stoixeia(e, element::nodeJ) = static_cast<float>(nodeJ);
    Stoixeia(e, element::group) = static_cast<float>(group);
    Allagi_Montelou = true;
    return e;
}

bool stepSupport(int n)
{
    if (!areRestraintsValid(n))
        return false;
    const std::string_view next = nextRestraint(restraintCode(n));
    for (int k = 0; k < 3; ++k)
        Komboi(n, node::fixedX + k) = next[static_cast<std::size_t>(k)] == 'x' ? 1.0F : 0.0F;
    Allagi_Montelou = true;
    return true;
}

} // namespace veskora
