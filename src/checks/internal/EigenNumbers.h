#pragma once
/// @file
/// The matrix library, told of pairs of Doubles.

#include "DoubleDouble.h"

#include <Eigen/Dense>
#include <Eigen/Sparse>

template <>
struct Eigen::NumTraits<veskora::DoubleDouble> : GenericNumTraits<double>
{
    using Real = veskora::DoubleDouble;
    using NonInteger = veskora::DoubleDouble;
    using Nested = veskora::DoubleDouble;
    using Literal = veskora::DoubleDouble;
    enum { RequireInitialization = 1, AddCost = 20, MulCost = 25 };
};
