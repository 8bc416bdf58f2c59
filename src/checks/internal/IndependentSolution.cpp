#include "IndependentSolution.h"

#include "EigenNumbers.h"
#include "Member.h"

#include <algorithm>

namespace veskora {

namespace {

template <typename Real>
using Vector = Eigen::Matrix<Real, Eigen::Dynamic, 1>;
template <typename Real>
using Ends = std::array<Real, 6>;

/// The two end moments of a member whose rigid ends do not turn: those of a simple beam under the
/// load @p q across it bring its end rotations, q L^3 / 24 EI one way and the other, back to 0. The
/// flexibility is L / 3 EI at the end itself and -L / 6 EI at the other; EI cancels out.
template <typename Real>
std::array<Real, 2> clampingMoments(const Member<Real> &m, Real q)
{
    const Real L = m.length, rotation = q * L * L * L / Real(24);
    const Real own = L / Real(3), other = -L / Real(6), zero(0);
    switch (m.type) {
    case ElementType::P2:
        return {-rotation / (own - other), rotation / (own - other)};
    case ElementType::hingeAtJ:
        return {-rotation / own, zero};
    case ElementType::hingeAtI:
        return {zero, rotation / own};
    case ElementType::P1:
    case ElementType::none:
        break;
    }
    return {zero, zero};
}

/// Of a member under its load, in local axes.
/// @param strain  its three deformations
template <typename Real>
Ends<Real> endForces(const Member<Real> &m, const std::array<Real, 3> &strain)
{
    const auto &[elongation, turnI, turnJ] = strain;
    const Real wx(static_cast<double>(Stoixeia(m.e, element::wx)));
    const Real wy(static_cast<double>(Stoixeia(m.e, element::wy)));
    const Real q = m.c * wy - m.s * wx, half = m.length / Real(2);
    const Real along = (m.c * wx + m.s * wy) * half, across = q * half;
    const auto [clampI, clampJ] = clampingMoments(m, q);
    const Real tension = m.axial * elongation;
    const Real momentI = m.momentII * turnI + m.momentIJ * turnJ + clampI;
    const Real momentJ = m.momentIJ * turnI + m.momentJJ * turnJ + clampJ;
    const Real couple = (momentI + momentJ) / m.length;
    return {-tension - along, couple - across,  momentI, //
            tension - along,  -couple - across, momentJ};
}

template <typename Real>
Real nodalLoad(int freedom)
{
    const auto loads = nodalLoads(nodeOfFreedom(freedom));
    return Real(static_cast<double>(loads[static_cast<std::size_t>(componentOf(freedom) - 1)]));
}

/// Refined until it no longer changes; the last bits may swing, so not for ever. None where it
/// does not settle: then the equations have no single solution.
template <typename Real>
std::optional<Vector<Real>> solve(const Eigen::SparseMatrix<Real> &K, const Vector<Real> &load)
{
    const Eigen::SparseLU<Eigen::SparseMatrix<Real>> factors(K);
    if (factors.info() != Eigen::Success)
        return {};
    constexpr int mostSteps = 5;
    constexpr double settled = 1e-4;
    Vector<Real> u = factors.solve(load);
    Real change(0);
    for (int step = 0; step < mostSteps; ++step) {
        const Vector<Real> residual = load - K * u;
        const Vector<Real> better = u + factors.solve(residual);
        change = (better - u).cwiseAbs().maxCoeff();
        u = better;
        if (change == Real(0))
            break;
    }
    if (!(change <= Real(settled) * u.cwiseAbs().maxCoeff()))
        return {};
    return u;
}

/// The displacements of all freedoms.
template <typename Real>
std::optional<std::vector<Real>> displacementsOf(const std::vector<Member<Real>> &all)
{
    const std::vector<std::size_t> free = freeFreedoms();
    const auto size = static_cast<Eigen::Index>(free.size());
    std::vector<Eigen::Index> places(static_cast<std::size_t>(3 * Arithmos_Kombon), -1);
    for (std::size_t place = 0; place < free.size(); ++place)
        places[free[place]] = static_cast<Eigen::Index>(place);

    std::vector<Eigen::Triplet<Real, Eigen::Index>> entries;
    Vector<Real> load(size);
    for (std::size_t place = 0; place < free.size(); ++place) {
        const int freedom = static_cast<int>(free[place]) + 1;
        const float spring = Elatiria(nodeOfFreedom(freedom), componentOf(freedom));
        const auto at = static_cast<Eigen::Index>(place);
        entries.emplace_back(at, at, Real(static_cast<double>(spring)));
        load[at] = nodalLoad<Real>(freedom);
    }
    for (const Member<Real> &m : all) {
        const auto freedoms = m.freedoms();
        const auto K = m.stiffness();
        const Ends<Real> clamped = m.inGlobalAxes(endForces(m, std::array<Real, 3>{}));
        for (std::size_t r = 0; r < 6; ++r) {
            const Eigen::Index row = places[freedoms[r]];
            if (row < 0)
                continue;
            load[row] -= clamped[r];
            for (std::size_t c = 0; c < 6; ++c)
                if (const Eigen::Index column = places[freedoms[c]]; column >= 0)
                    entries.emplace_back(row, column, K[r][c]);
        }
    }
    Eigen::SparseMatrix<Real> K(size, size);
    K.setFromTriplets(entries.begin(), entries.end());

    const auto solution = solve(K, load);
    if (!solution)
        return {};
    std::vector<Real> displacements(places.size(), Real(0));
    for (std::size_t place = 0; place < free.size(); ++place)
        displacements[free[place]] = (*solution)[static_cast<Eigen::Index>(place)];
    return displacements;
}

template <typename Real>
bool areFinite(const auto &numbers)
{
    using std::isfinite;
    return std::all_of(numbers.begin(), numbers.end(),
                       [](const Real &number) { return isfinite(number); });
}

} // namespace

template <typename Real>
std::optional<IndependentSolution<Real>> solveIndependently()
{
    const std::vector<Member<Real>> all = members<Real>(Projections::single);
    if (all.size() != static_cast<std::size_t>(Arithmos_Stoixeion) || freeFreedoms().empty())
        return {};
    const auto displacements = displacementsOf(all);
    if (!displacements)
        return {};
    IndependentSolution<Real> solution{*displacements, {}, {}};
    auto &reactions = solution.reactions;
    for (int freedom = 1; freedom <= 3 * Arithmos_Kombon; ++freedom)
        reactions.push_back(-nodalLoad<Real>(freedom));
    for (const Member<Real> &m : all) {
        const Ends<Real> local = endForces(m, m.strain(solution.displacements.data()));
        const Ends<Real> global = m.inGlobalAxes(local);
        if (!areFinite<Real>(local))
            return {};
        solution.endForces.push_back(local);
        for (std::size_t r = 0; r < 6; ++r)
            reactions[m.freedoms()[r]] += global[r];
    }
    for (const std::size_t at : freeFreedoms())
        reactions[at] = Real(0);
    return solution;
}

template std::optional<IndependentSolution<long double>> solveIndependently();
template std::optional<IndependentSolution<DoubleDouble>> solveIndependently();

} // namespace veskora
