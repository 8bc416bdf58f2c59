// Stiffness of one element, assembly, permutation and partition.

#include "element.h"
#include "epilisi.h"
#include "RowQueries.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace veskora {

void Ipologismos_T(int e)
{
    const auto [length, c, s] = elementGeometry(e);
    T_Pinakas.clear();
    for (const int end : {0, 3}) {
        T_Pinakas(end + 1, end + 1) = c;
        T_Pinakas(end + 1, end + 2) = s;
        T_Pinakas(end + 2, end + 1) = -s;
        T_Pinakas(end + 2, end + 2) = c;
        T_Pinakas(end + 3, end + 3) = 1;
    }
    for (int row = 1; row <= 6; ++row)
        for (int column = 1; column <= 6; ++column)
            T_Anastrofos(column, row) = T_Pinakas(row, column);
}

void Ipologismos_K_Topiko(int e)
{
    const int g = elementGroup(e);
    const double E = Omades(g, group::E);
    const double A = Omades(g, group::A);
    const double I = Omades(g, group::I);
    const double L = elementGeometry(e).length;
    const double L2 = L * L;
    const double L3 = L * L * L;

    K_Topiko.clear();
    const auto set = [](int row, int column, double value) {
        K_Topiko(row, column) = value;
        K_Topiko(column, row) = value;
    };
    set(1, 1, A * E / L);
    set(1, 4, -1 * A * E / L);
    set(4, 4, A * E / L);

    switch (elementType(e)) {
    case ElementType::P2:
        set(2, 2, 12 * E * I / L3);
        set(2, 3, 6 * E * I / L2);
        set(2, 5, -12 * E * I / L3);
        set(2, 6, 6 * E * I / L2);
        set(3, 3, 4 * E * I / L);
        set(3, 5, -6 * E * I / L2);
        set(3, 6, 2 * E * I / L);
        set(5, 5, 12 * E * I / L3);
        set(5, 6, -6 * E * I / L2);
        set(6, 6, 4 * E * I / L);
        break;
    case ElementType::hingeAtJ:
        set(2, 2, 3 * E * I / L3);
        set(2, 3, 3 * E * I / L2);
        set(2, 5, -3 * E * I / L3);
        set(3, 3, 3 * E * I / L);
        set(3, 5, -3 * E * I / L2);
        set(5, 5, 3 * E * I / L3);
        break;
    case ElementType::hingeAtI:
        set(2, 2, 3 * E * I / L3);
        set(2, 5, -3 * E * I / L3);
        set(2, 6, 3 * E * I / L2);
        set(5, 5, 3 * E * I / L3);
        set(5, 6, -3 * E * I / L2);
        set(6, 6, 3 * E * I / L);
        break;
    case ElementType::P1:
    case ElementType::none:
        break;
    }
}

void Ipologismos_K_Stoixeiou()
{
    std::array<std::array<double, 6>, 6> work{};
    for (int row = 0; row < 6; ++row) {
        const auto left = T_Anastrofos.row(row + 1);
        for (std::size_t m = 0; m < 6; ++m) {
            const auto stiffness = K_Topiko.row(static_cast<int>(m) + 1);
            for (std::size_t column = 0; column < 6; ++column)
                work[static_cast<std::size_t>(row)][column] += left[m] * stiffness[column];
        }
    }
    K_Stoixeiou.clear();
    for (int row = 1; row <= 6; ++row) {
        const auto result = K_Stoixeiou.row(row);
        for (std::size_t m = 0; m < 6; ++m) {
            const auto right = T_Pinakas.row(static_cast<int>(m) + 1);
            const double factor = work[static_cast<std::size_t>(row - 1)][m];
            for (std::size_t column = static_cast<std::size_t>(row - 1); column < 6; ++column)
                result[column] += factor * right[column];
        }
    }
    // The two triangles of the product differ by rounding; the solver relies on one of them.
    for (int row = 1; row <= 6; ++row)
        for (int column = row + 1; column <= 6; ++column)
            K_Stoixeiou(column, row) = K_Stoixeiou(row, column);
}

void Synthesi_K(int e)
{
    const auto [ni, nj] = elementNodes(e);
    const int bi = freedomOf(ni, 0); // the component is added below
    const int bj = freedomOf(nj, 0);
    for (int r = 1; r <= 3; ++r)
        for (int c = 1; c <= 3; ++c) {
            K_Oliko(bi + r, bi + c) += K_Stoixeiou(r, c);
            K_Oliko(bi + r, bj + c) += K_Stoixeiou(r, c + 3);
            K_Oliko(bj + r, bi + c) += K_Stoixeiou(r + 3, c);
            K_Oliko(bj + r, bj + c) += K_Stoixeiou(r + 3, c + 3);
        }
}

void Synthesi_Elatirion()
{
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int component = 1; component <= 3; ++component) {
            const int freedom = freedomOf(n, component);
            K_Oliko(freedom, freedom) += Elatiria(n, component);
        }
}

void Arithmisi_Vathmon()
{
    K_Anadiataxi.clear();
    Seira_Vathmon.clear();
    const int freedoms = 3 * Arithmos_Kombon;
    const auto restraint = [](int freedom) {
        return Komboi(nodeOfFreedom(freedom), node::fixedX - 1 + componentOf(freedom));
    };

    Desmevmenoi_Vathmoi = 0;
    for (int freedom = 1; freedom <= freedoms; ++freedom)
        if (restraint(freedom) == 1)
            ++Desmevmenoi_Vathmoi;
    Eleftheroi_Vathmoi = static_cast<std::int16_t>(freedoms - Desmevmenoi_Vathmoi);

    std::array<int, maxDofs + 1> positions{}; // of each natural freedom
    const auto number = [&](float wanted, int position) {
        for (int freedom = 1; freedom <= freedoms; ++freedom)
            if (restraint(freedom) == wanted) {
                Seira_Vathmon(++position) = freedom;
                positions[static_cast<std::size_t>(freedom)] = position;
            }
    };
    number(0, 0);
    number(1, Eleftheroi_Vathmoi);

    for (int p = 1; p <= freedoms; ++p) {
        const int freedom = static_cast<int>(Seira_Vathmon(p));
        const auto [first, last] = K_Oliko.stretch(freedom);
        const auto row = K_Oliko.read(freedom, first, last);
        for (int column = first; column <= last; ++column)
            if (const double value = row[static_cast<std::size_t>(column - first)];
                !isPositiveZero(value))
                K_Anadiataxi(p, positions[static_cast<std::size_t>(column)]) = value;
    }
}

namespace {

/// Copies the columns @p begin + 1 to @p begin + @p count of a row to the columns from 1 on.
void copyPart(int fromRow, int begin, int count, auto &to, int toRow)
{
    auto [first, last] = K_Anadiataxi.stretch(fromRow);
    first = std::max(first, begin + 1);
    last = std::min(last, begin + count);
    std::ranges::copy(K_Anadiataxi.read(fromRow, first, last),
                      to.write(toRow, first - begin, last - begin).begin());
}

} // namespace

void Diamerisi_K()
{
    const int free = Eleftheroi_Vathmoi;
    const int constrained = Desmevmenoi_Vathmoi;
    K_ff.clear(); // a failed analysis leaves its own behind
    K_fs.clear();
    K_sf.clear();
    K_ss.clear();
    for (int p = 1; p <= free; ++p) {
        copyPart(p, 0, free, K_ff, p);
        copyPart(p, free, constrained, K_fs, p);
    }
    for (int p = 1; p <= constrained; ++p) {
        copyPart(free + p, 0, free, K_sf, p);
        copyPart(free + p, free, constrained, K_ss, p);
    }
}

} // namespace veskora
