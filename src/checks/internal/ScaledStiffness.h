#pragma once
/// @file
/// The stiffness of the free freedoms, scaled to a unit diagonal.

#include "EigenNumbers.h"
#include "Member.h"

#include <Eigen/Sparse>

#include <cstddef>
#include <span>
#include <vector>

namespace veskora {

using ExtendedVector = Eigen::Matrix<Extended, Eigen::Dynamic, 1>;

/// The last place of the Singles that the coordinates of a member's ends are held in.
Extended coordinateRounding(const Member<Extended> &member);

/// Coordinates are taken as exact as they stand: rounded projections would give a loop of elements
/// a small resistance to what moves it freely.
class ScaledStiffness
{
public:
    ScaledStiffness();

    /// Freedoms, from 0, that no stiffness at all meets.
    const std::vector<std::size_t> &loose() const { return loose_; }
    /// The others, rows and columns of the matrix in this order.
    const std::vector<std::size_t> &freedoms() const { return freedoms_; }
    Eigen::Index size() const { return static_cast<Eigen::Index>(freedoms_.size()); }
    const Eigen::SparseMatrix<Extended> &matrix() const { return matrix_; }
    const std::vector<Member<Extended>> &members() const { return members_; }

    /// The displacements of all freedoms, model axes, for a scaled vector.
    ExtendedVector displacements(const Eigen::VectorXd &scaled) const;
    /// The Rayleigh quotient of a scaled vector, from the strain of members and springs: for a
    /// rigid motion nothing cancels there.
    Extended quotient(const Eigen::VectorXd &scaled) const;
    /// Whether the members are strained by no more than the rounding of their coordinates may do,
    /// and no spring is.
    bool isStrainedByRounding(const Eigen::VectorXd &scaled) const;

private:
    std::vector<std::size_t> loose_, freedoms_;
    std::vector<Member<Extended>> members_;
    ExtendedVector springs_; ///< of all freedoms
    ExtendedVector scale_;   ///< displacement for a scaled 1
    Eigen::SparseMatrix<Extended> matrix_;
};

} // namespace veskora
