#include "Equilibrium.h"

#include "Member.h"
#include "Relative.h"

#include <algorithm>
#include <set>

namespace veskora {

namespace {

/// In global axes.
struct Force
{
    Extended x = 0, y = 0, moment = 0;
};

Extended resultant(const Force &force)
{
    using std::sqrt;
    return sqrt(force.x * force.x + force.y * force.y);
}

Extended moment(const Force &force)
{
    using std::abs;
    return abs(force.moment);
}

/// What is added to a sum of loads and reactions.
struct Total
{
    Extended loads = 0, reactions = 0, size = 0;

    void add(Extended &part, Extended value)
    {
        using std::abs;
        part += value;
        size += abs(value);
    }
    Equilibrium::Sum sum(Extended rest) const
    {
        const Extended imbalance = loads + reactions;
        return {static_cast<double>(loads), static_cast<double>(reactions),
                static_cast<double>(imbalance), relative(imbalance, size, rest)};
    }
};

class Whole
{
public:
    void add(Extended Total::*part, Extended x, Extended y, const Force &force)
    {
        x_.add(x_.*part, force.x);
        y_.add(y_.*part, force.y);
        for (const Extended &moment : {x * force.y, -y * force.x, force.moment})
            moment_.add(moment_.*part, moment);
    }
    void tell(Equilibrium &facts, Extended length) const
    {
        const Extended rest = std::max(x_.size + y_.size, moment_.size / length);
        facts.x = x_.sum(rest);
        facts.y = y_.sum(rest);
        facts.moment = moment_.sum(rest * length);
    }

private:
    Total x_, y_, moment_;
};

struct Joint
{
    Force sum;
    Extended largestForce = 0, largestMoment = 0; ///< of what meets there

    void add(const Force &force)
    {
        sum.x += force.x;
        sum.y += force.y;
        sum.moment += force.moment;
        largestForce = std::max(largestForce, resultant(force));
        largestMoment = std::max(largestMoment, moment(force));
    }
};

/// Where the most is left of what is measured by @p size.
Equilibrium::Node worst(const std::vector<Joint> &joints, Extended (*size)(const Force &),
                        Extended Joint::*largest, Extended rest)
{
    Equilibrium::Node found{};
    Extended most = 0;
    for (std::size_t n = 0; n < joints.size(); ++n)
        if (const Extended left = size(joints[n].sum); left > most) {
            most = left;
            found = {static_cast<int>(n) + 1, static_cast<double>(left),
                     relative(left, joints[n].*largest, rest)};
        }
    return found;
}

Force supportForce(int n)
{
    std::array<Extended, 3> force;
    for (int k = 1; k <= 3; ++k)
        force[static_cast<std::size_t>(k - 1)] =
            Komboi(n, node::fixedX - 1 + k) == 1 ? Antidraseis(n, k) : springForce(n, k);
    return {force[0], force[1], force[2]};
}

void addNodes(Whole &whole, std::vector<Joint> &joints)
{
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const Extended x = Komboi(n, node::x), y = Komboi(n, node::y);
        const Force load{Komboi(n, node::Fx), Komboi(n, node::Fy), Komboi(n, node::M)};
        const Force support = supportForce(n);
        whole.add(&Total::loads, x, y, load);
        whole.add(&Total::reactions, x, y, support);
        Joint &joint = joints[static_cast<std::size_t>(n - 1)];
        joint.add(load);
        joint.add(support);
    }
}

void addMember(const Member<Extended> &m, Whole &whole, std::vector<Joint> &joints)
{
    const auto middle = [&m](int column) {
        return (Extended(Komboi(m.nodeI, column)) + Extended(Komboi(m.nodeJ, column))) / 2;
    };
    whole.add(&Total::loads, middle(node::x), middle(node::y),
              {m.length * Stoixeia(m.e, element::wx), m.length * Stoixeia(m.e, element::wy), 0});

    Member<Extended>::Row onNodes;
    for (std::size_t r = 0; r < 6; ++r)
        onNodes[r] = -Entasi_Topiki(m.e, static_cast<int>(r) + 1);
    const auto end = m.inGlobalAxes(onNodes);
    joints[static_cast<std::size_t>(m.nodeI - 1)].add({end[0], end[1], end[2]});
    joints[static_cast<std::size_t>(m.nodeJ - 1)].add({end[3], end[4], end[5]});
}

} // namespace

Finding checkEquilibrium()
{
    const auto all = members<Extended>(Projections::single);
    Whole whole;
    std::vector<Joint> joints(static_cast<std::size_t>(Arithmos_Kombon));
    addNodes(whole, joints);
    for (const Member<Extended> &m : all)
        addMember(m, whole, joints);

    const Extended length = longest(all);
    Extended rest = 0;
    for (const Joint &joint : joints)
        rest = std::max({rest, joint.largestForce, joint.largestMoment / length});
    Equilibrium facts{};
    whole.tell(facts, length);
    facts.force = worst(joints, resultant, &Joint::largestForce, rest);
    facts.nodeMoment = worst(joints, moment, &Joint::largestMoment, rest * length);

    // Not a number is no small one.
    const auto tolerable = [](const auto &part) { return part.relative < tolerableImbalance; };
    const bool good = tolerable(facts.x) && tolerable(facts.y) && tolerable(facts.moment)
                      && tolerable(facts.force) && tolerable(facts.nodeMoment);
    std::set<int> nodes;
    for (const Equilibrium::Node &at : {facts.force, facts.nodeMoment})
        if (!tolerable(at))
            nodes.insert(at.node);
    const Severity severity = good ? Severity::good : Severity::warning;
    return {FindingKind::equilibrium, severity, {nodes.begin(), nodes.end()}, {}, {}, facts};
}

} // namespace veskora
