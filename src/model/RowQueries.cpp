#include "RowQueries.h"

#include "Metablites.h"
#include "Supports.h"

#include <algorithm>

namespace veskora {

bool isLoadedNode(int n)
{
    return Komboi(n, node::Fx) != 0 || Komboi(n, node::Fy) != 0 || Komboi(n, node::M) != 0;
}

bool isConstrainedNode(int n)
{
    return Komboi(n, node::fixedX) == 1 || Komboi(n, node::fixedY) == 1
           || Komboi(n, node::fixedRotation) == 1;
}

bool hasSpring(int n)
{
    return std::ranges::any_of(Elatiria.row(n), [](float constant) { return constant > 0; });
}

bool isLoadedElement(int e)
{
    return Stoixeia(e, element::wx) != 0 || Stoixeia(e, element::wy) != 0;
}

bool touches(int e, int n)
{
    const auto node = static_cast<float>(n);
    return Stoixeia(e, element::nodeI) == node || Stoixeia(e, element::nodeJ) == node;
}

bool joins(int e, int a, int b)
{
    const float i = Stoixeia(e, element::nodeI), j = Stoixeia(e, element::nodeJ);
    const auto nodeA = static_cast<float>(a), nodeB = static_cast<float>(b);
    return (i == nodeA && j == nodeB) || (i == nodeB && j == nodeA);
}

int countRows(int rows, bool (*holds)(int))
{
    int count = 0;
    for (int row = 1; row <= rows; ++row)
        count += holds(row) ? 1 : 0;
    return count;
}

std::string constraintCode(int n)
{
    const std::string code = supportCode(Komboi(n, node::fixedX) == 1, Komboi(n, node::fixedY) == 1,
                                         Komboi(n, node::fixedRotation) == 1);
    return code == "ooo" ? "" : code;
}

double springForce(int n, int k)
{
    return -Elatiria(n, k) * Metatopiseis(freedomOf(n, k));
}

} // namespace veskora
