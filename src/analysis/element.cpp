#include "element.h"

#include <cmath>
#include <string>

namespace veskora {

namespace {

int referencedRow(int e, int column, int count, const char *table)
{
    const float reference = Stoixeia(e, column);
    // The negated test catches what is not a number too.
    if (!(reference >= 1 && reference <= static_cast<float>(count)))
        throw Fault("Element " + std::to_string(e) + " refers to a " + table
                    + " that does not exist");
    return static_cast<int>(std::nearbyint(reference));
}

} // namespace

std::pair<int, int> elementNodes(int e)
{
    return {referencedRow(e, element::nodeI, Arithmos_Kombon, "node"),
            referencedRow(e, element::nodeJ, Arithmos_Kombon, "node")};
}

int elementGroup(int e)
{
    return referencedRow(e, element::group, Arithmos_Omadon, "group");
}

ElementGeometry elementGeometry(int e)
{
    const auto [ni, nj] = elementNodes(e);
    // Single minus Single, rounded to Single: nodes that are one place to the tables are one here.
    const float dx = Komboi(nj, node::x) - Komboi(ni, node::x);
    const float dy = Komboi(nj, node::y) - Komboi(ni, node::y);
    const double wideX = dx;
    const double wideY = dy;
    const double length = std::sqrt(wideX * wideX + wideY * wideY);
    if (length == 0)
        throw Fault("Division by zero: element " + std::to_string(e) + " has no length");
    if (!std::isfinite(length))
        throw Fault("Overflow in the length of element " + std::to_string(e));
    return {length, wideX / length, wideY / length};
}

ElementType elementType(int e)
{
    const float hingeI = Stoixeia(e, element::hingeI);
    const float hingeJ = Stoixeia(e, element::hingeJ);
    if (hingeI == 0 && hingeJ == 0)
        return ElementType::P2;
    if (hingeI == 0 && hingeJ == 1)
        return ElementType::hingeAtJ;
    if (hingeI == 1 && hingeJ == 0)
        return ElementType::hingeAtI;
    return hingeI == 1 && hingeJ == 1 ? ElementType::P1 : ElementType::none;
}

} // namespace veskora
