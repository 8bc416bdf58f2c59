#include "element.h"

#include "RowQueries.h"

#include <cmath>
#include <string>

namespace veskora {

namespace {

/// @p row, unless it is 0.
int existing(int row, int e, const char *table)
{
    if (row == 0)
        throw Fault("Element " + std::to_string(e) + " refers to a " + table
                    + " that does not exist");
    return row;
}

} // namespace

std::pair<int, int> elementNodes(int e)
{
    return {existing(nodeOf(e, element::nodeI), e, "node"),
            existing(nodeOf(e, element::nodeJ), e, "node")};
}

int elementGroup(int e)
{
    return existing(groupOf(e), e, "group");
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

} // namespace veskora
