#include "ModelSlips.h"

#include "Member.h"
#include "ModelEdits.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <set>
#include <utility>

namespace veskora {

namespace {

constexpr double farApart = 1e8;     ///< stiffnesses
constexpr double shortShare = 0.001; ///< of the model's diagonal

struct Point
{
    double x, y;
};

Point operator-(Point a, Point b)
{
    return {a.x - b.x, a.y - b.y};
}
double dot(Point a, Point b)
{
    return a.x * b.x + a.y * b.y;
}
double cross(Point a, Point b)
{
    return a.x * b.y - a.y * b.x;
}
double lengthOf(Point a)
{
    return std::hypot(a.x, a.y);
}

Point pointOf(int n)
{
    return {Komboi(n, node::x), Komboi(n, node::y)};
}

/// A usable element where it lies.
struct Segment
{
    int e, i, j;
    Point a, b;

    bool endsAt(int n) const { return n == i || n == j; }

    /// Whether the boxes around both come nearer than @p atOnePlace; most pairs are far apart.
    bool isNear(const Segment &other) const
    {
        const auto meet = [](double p, double q, double r, double s) {
            return std::min(p, q) <= std::max(r, s) + atOnePlace
                   && std::min(r, s) <= std::max(p, q) + atOnePlace;
        };
        return meet(a.x, b.x, other.a.x, other.b.x) && meet(a.y, b.y, other.a.y, other.b.y);
    }
    double distanceTo(Point p) const
    {
        const Point along = b - a;
        if (dot(p - a, along) <= 0)
            return lengthOf(p - a);
        return dot(p - b, along) >= 0 ? lengthOf(p - b)
                                      : std::abs(cross(along, p - a)) / lengthOf(along);
    }
    bool hasInside(Point p) const
    {
        return distanceTo(p) <= atOnePlace && lengthOf(p - a) > atOnePlace
               && lengthOf(p - b) > atOnePlace;
    }
    /// Whether @p p and @p q lie on either side of its line.
    bool parts(Point p, Point q) const
    {
        const double left = cross(b - a, p - a), right = cross(b - a, q - a);
        return (left < 0 && right > 0) || (left > 0 && right < 0);
    }
    bool isClearOf(const Segment &other) const
    {
        return distanceTo(other.a) > atOnePlace && distanceTo(other.b) > atOnePlace;
    }
};

std::vector<Segment> segments()
{
    std::vector<Segment> all;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (isUsable(e)) {
            const int i = nodeOf(e, element::nodeI), j = nodeOf(e, element::nodeJ);
            all.push_back({e, i, j, pointOf(i), pointOf(j)});
        }
    return all;
}

/// Elements that meet near an end of one of them are none: that node lies on the other, or beside
/// one of its ends.
bool doCross(const Segment &s, const Segment &t)
{
    return !s.endsAt(t.i) && !s.endsAt(t.j) && s.isNear(t) && s.parts(t.a, t.b) && t.parts(s.a, s.b)
           && s.isClearOf(t) && t.isClearOf(s);
}

std::vector<int> rowsOf(const Pairs &pairs, std::initializer_list<int RowPair::*> sides)
{
    std::set<int> rows;
    for (const RowPair &pair : pairs)
        for (const auto side : sides)
            rows.insert(pair.*side);
    return {rows.begin(), rows.end()};
}

bool hasLoadOnSupport(int n)
{
    const auto loads = nodalLoads(n);
    for (int k = 0; k < 3; ++k)
        if (loads[static_cast<std::size_t>(k)] != 0 && Komboi(n, node::fixedX + k) == 1)
            return true;
    return false;
}

bool isRotationHeldAlone(int n)
{
    if (restraintCode(n) != restraintCode(false, false, true) || hasSpring(n, 1) || hasSpring(n, 2))
        return false;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if ((nodeOf(e, element::nodeI) == n && Stoixeia(e, element::hingeI) == 0)
            || (nodeOf(e, element::nodeJ) == n && Stoixeia(e, element::hingeJ) == 0))
            return true;
    return false;
}

Pairs nodesOn(const std::vector<Segment> &all)
{
    Pairs pairs;
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const Point p = pointOf(n);
        const Segment place{0, n, n, p, p};
        for (const Segment &s : all)
            if (!s.endsAt(n) && s.isNear(place) && s.hasInside(p))
                pairs.push_back({n, s.e});
    }
    return pairs;
}

Pairs crossingsOf(const std::vector<Segment> &all)
{
    Pairs pairs;
    for (auto s = all.begin(); s != all.end(); ++s)
        for (auto t = s + 1; t != all.end(); ++t)
            if (doCross(*s, *t))
                pairs.push_back({s->e, t->e});
    return pairs;
}

Pairs pairsOfNodes()
{
    Pairs pairs;
    for (const auto &[i, j, distance] : coincidentNodes(atOnePlace))
        pairs.push_back({i, j});
    return pairs;
}

Pairs pairsOfElements()
{
    Pairs pairs;
    for (const auto &[i, j] : coincidentElements())
        if (isUsable(i) && isUsable(j))
            pairs.push_back({i, j});
    return pairs;
}

/// Like is held against like; told is the wider range, where one is too wide.
Finding rangeOfStiffness(const std::vector<Segment> &all)
{
    using Sizes = std::vector<std::pair<double, int>>; // with their elements
    Sizes axial, bending;
    const auto keep = [](Sizes &sizes, double stiffness, int e) {
        if (stiffness != 0)
            sizes.emplace_back(std::abs(stiffness), e);
    };
    for (const Segment &s : all) {
        const Member<double> m = member<double>(s.e, Projections::exact);
        keep(axial, m.axial, s.e);
        if (m.isRigidAtI() || m.isRigidAtJ())
            keep(bending, m.bending, s.e);
    }
    double widest = farApart;
    std::vector<int> elements;
    for (const Sizes *sizes : {&axial, &bending})
        if (const auto [soft, stiff] = std::minmax_element(sizes->begin(), sizes->end());
            soft != sizes->end() && stiff->first / soft->first > widest) {
            widest = stiff->first / soft->first;
            elements = {std::min(soft->second, stiff->second),
                        std::max(soft->second, stiff->second)};
        }
    return {FindingKind::stiffnessRange, Severity::warning, {}, elements, {}, widest};
}

std::vector<int> elementsTooShort(const std::vector<Segment> &all)
{
    if (all.empty())
        return {};
    Point low = all.front().a, high = low;
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const Point p = pointOf(n);
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    std::vector<int> found;
    for (const Segment &s : all)
        if (lengthOf(s.b - s.a) < shortShare * lengthOf(high - low))
            found.push_back(s.e);
    return found;
}

Finding ofNodes(FindingKind kind, Severity severity, const std::vector<int> &rows)
{
    return {kind, severity, rows, {}, {}, {}};
}

Finding ofElements(FindingKind kind, Severity severity, const std::vector<int> &rows)
{
    return {kind, severity, {}, rows, {}, {}};
}

Finding ofPairs(Finding finding, const Pairs &pairs)
{
    finding.facts = pairs;
    return finding;
}

} // namespace

std::vector<Finding> findSlips()
{
    using enum FindingKind;
    using enum Severity;
    const auto first = &RowPair::first, second = &RowPair::second;
    const std::vector<Segment> all = segments();
    const Pairs onElements = nodesOn(all), crossing = crossingsOf(all);
    const Pairs sameNodes = pairsOfNodes(), sameElements = pairsOfElements();
    const auto broken = rowsWhere(Arithmos_Stoixeion, [](int e) { return !isUsable(e); });
    const auto lone = rowsWhere(Arithmos_Kombon, [](int n) { return elementAt(n) == 0; });
    const auto unused = rowsWhere(Arithmos_Omadon, [](int g) { return elementOfGroup(g) == 0; });
    std::vector<Finding> findings = {
        ofElements(brokenElements, fault, broken),
        ofNodes(nodesWithoutElement, warning, lone),
        {nodesOnElements,
         warning,
         rowsOf(onElements, {first}),
         rowsOf(onElements, {second}),
         {},
         onElements},
        ofPairs(ofElements(crossings, note, rowsOf(crossing, {first, second})), crossing),
        ofPairs(ofNodes(coincidentNodes, warning, rowsOf(sameNodes, {first, second})), sameNodes),
        ofPairs(ofElements(coincidentElements, warning, rowsOf(sameElements, {first, second})),
                sameElements),
        ofNodes(loadsOnSupports, note, rowsWhere(Arithmos_Kombon, hasLoadOnSupport)),
        ofNodes(rotationsHeldAlone, note, rowsWhere(Arithmos_Kombon, isRotationHeldAlone)),
        {unusedGroups, note, {}, {}, unused, {}},
        rangeOfStiffness(all),
        ofElements(shortElements, warning, elementsTooShort(all))};
    std::erase_if(findings, [](const Finding &finding) {
        return finding.nodes.empty() && finding.elements.empty() && finding.groups.empty();
    });
    if (findings.empty())
        findings.push_back({noSlips, good, {}, {}, {}, {}});
    return findings;
}

} // namespace veskora
