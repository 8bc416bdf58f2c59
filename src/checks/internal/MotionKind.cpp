#include "MotionKind.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace veskora {

namespace {

using Members = std::vector<Member<Extended>>;

/// Beside the largest displacement, 1, smaller ones are none.
constexpr double still = 1e-6;

class Description
{
public:
    Description(FindingKind kind, const ExtendedVector &displacements, const Members &members)
        : kind_(kind), members_(members)
    {
        normalise(displacements);
        collectMoves();
    }

    Finding finding()
    {
        setShape();
        setCause();
        for (const Motion::Move &move : motion_.moves)
            nodes_.insert(move.node);
        const auto rows = [](const std::set<int> &set) {
            return std::vector<int>(set.begin(), set.end());
        };
        const Severity severity =
            kind_ == FindingKind::nearlyFree ? Severity::warning : Severity::fault;
        return {kind_, severity, rows(nodes_), rows(elements_), rows(groups_), motion_};
    }

private:
    double at(int n, int k) const
    {
        return motion_.displacements[static_cast<std::size_t>(freedomOf(n, k) - 1)];
    }
    double rotation(int n) const { return at(n, 3); }
    double translation(int n) const { return std::hypot(at(n, 1), at(n, 2)); }
    bool moves(int n) const { return translation(n) > still; }
    /// Rotations count by what they move at a member's length.
    bool turns(int n) const { return std::abs(rotation(n)) * length_ > still; }

    void normalise(const ExtendedVector &given)
    {
        using std::abs, std::sqrt;
        Extended along = 0, turned = 0;
        for (int n = 1; n <= Arithmos_Kombon; ++n) {
            const Extended x = given(freedomOf(n, 1) - 1), y = given(freedomOf(n, 2) - 1);
            along = std::max(along, Extended(sqrt(x * x + y * y)));
            turned = std::max(turned, Extended(abs(given(freedomOf(n, 3) - 1))));
        }
        Extended length = 0;
        for (const auto &member : members_)
            length += member.length;
        if (!members_.empty())
            length_ = static_cast<double>(length) / static_cast<double>(members_.size());
        const bool onlyTurns = along <= still * turned * length_;
        if (onlyTurns)
            length_ = 1;
        const Extended unit = onlyTurns ? turned : along;
        for (const Extended displacement : given)
            motion_.displacements.push_back(static_cast<double>(displacement / unit));
    }

    void collectMoves()
    {
        using Way = Motion::Way;
        for (int n = 1; n <= Arithmos_Kombon; ++n)
            if (moves(n)) {
                const double x = std::abs(at(n, 1)), y = std::abs(at(n, 2));
                const double limit = still * translation(n);
                motion_.moves.push_back({n, y <= limit   ? Way::alongX
                                            : x <= limit ? Way::alongY
                                                         : Way::oblique});
            } else if (turns(n)) {
                motion_.moves.push_back({n, Way::turns});
            }
        std::stable_sort(motion_.moves.begin(), motion_.moves.end(),
                         [this](const auto &a, const auto &b) {
                             // What noise makes of equal ones must not order them.
                             return size(a) > size(b) * (1 + still);
                         });
    }
    double size(const Motion::Move &move) const
    {
        constexpr double behind = 1e-9; // who moves comes before who only turns
        return move.way == Motion::Way::turns ? behind * std::abs(rotation(move.node))
                                              : translation(move.node);
    }

    // ---------------------------------------------------------------------------------- the shape

    void setShape()
    {
        using enum Motion::Shape;
        std::vector<int> moving;
        for (const Motion::Move &move : motion_.moves)
            moving.push_back(move.node);
        if (!moves(moving.front()))
            motion_.shape = moving.size() == 1 ? turning : linkage;
        else if (moving.size() == 1 && setTurn(withNeighbours(moving)))
            motion_.shape = turn;
        else if (setShift(moving))
            motion_.shape = shift;
        else if (setTurn(moving))
            motion_.shape = turn;
        else
            motion_.shape = linkage;
    }

    bool setShift(const std::vector<int> &moving)
    {
        const double dx = at(moving.front(), 1), dy = at(moving.front(), 2);
        for (const int n : moving)
            if (std::hypot(at(n, 1) - dx, at(n, 2) - dy) > still || turns(n))
                return false;
        const double length = std::hypot(dx, dy);
        const double sign = dx < -still * length || (dx < still * length && dy < 0) ? -1 : 1;
        motion_.x = sign * dx / length + 0.0; // no -0
        motion_.y = sign * dy / length + 0.0;
        return true;
    }

    std::vector<int> withNeighbours(const std::vector<int> &moving) const
    {
        std::set<int> all(moving.begin(), moving.end());
        for (const auto &member : members_)
            if (moves(member.nodeI) || moves(member.nodeJ))
                all.insert({member.nodeI, member.nodeJ});
        return {all.begin(), all.end()};
    }

    /// ux = a - theta y, uy = b + theta x by least squares about the middle of the nodes.
    bool setTurn(const std::vector<int> &body)
    {
        const auto count = static_cast<double>(body.size());
        const auto mean = [&](auto value) {
            double sum = 0;
            for (const int n : body)
                sum += value(n);
            return sum / count;
        };
        const double x = mean([](int n) { return Komboi(n, node::x); });
        const double y = mean([](int n) { return Komboi(n, node::y); });
        const double ux = mean([this](int n) { return at(n, 1); });
        const double uy = mean([this](int n) { return at(n, 2); });
        double moment = 0, inertia = 0;
        for (const int n : body) {
            const double rx = Komboi(n, node::x) - x, ry = Komboi(n, node::y) - y;
            moment += rx * (at(n, 2) - uy) - ry * (at(n, 1) - ux);
            inertia += rx * rx + ry * ry;
        }
        const double theta = inertia > 0 ? moment / inertia : 0;
        if (std::abs(theta) * std::sqrt(inertia) <= still)
            return false;
        for (const int n : body) {
            const double rx = Komboi(n, node::x) - x, ry = Komboi(n, node::y) - y;
            constexpr double loose = 10 * still;
            if (std::abs(at(n, 1) - (ux - theta * ry)) > loose
                || std::abs(at(n, 2) - (uy + theta * rx)) > loose
                || (turns(n) && std::abs(rotation(n) - theta) * length_ > loose))
                return false;
        }
        motion_.x = x - uy / theta;
        motion_.y = y + ux / theta;
        for (int n = 1; n <= Arithmos_Kombon && motion_.centre == 0; ++n)
            if (isCentre(n)) {
                motion_.centre = n;
                motion_.x = Komboi(n, node::x);
                motion_.y = Komboi(n, node::y);
            }
        return true;
    }

    bool isCentre(int n) const
    {
        return std::hypot(Komboi(n, node::x) - motion_.x, Komboi(n, node::y) - motion_.y)
               <= still * length_;
    }

    // ---------------------------------------------------------------------------------- the cause

    void setCause()
    {
        using enum Motion::Cause;
        const auto &moved = motion_.moves;
        if (std::all_of(moved.begin(), moved.end(),
                        [](const auto &move) { return elementAt(move.node) == 0; })
            && kind_ != FindingKind::unstable) {
            motion_.cause = noElement;
            return;
        }
        collectStrained([](const auto &stiffness) { return stiffness == 0; });
        if (!groups_.empty()) {
            motion_.cause = noStiffness;
            return;
        }
        collectStrained([](const auto &stiffness) { return stiffness < 0; });
        collectSprings([](float stiffness) { return stiffness < 0; });
        if (kind_ == FindingKind::unstable || !groups_.empty() || !motion_.springs.empty()) {
            motion_.cause = negative;
            return;
        }
        if (motion_.shape == Motion::Shape::turning && kind_ == FindingKind::freeMotion) {
            motion_.cause = onlyHinges;
            return;
        }
        const bool whole = isWhole();
        for (const auto &member : members_)
            if (turnsInHinge(member) && (!whole || isHingedToSupport(member)))
                elements_.insert(member.e);
        collectSprings([](float stiffness) { return stiffness > 0; });
        if (!elements_.empty())
            motion_.cause = hinges;
        else if (whole && motion_.springs.empty() && kind_ == FindingKind::freeMotion)
            motion_.cause = noSupport;
        else {
            motion_.cause = softness;
            collectResisting();
        }
    }

    bool isStrained(Extended strain) const { return std::abs(static_cast<double>(strain)) > still; }

    /// Elements that are strained where their stiffness is so, and their groups.
    void collectStrained(auto isSo)
    {
        const auto &u = motion_.displacements;
        for (const auto &member : members_) {
            const auto [elongation, atI, atJ] = member.strain(u.data());
            const auto L = static_cast<Extended>(length_);
            const Extended bending = member.bending;
            const bool bends = (isStrained(atI * L) && member.isRigidAtI())
                               || (isStrained(atJ * L) && member.isRigidAtJ());
            if ((isStrained(elongation) && isSo(member.axial)) || (bends && isSo(bending))) {
                elements_.insert(member.e);
                groups_.insert(groupOf(member.e));
            }
        }
    }

    /// Nodes whose springs are so and stretched.
    void collectSprings(auto isSo)
    {
        motion_.springs.clear();
        for (int n = 1; n <= Arithmos_Kombon; ++n)
            if ((isSo(Elatiria(n, 1)) && std::abs(at(n, 1)) > still)
                || (isSo(Elatiria(n, 2)) && std::abs(at(n, 2)) > still)
                || (isSo(Elatiria(n, 3)) && turns(n)))
                motion_.springs.push_back(n);
    }

    /// The elements that have a share in what resists the motion.
    void collectResisting()
    {
        std::vector<double> works;
        double most = 0;
        for (const int n : motion_.springs)
            for (int k = 1; k <= 3; ++k)
                most = std::max(most, std::abs(Elatiria(n, k) * at(n, k) * at(n, k)));
        for (const auto &member : members_) {
            works.push_back(
                std::abs(static_cast<double>(member.energy(motion_.displacements.data()))));
            most = std::max(most, works.back());
        }
        constexpr double share = 0.1;
        for (std::size_t m = 0; m < members_.size(); ++m)
            if (works[m] > share * most) {
                elements_.insert(members_[m].e);
                groups_.insert(groupOf(members_[m].e));
            }
    }

    /// Whether all that hangs together with what moves does so as one, but for a node that it turns
    /// about.
    bool isWhole() const
    {
        if (motion_.shape != Motion::Shape::shift && motion_.shape != Motion::Shape::turn)
            return false;
        const auto standsStill = [this](int n) {
            return !moves(n) && (motion_.shape == Motion::Shape::shift || !isCentre(n));
        };
        std::vector<int> part(static_cast<std::size_t>(Arithmos_Kombon) + 1);
        std::iota(part.begin(), part.end(), 0);
        const auto root = [&](int n) {
            while (part[static_cast<std::size_t>(n)] != n)
                n = part[static_cast<std::size_t>(n)];
            return n;
        };
        for (const auto &member : members_)
            part[static_cast<std::size_t>(root(member.nodeI))] = root(member.nodeJ);
        std::set<int> moving;
        for (const Motion::Move &move : motion_.moves)
            moving.insert(root(move.node));
        for (int n = 1; n <= Arithmos_Kombon; ++n)
            if (moving.contains(root(n)) && standsStill(n))
                return false;
        return true;
    }

    /// Whether the member is hinged to the node that all turns about, and that node is clamped:
    /// then it is the hinge that lets it turn. The bars of a truss are hinged to any support.
    bool isHingedToSupport(const Member<Extended> &member) const
    {
        const int n = motion_.centre;
        if (n == 0 || Komboi(n, node::fixedRotation) != 1)
            return false;
        const bool isRod = !member.isRigidAtI() && !member.isRigidAtJ();
        const auto others = std::count_if(members_.begin(), members_.end(), [n](const auto &other) {
            return other.nodeI == n || other.nodeJ == n;
        });
        return (member.nodeI == n || member.nodeJ == n) && (!isRod || others == 1);
    }

    /// Whether a hinged end turns otherwise than its node.
    bool turnsInHinge(const Member<Extended> &member) const
    {
        const auto [elongation, atI, atJ] = member.strain(motion_.displacements.data());
        const auto L = static_cast<Extended>(length_);
        // With a free end the moment there is 0: it follows the other by half, or the chord.
        const Extended freeI = member.isRigidAtJ() ? -atJ / 2 : 0;
        const Extended freeJ = member.isRigidAtI() ? -atI / 2 : 0;
        return (!member.isRigidAtI() && isStrained((atI - freeI) * L))
               || (!member.isRigidAtJ() && isStrained((atJ - freeJ) * L));
    }

    FindingKind kind_;
    const Members &members_;
    Motion motion_;
    double length_ = 1; ///< of a member, on average
    std::set<int> nodes_, elements_, groups_;
};

} // namespace

Finding describedMotion(FindingKind kind, const ExtendedVector &displacements,
                        const Members &members)
{
    return Description(kind, displacements, members).finding();
}

} // namespace veskora
