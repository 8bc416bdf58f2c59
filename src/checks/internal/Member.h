#pragma once
/// @file
/// An element as the computations of this folder see it: by its three deformations, elongation and
/// the rotations of both ends against the chord. A rigid motion leaves them 0 by their form, not by
/// numbers that happen to cancel.
/// Source: R. K. Livesley, Matrix Methods of Structural Analysis, 2nd ed. (1975), ch. 3: K is the
/// sum of B^T k B.

#include "Metablites.h"
#include "RowQueries.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace veskora {

/// How the difference of two coordinates is taken: the analysis rounds it to a Single.
enum class Projections { exact, single };

/// @tparam Real  double, long double or `DoubleDouble`
template <typename Real>
struct Member
{
    int e, nodeI, nodeJ;
    Real length, c, s;                 ///< cosine and sine of its direction
    Real axial;                        ///< force for an elongation of 1
    Real bending;                      ///< E I / L
    Real momentII, momentIJ, momentJJ; ///< end moments for end rotations of 1 against the chord
    ElementType type;

    bool isRigidAtI() const { return type == ElementType::P2 || type == ElementType::hingeAtJ; }
    bool isRigidAtJ() const { return type == ElementType::P2 || type == ElementType::hingeAtI; }

    /// Numbers of its freedoms, x, y and rotation at i, then at j, from 0.
    std::array<std::size_t, 6> freedoms() const
    {
        std::array<std::size_t, 6> all{};
        for (int k = 1; k <= 3; ++k) {
            all[static_cast<std::size_t>(k - 1)] =
                static_cast<std::size_t>(freedomOf(nodeI, k) - 1);
            all[static_cast<std::size_t>(k + 2)] =
                static_cast<std::size_t>(freedomOf(nodeJ, k) - 1);
        }
        return all;
    }

    using Row = std::array<Real, 6>;
    /// B: the three deformations for displacements of 1, in global axes.
    std::array<Row, 3> deformations() const
    {
        const Real zero(0), one(1);
        const Real sl = s / length, cl = c / length; // the chord turns by (vj - vi) / L
        return {Row{-c, -s, zero, c, s, zero}, Row{-sl, cl, one, sl, -cl, zero},
                Row{-sl, cl, zero, sl, -cl, one}};
    }

    /// The three deformations under displacements @p u of all freedoms, in global axes.
    std::array<Real, 3> strain(const auto &u) const
    {
        const auto B = deformations();
        const auto at = freedoms();
        std::array<Real, 3> strain{};
        for (std::size_t d = 0; d < 3; ++d)
            for (std::size_t k = 0; k < 6; ++k)
                strain[d] += B[d][k] * u[static_cast<std::ptrdiff_t>(at[k])];
        return strain;
    }

    /// Twice the strain energy under displacements @p u of all freedoms.
    Real energy(const auto &u) const
    {
        const auto [elongation, atI, atJ] = strain(u);
        return axial * elongation * elongation + momentII * atI * atI
               + Real(2) * momentIJ * atI * atJ + momentJJ * atJ * atJ;
    }

    /// In global axes.
    std::array<Row, 6> stiffness() const
    {
        const auto B = deformations();
        std::array<Row, 6> K;
        for (std::size_t r = 0; r < 6; ++r) {
            const Real force = axial * B[0][r];
            const Real atI = momentII * B[1][r] + momentIJ * B[2][r];
            const Real atJ = momentIJ * B[1][r] + momentJJ * B[2][r];
            for (std::size_t column = 0; column < 6; ++column)
                K[r][column] = force * B[0][column] + atI * B[1][column] + atJ * B[2][column];
        }
        return K;
    }

    /// Forces or displacements of both ends, turned from local to global axes.
    Row inGlobalAxes(const Row &local) const
    {
        return {c * local[0] - s * local[1], s * local[0] + c * local[1], local[2],
                c * local[3] - s * local[4], s * local[3] + c * local[4], local[5]};
    }
};

/// Whether element @p e has two nodes apart from each other, and a group.
inline bool isUsable(int e)
{
    const int i = nodeOf(e, element::nodeI), j = nodeOf(e, element::nodeJ);
    return i != 0 && j != 0 && groupOf(e) != 0
           && (Komboi(i, node::x) != Komboi(j, node::x)
               || Komboi(i, node::y) != Komboi(j, node::y));
}

template <typename Real>
Member<Real> member(int e, Projections projections)
{
    using std::sqrt;
    Member<Real> m{};
    m.e = e;
    m.nodeI = nodeOf(e, element::nodeI);
    m.nodeJ = nodeOf(e, element::nodeJ);
    const auto projection = [&](int column) {
        const float i = Komboi(m.nodeI, column), j = Komboi(m.nodeJ, column);
        return projections == Projections::single
                   ? Real(static_cast<double>(j - i))
                   : Real(static_cast<double>(j)) - Real(static_cast<double>(i));
    };
    const Real dx = projection(node::x), dy = projection(node::y);
    m.length = sqrt(dx * dx + dy * dy);
    m.c = dx / m.length;
    m.s = dy / m.length;

    const int g = groupOf(e);
    const Real E(Omades(g, group::E));
    m.axial = E * Real(Omades(g, group::A)) / m.length;
    m.bending = E * Real(Omades(g, group::I)) / m.length;
    m.type = elementType(e);
    switch (m.type) {
    case ElementType::P2:
        m.momentII = m.momentJJ = Real(4) * m.bending;
        m.momentIJ = Real(2) * m.bending;
        break;
    case ElementType::hingeAtJ:
        m.momentII = Real(3) * m.bending;
        break;
    case ElementType::hingeAtI:
        m.momentJJ = Real(3) * m.bending;
        break;
    case ElementType::P1:
    case ElementType::none:
        break;
    }
    return m;
}

/// All usable elements.
template <typename Real>
std::vector<Member<Real>> members(Projections projections)
{
    std::vector<Member<Real>> all;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (isUsable(e))
            all.push_back(member<Real>(e, projections));
    return all;
}

/// The numbers from 0 of the freedoms that no support holds, in rising order.
inline std::vector<std::size_t> freeFreedoms()
{
    std::vector<std::size_t> all;
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            if (Komboi(n, node::fixedX - 1 + k) != 1)
                all.push_back(static_cast<std::size_t>(freedomOf(n, k) - 1));
    return all;
}

} // namespace veskora
