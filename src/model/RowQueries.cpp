#include "RowQueries.h"

#include "Metablites.h"
#include "ModelEdits.h"

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

int rowOf(float reference, int count)
{
    // Not a number fails the test as well.
    if (!(reference >= 1 && reference <= static_cast<float>(count)))
        return 0;
    // Rounding is a call, and every move of the mouse asks for both nodes of all elements.
    const int whole = static_cast<int>(reference);
    return static_cast<float>(whole) == reference ? whole
                                                  : static_cast<int>(std::nearbyint(reference));
}

int firstElement(auto holds)
{
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (holds(e))
            return e;
    return 0;
}

std::span<const float> restraints(int n)
{
    return Komboi.row(n).subspan(node::fixedX - 1, 3);
}

} // namespace

bool joins(int e, int a, int b)
{
    const int i = nodeOf(e, element::nodeI), j = nodeOf(e, element::nodeJ);
    return (i == a && j == b) || (i == b && j == a);
}

int nodeOf(int e, int end)
{
    return rowOf(Stoixeia(e, end), Arithmos_Kombon);
}

int groupOf(int e)
{
    return rowOf(Stoixeia(e, element::group), Arithmos_Omadon);
}

int elementAt(int n)
{
    return firstElement(
        [n](int e) { return nodeOf(e, element::nodeI) == n || nodeOf(e, element::nodeJ) == n; });
}

int elementBetween(int a, int b)
{
    return firstElement([a, b](int e) { return joins(e, a, b); });
}

int elementOfGroup(int g)
{
    return firstElement([g](int e) { return groupOf(e) == g; });
}

int groupToDraw()
{
    return drawnGroup <= Arithmos_Omadon ? drawnGroup : 1;
}

bool meetsOnlyHinges(int n)
{
    const auto isRigidAt = [n](int e) {
        return (nodeOf(e, element::nodeI) == n && Stoixeia(e, element::hingeI) != 1)
               || (nodeOf(e, element::nodeJ) == n && Stoixeia(e, element::hingeJ) != 1);
    };
    return elementAt(n) != 0 && firstElement(isRigidAt) == 0;
}

bool areJoined(int a, int b)
{
    return elementBetween(a, b) != 0;
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

std::string_view nextRestraint(std::string_view code)
{
    const auto *at = std::ranges::find(restraintRing, code);
    return at == restraintRing.end() || at + 1 == restraintRing.end() ? restraintRing.front()
                                                                      : *(at + 1);
}

std::string_view previousRestraint(std::string_view code)
{
    const auto *at = std::ranges::find(restraintRing, code);
    return at == restraintRing.begin() || at == restraintRing.end() ? restraintRing.back()
                                                                    : *(at - 1);
}

std::string restraintCode(bool x, bool y, bool rotation)
{
    std::string code;
    for (const bool restrained : {x, y, rotation})
        code += restrained ? 'x' : 'o';
    return code;
}

std::string restraintCode(int n)
{
    const auto cells = restraints(n);
    return restraintCode(cells[0] != 0, cells[1] != 0, cells[2] != 0);
}

std::string restraintText(int n)
{
    const std::string code = restraintCode(n);
    return code == restraintRing.front() ? "" : code;
}

bool areRestraintsValid(int n)
{
    return std::ranges::all_of(restraints(n), [](float cell) { return cell == 0 || cell == 1; });
}

bool isRestrainedNode(int n)
{
    return std::ranges::count(restraints(n), 1.0F) != 0;
}

bool hasSpring(int n, int k)
{
    return Elatiria(n, k) > 0;
}

bool hasSpring(int n)
{
    return hasSpring(n, 1) || hasSpring(n, 2) || hasSpring(n, 3);
}

double springForce(int n, int k)
{
    return -Elatiria(n, k) * Metatopiseis(freedomOf(n, k));
}

std::optional<double> reactionAt(int n, int k)
{
    if (hasSpring(n, k))
        return springForce(n, k);
    return Komboi(n, node::fixedX - 1 + k) == 1 ? std::optional(Antidraseis(n, k)) : std::nullopt;
}

std::span<float> nodalLoads(int n)
{
    return Komboi.row(n).subspan(node::Fx - 1, 3);
}

std::span<float> elementalLoads(int e)
{
    return Stoixeia.row(e).subspan(element::wx - 1, 2);
}

bool isLoaded(std::span<const float> loads)
{
    return std::ranges::any_of(loads, [](float load) { return load != 0; });
}

bool isLoadedNode(int n)
{
    return isLoaded(nodalLoads(n));
}

bool isLoadedElement(int e)
{
    return isLoaded(elementalLoads(e));
}

int countRows(int rows, bool (*holds)(int))
{
    int count = 0;
    for (int row = 1; row <= rows; ++row)
        count += holds(row) ? 1 : 0;
    return count;
}

std::vector<int> rowsWhere(int rows, const std::function<bool(int)> &holds)
{
    std::vector<int> result;
    for (int row = 1; row <= rows; ++row)
        if (holds(row))
            result.push_back(row);
    return result;
}

std::vector<int> elementsOfGroup(int g)
{
    return rowsWhere(Arithmos_Stoixeion, [g](int e) { return groupOf(e) == g; });
}

std::vector<int> nodesAtHeightOf(int n)
{
    constexpr auto noise = static_cast<float>(atOnePlace);
    return rowsWhere(Arithmos_Kombon, [y = Komboi(n, node::y)](int other) {
        return std::abs(Komboi(other, node::y) - y) <= noise;
    });
}

std::vector<int> nodesOfHinges()
{
    return rowsWhere(Arithmos_Kombon, [](int n) { return meetsOnlyHinges(n) && !hasSpring(n, 3); });
}

} // namespace veskora
