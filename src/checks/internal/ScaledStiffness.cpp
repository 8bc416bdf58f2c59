#include "ScaledStiffness.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veskora {

namespace {

constexpr Eigen::Index none = -1;

using Entry = Eigen::Triplet<Extended, Eigen::Index>;

} // namespace

ScaledStiffness::ScaledStiffness() : members_(veskora::members<Extended>(Projections::exact))
{
    using std::abs, std::sqrt;
    const Eigen::Index all = 3 * Arithmos_Kombon;
    springs_.resize(all);
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            springs_(freedomOf(n, k) - 1) = Elatiria(n, k);

    const std::vector<std::size_t> free = freeFreedoms();
    std::vector<Entry> entries;
    entries.reserve(36 * members_.size() + static_cast<std::size_t>(all));
    ExtendedVector diagonal = springs_, parts = springs_.cwiseAbs(); // what adds up to it, unsigned
    for (const auto &member : members_) {
        const auto K = member.stiffness();
        const auto at = member.freedoms();
        for (std::size_t r = 0; r < 6; ++r)
            for (std::size_t c = 0; c < 6; ++c)
                if (K[r][c] != 0) {
                    const auto row = static_cast<Eigen::Index>(at[r]);
                    const auto column = static_cast<Eigen::Index>(at[c]);
                    entries.emplace_back(row, column, K[r][c]);
                    if (row == column) {
                        diagonal(row) += K[r][c];
                        parts(row) += abs(K[r][c]);
                    }
                }
    }

    scale_.setZero(all);
    std::vector<Eigen::Index> place(static_cast<std::size_t>(all), none);
    for (const std::size_t freedom : free) {
        const auto row = static_cast<Eigen::Index>(freedom);
        if (parts(row) == 0) {
            loose_.push_back(freedom);
            continue;
        }
        place[freedom] = size();
        freedoms_.push_back(freedom);
        // Where negative stiffnesses cancel, the rest is rounding and no scale.
        const Extended size = abs(diagonal(row)), cancelled = parts(row) * Extended(1e-12);
        scale_(row) = 1 / sqrt(size > cancelled ? size : parts(row));
    }
    for (Eigen::Index row = 0; row < all; ++row)
        entries.emplace_back(row, row, springs_(row));
    const auto scaled = [&](const Entry &entry) {
        return Entry(place[static_cast<std::size_t>(entry.row())],
                     place[static_cast<std::size_t>(entry.col())],
                     entry.value() * scale_(entry.row()) * scale_(entry.col()));
    };
    const auto isOut = [](const auto &entry) { return entry.row() == none || entry.col() == none; };
    std::ranges::transform(entries, entries.begin(), scaled);
    std::erase_if(entries, isOut);
    matrix_.resize(size(), size());
    matrix_.setFromTriplets(entries.begin(), entries.end());
}

ExtendedVector ScaledStiffness::displacements(const Eigen::VectorXd &scaled) const
{
    ExtendedVector u = ExtendedVector::Zero(springs_.size());
    for (Eigen::Index row = 0; row < size(); ++row) {
        const auto freedom = static_cast<Eigen::Index>(freedoms_[static_cast<std::size_t>(row)]);
        u(freedom) = scale_(freedom) * static_cast<Extended>(scaled(row));
    }
    return u;
}

Extended ScaledStiffness::quotient(const Eigen::VectorXd &scaled) const
{
    const ExtendedVector u = displacements(scaled);
    Extended energy = (springs_.array() * u.array() * u.array()).sum();
    for (const auto &member : members_)
        energy += member.energy(u.data());
    return energy / scaled.cast<Extended>().squaredNorm();
}

Extended coordinateRounding(const Member<Extended> &member)
{
    float largest = 0;
    for (const int n : {member.nodeI, member.nodeJ})
        for (const int column : {node::x, node::y})
            largest = std::max(largest, std::abs(Komboi(n, column)));
    return Extended(static_cast<double>(largest) * std::numeric_limits<float>::epsilon());
}

bool ScaledStiffness::isStrainedByRounding(const Eigen::VectorXd &scaled) const
{
    using std::abs, std::sqrt;
    const ExtendedVector u = displacements(scaled);
    const Extended least = u.cwiseAbs().maxCoeff() * Extended(1e-6);
    for (Eigen::Index freedom = 0; freedom < u.size(); ++freedom)
        if (springs_(freedom) != 0 && abs(u(freedom)) > least)
            return false;
    return std::all_of(members_.begin(), members_.end(), [&u](const auto &member) {
        const Extended x = u(freedomOf(member.nodeJ, 1) - 1) - u(freedomOf(member.nodeI, 1) - 1);
        const Extended y = u(freedomOf(member.nodeJ, 2) - 1) - u(freedomOf(member.nodeI, 2) - 1);
        // A rounded end turns the member, and so much of what its ends move strains it.
        const Extended limit = 2 * coordinateRounding(member) / member.length * sqrt(x * x + y * y);
        const auto [elongation, atI, atJ] = member.strain(u.data());
        const auto isSmall = [&](const Extended &way) { return abs(way) <= limit; };
        return isSmall(elongation) && (!member.isRigidAtI() || isSmall(atI * member.length))
               && (!member.isRigidAtJ() || isSmall(atJ * member.length));
    });
}

} // namespace veskora
