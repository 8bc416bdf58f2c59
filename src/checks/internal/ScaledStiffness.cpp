#include "ScaledStiffness.h"

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

constexpr Eigen::Index none = -1;

} // namespace

ScaledStiffness::ScaledStiffness() : members_(veskora::members<Extended>(Projections::exact))
{
    using std::abs, std::sqrt;
    const Eigen::Index all = 3 * Arithmos_Kombon;
    springs_.resize(all);
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            springs_(freedomOf(n, k) - 1) = Elatiria(n, k);

    // The largest entry of each row: the diagonal one, unless negative stiffnesses cancel there.
    const std::vector<std::size_t> free = freeFreedoms();
    std::vector<Eigen::Triplet<Extended>> entries;
    ExtendedVector diagonal = springs_, largest = springs_.cwiseAbs();
    for (const auto &member : members_) {
        const auto K = member.stiffness();
        const auto at = member.freedoms();
        for (std::size_t r = 0; r < 6; ++r)
            for (std::size_t c = 0; c < 6; ++c)
                if (K[r][c] != 0) {
                    const auto row = static_cast<Eigen::Index>(at[r]);
                    const auto column = static_cast<Eigen::Index>(at[c]);
                    entries.emplace_back(row, column, K[r][c]);
                    if (row == column)
                        diagonal(row) += K[r][c];
                    largest(row) = std::max(largest(row), Extended(abs(K[r][c])));
                }
    }

    scale_.setZero(all);
    std::vector<Eigen::Index> place(static_cast<std::size_t>(all), none);
    for (const std::size_t freedom : free) {
        const auto row = static_cast<Eigen::Index>(freedom);
        if (largest(row) == 0) {
            loose_.push_back(freedom);
            continue;
        }
        place[freedom] = size();
        freedoms_.push_back(freedom);
        scale_(row) = 1 / sqrt(diagonal(row) != 0 ? Extended(abs(diagonal(row))) : largest(row));
    }
    std::vector<Eigen::Triplet<Extended>> scaled;
    scaled.reserve(entries.size() + freedoms_.size());
    const auto add = [&](Eigen::Index row, Eigen::Index column, Extended value) {
        const Eigen::Index r = place[static_cast<std::size_t>(row)];
        const Eigen::Index c = place[static_cast<std::size_t>(column)];
        if (r != none && c != none)
            scaled.emplace_back(r, c, value * scale_(row) * scale_(column));
    };
    for (const auto &entry : entries)
        add(entry.row(), entry.col(), entry.value());
    for (Eigen::Index row = 0; row < all; ++row)
        add(row, row, springs_(row));
    matrix_.resize(size(), size());
    matrix_.setFromTriplets(scaled.begin(), scaled.end());
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
    for (const auto &member : members_) {
        const auto [elongation, atI, atJ] = member.strain(u);
        energy += member.axial * elongation * elongation + member.momentII * atI * atI
                  + 2 * member.momentIJ * atI * atJ + member.momentJJ * atJ * atJ;
    }
    return energy / scaled.cast<Extended>().squaredNorm();
}

} // namespace veskora
