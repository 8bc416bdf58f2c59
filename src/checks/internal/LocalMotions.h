#pragma once
/// @file
/// A space of motions, taken apart into motions that are as local as they can be.

#include <Eigen/Dense>

#include <cstddef>
#include <vector>

namespace veskora {

/// @param space  orthonormal columns, one row for each of @p freedoms
/// @param freedoms  from 0, in rising order
/// @return a basis of the same space: what moves one node alone first, then the smallest groups
std::vector<Eigen::VectorXd> localMotions(const Eigen::MatrixXd &space,
                                          const std::vector<std::size_t> &freedoms);

} // namespace veskora
