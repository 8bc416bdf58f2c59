#include "CorrectDigits.h"

#include "IndependentSolution.h"
#include "Member.h"
#include "Relative.h"

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

using std::abs;

/// The numbers of a table, held against right ones: those along the axes and those about them are
/// two kinds.
class Comparison
{
public:
    /// @param arm  what makes a number about an axis one along it
    explicit Comparison(Extended arm) : arm_(arm) {}

    /// @param k  component: 1 x, 2 y, 3 rotation
    void add(int k, double shown, Extended right)
    {
        Kind &kind = k == 3 ? about_ : along_;
        const Extended factor = k == 3 ? arm_ : Extended(1), found = Extended(shown) * factor;
        right *= factor;
        kind.difference = std::max(kind.difference, Extended(abs(found - right)));
        kind.largest = std::max({kind.largest, Extended(abs(found)), Extended(abs(right))});
        finite_ = finite_ && std::isfinite(shown);
    }

    bool isFinite() const { return finite_; }
    Extended largest() const { return std::max(along_.largest, about_.largest); }

    /// Relative, of the worse kind.
    double difference(Extended rest) const
    {
        return std::max(relative(along_.difference, along_.largest, rest),
                        relative(about_.difference, about_.largest, rest));
    }

private:
    struct Kind
    {
        Extended difference = 0, largest = 0;
    };
    Extended arm_;
    Kind along_, about_;
    bool finite_ = true;
};

/// A Double has 16 digits: 17 and 18 stand for equality, as of results that are 0 or whole.
int digitsOf(double difference)
{
    constexpr double most = 18;
    return difference == 0
               ? static_cast<int>(most)
               : static_cast<int>(std::clamp(std::floor(-std::log10(difference)), 0.0, most));
}

} // namespace

Finding checkDigits()
{
    const Finding unknown{FindingKind::digitsUnknown, Severity::note, {}, {}, {}, {}};
    const auto right = solveIndependently<Extended>();
    if (!right)
        return unknown;

    const Extended length = longest(members<Extended>(Projections::single));
    Comparison displacements(length), endForces(1 / length), reactions(1 / length),
        loads(1 / length);
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k) {
            const int freedom = freedomOf(n, k);
            const auto at = static_cast<std::size_t>(freedom - 1);
            const double load = Komboi(n, node::Fx - 1 + k);
            displacements.add(k, Metatopiseis(freedom), right->displacements[at]);
            loads.add(k, load, load);
            if (Komboi(n, node::fixedX - 1 + k) == 1)
                reactions.add(k, Antidraseis(n, k), right->reactions[at]);
        }
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (int r = 1; r <= 6; ++r)
            endForces.add(
                (r - 1) % 3 + 1, Entasi_Topiki(e, r),
                right->endForces[static_cast<std::size_t>(e - 1)][static_cast<std::size_t>(r - 1)]);
    if (!displacements.isFinite() || !endForces.isFinite() || !reactions.isFinite())
        return unknown;

    const Extended forces = std::max(endForces.largest(), loads.largest());
    const double u = displacements.difference(displacements.largest());
    const double f = endForces.difference(forces), r = reactions.difference(forces);
    const CorrectDigits digits{digitsOf(u), digitsOf(f), digitsOf(r), u, f, r};
    const bool enough = digitsOf(std::max({u, f, r})) >= enoughDigits;
    return {FindingKind::digits, enough ? Severity::good : Severity::warning, {}, {}, {}, digits};
}

} // namespace veskora
