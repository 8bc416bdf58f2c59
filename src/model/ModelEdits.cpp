#include "ModelEdits.h"

#include "Metablites.h"
#include "RowQueries.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

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

namespace {

void writeSupport(int n, std::string_view code)
{
    for (int k = 0; k < 3; ++k)
        Komboi(n, node::fixedX + k) = code[static_cast<std::size_t>(k)] == 'x' ? 1.0F : 0.0F;
    Allagi_Montelou = true;
}

std::vector<int> changed(std::span<const int> rows, auto change)
{
    std::vector<int> result;
    std::ranges::copy_if(rows, std::back_inserter(result), change);
    if (!result.empty())
        Allagi_Montelou = true;
    return result;
}

} // namespace

bool stepSupport(int n, bool backwards)
{
    if (!areRestraintsValid(n))
        return false;
    writeSupport(n, (backwards ? previousRestraint : nextRestraint)(restraintCode(n)));
    return true;
}

bool setSupport(int n, std::string_view code)
{
    const std::string before = restraintCode(n);
    if (before == code && areRestraintsValid(n))
        return false;
    for (std::size_t k = 0; k < code.size(); ++k)
        if (code[k] == 'x' && before[k] != 'x')
            Elatiria(n, static_cast<int>(k) + 1) = 0;
    writeSupport(n, code);
    return true;
}

std::vector<int> holdRotations(std::span<const int> nodes)
{
    return changed(nodes, [](int n) {
        std::string code = restraintCode(n);
        code.back() = 'x';
        return setSupport(n, code);
    });
}

std::vector<int> hingeBothEnds(std::span<const int> elements)
{
    return changed(elements, [](int e) {
        const bool was = std::exchange(Stoixeia(e, element::hingeI), 1.0F) == 1;
        return std::exchange(Stoixeia(e, element::hingeJ), 1.0F) != 1 || !was;
    });
}

std::vector<int> shareLoads(int e, std::span<const int> elements)
{
    const auto given = elementalLoads(e);
    return changed(elements, [given](int other) {
        const auto loads = elementalLoads(other);
        const bool differ = !std::ranges::equal(given, loads);
        std::ranges::copy(given, loads.begin());
        return differ;
    });
}

int moveNodes(std::span<const int> nodes, float dx, float dy)
{
    for (const int n : nodes) {
        if (!std::isfinite(Komboi(n, node::x) + dx))
            return node::x;
        if (!std::isfinite(Komboi(n, node::y) + dy))
            return node::y;
    }
    for (const int n : nodes) {
        Komboi(n, node::x) += dx;
        Komboi(n, node::y) += dy;
        Allagi_Montelou = true;
    }
    return 0;
}

std::optional<Place> middleOf(int a, int b)
{
    const Place middle{(Komboi(a, node::x) + Komboi(b, node::x)) * 0.5F,
                       (Komboi(a, node::y) + Komboi(b, node::y)) * 0.5F};
    return std::isfinite(middle.x) && std::isfinite(middle.y) ? std::optional(middle)
                                                              : std::nullopt;
}

void mergeNodes(int a, int b, std::optional<Place> place)
{
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (const int end : {element::nodeI, element::nodeJ})
            if (nodeOf(e, end) == b)
                Stoixeia(e, end) = static_cast<float>(a);
    if (place) {
        Komboi(a, node::x) = place->x;
        Komboi(a, node::y) = place->y;
    }
    Allagi_Montelou = true;
}

void divideElement(int e, int segments)
{
    const int i = nodeOf(e, element::nodeI), j = nodeOf(e, element::nodeJ);
    const double xi = Komboi(i, node::x), yi = Komboi(i, node::y);
    const double xj = Komboi(j, node::x), yj = Komboi(j, node::y);
    int last = e;
    for (int p = 1; p < segments; ++p) {
        const int n = addNode(static_cast<float>(xi + p * (xj - xi) / segments),
                              static_cast<float>(yi + p * (yj - yi) / segments));
        const int piece = addElement(n, j, groupOf(e));
        std::ranges::copy(elementalLoads(e), elementalLoads(piece).begin());
        Stoixeia(piece, element::hingeJ) = std::exchange(Stoixeia(last, element::hingeJ), 0.0F);
        Stoixeia(last, element::nodeJ) = static_cast<float>(n);
        last = piece;
    }
}

std::vector<NodePair> coincidentNodes(double tolerance)
{
    std::vector<NodePair> pairs;
    for (int i = 1; i <= Arithmos_Kombon; ++i)
        for (int j = i + 1; j <= Arithmos_Kombon; ++j) {
            const double dx = Komboi(i, node::x) - Komboi(j, node::x);
            const double dy = Komboi(i, node::y) - Komboi(j, node::y);
            if (const double distance = std::sqrt(dy * dy + dx * dx); distance <= tolerance)
                pairs.push_back({i, j, distance});
        }
    return pairs;
}

std::vector<ElementPair> coincidentElements()
{
    std::vector<ElementPair> pairs;
    for (int i = 1; i <= Arithmos_Stoixeion; ++i)
        for (int j = i + 1; j <= Arithmos_Stoixeion; ++j)
            if (joins(j, nodeOf(i, element::nodeI), nodeOf(i, element::nodeJ)))
                pairs.push_back({i, j});
    return pairs;
}

} // namespace veskora
