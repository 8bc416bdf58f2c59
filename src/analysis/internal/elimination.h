#pragma once
/// @file
/// Gauss elimination of a symmetric system without pivoting.

#include "Metablites.h"

#include <span>

namespace veskora {

/// Solves A x = b over the first n rows and columns, n the size of @p b and @p x.
///
/// Only the upper triangle of A is read and written; it and @p b are destroyed. The numbers are
/// those of the plain loops, to the last bit:
///
///     for k = 1 .. n-1, for i = k+1 .. n, unless A(k,i) is exactly 0:
///         for j = i .. n:  A(i,j) = A(i,j) - (A(k,i) / A(k,k)) * A(k,j)
///         b(i) = b(i) - (A(k,i) / A(k,k)) * b(k)
///     x(n) = b(n) / A(n,n);  for k = n-1 .. 1:
///         x(k) = (b(k) - (x(k+1) A(k,k+1) + ... + x(n) A(k,n))) / A(k,k)
///
/// There is no pivot search: A need not be positive definite, and a small pivot passes.
/// Faults: n = 0, a divisor that is exactly 0, a number that is infinite or not a number. When it
/// faults, what @p A, @p b and @p x hold is of no use, but for the rows of @p A down to the first
/// that brought the fault: they are as the loops leave them, each with its pivot on the diagonal.
/// Source: W. McGuire, R. H. Gallagher, R. D. Ziemian, Matrix Structural Analysis, 2nd ed., ch. 11.
void solveSymmetric(PinakasErgasias<maxDofs, maxDofs + 1> &A, std::span<double> b,
                    std::span<double> x);

} // namespace veskora
