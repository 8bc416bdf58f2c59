#include "LiteralSolver.h"

#include "Metablites.h"

#include <cmath>

namespace veskora::literal {

namespace {

void rotateBack(const double (&T)[7][7], const double (&local)[7], double (&global)[7])
{
    for (int r = 1; r <= 6; ++r) {
        global[r] = 0;
        for (int m = 1; m <= 6; ++m)
            global[r] = global[r] + T[m][r] * local[m];
    }
}

void rotate(const double (&T)[7][7], const double (&global)[7], double (&local)[7])
{
    for (int r = 1; r <= 6; ++r) {
        local[r] = 0;
        for (int m = 1; m <= 6; ++m)
            local[r] = local[r] + T[r][m] * global[m];
    }
}

} // namespace

Element elementOf(int e)
{
    Element element = {};
    element.ni = static_cast<int>(Stoixeia(e, 1));
    element.nj = static_cast<int>(Stoixeia(e, 2));
    const double dx = Komboi(element.nj, 1) - Komboi(element.ni, 1); // of Singles
    const double dy = Komboi(element.nj, 2) - Komboi(element.ni, 2);
    const double L = element.L = std::sqrt(dx * dx + dy * dy);
    const double c = dx / L;
    const double s = dy / L;
    auto &T = element.T;
    T[1][1] = T[2][2] = T[4][4] = T[5][5] = c;
    T[1][2] = T[4][5] = s;
    T[2][1] = T[5][4] = -s;
    T[3][3] = T[6][6] = 1;

    const int g = static_cast<int>(Stoixeia(e, 3));
    const double E = Omades(g, 1), A = Omades(g, 2), I = Omades(g, 3);
    const double wx = Stoixeia(e, 6), wy = Stoixeia(e, 7);
    const double q = -wx * s + wy * c;
    const double n = wx * c + wy * s;
    auto &K = element.K;
    K[1][1] = K[4][4] = (A * E) / L;
    K[1][4] = K[4][1] = (-1 * A * E) / L;
    double local[7] = {0, -n * L / 2, 0, 0, -n * L / 2, 0, 0};
    const bool hingeI = Stoixeia(e, 4) == 1;
    const bool hingeJ = Stoixeia(e, 5) == 1;
    if (!hingeI && !hingeJ) {
        K[2][2] = K[5][5] = 12 * E * I / (L * L * L);
        K[2][5] = K[5][2] = -12 * E * I / (L * L * L);
        K[2][3] = K[3][2] = K[2][6] = K[6][2] = 6 * E * I / (L * L);
        K[3][5] = K[5][3] = K[5][6] = K[6][5] = -6 * E * I / (L * L);
        K[3][3] = K[6][6] = 4 * E * I / L;
        K[3][6] = K[6][3] = 2 * E * I / L;
        local[2] = local[5] = -q * L / 2;
        local[3] = -q * (L * L) / 12;
        local[6] = q * (L * L) / 12;
    } else if (hingeI != hingeJ) {
        K[2][2] = K[5][5] = 3 * E * I / (L * L * L);
        K[2][5] = K[5][2] = -3 * E * I / (L * L * L);
        const int rigid = hingeJ ? 3 : 6;
        K[2][rigid] = K[rigid][2] = 3 * E * I / (L * L);
        K[5][rigid] = K[rigid][5] = -3 * E * I / (L * L);
        K[rigid][rigid] = 3 * E * I / L;
        local[2] = -q * L * (hingeJ ? 5 : 3) / 8;
        local[5] = -q * L * (hingeJ ? 3 : 5) / 8;
        local[rigid] = (hingeJ ? -q : q) * (L * L) / 8;
    } else {
        local[2] = local[5] = -q * L / 2;
    }
    rotateBack(element.T, local, element.fixedEnd);
    double work[7][7] = {};
    for (int r = 1; r <= 6; ++r)
        for (int j = 1; j <= 6; ++j)
            for (int m = 1; m <= 6; ++m)
                work[r][j] = work[r][j] + element.T[m][r] * element.K[m][j];
    for (int r = 1; r <= 6; ++r)
        for (int j = r; j <= 6; ++j) {
            for (int m = 1; m <= 6; ++m)
                element.global[r][j] = element.global[r][j] + work[r][m] * element.T[m][j];
            element.global[j][r] = element.global[r][j];
        }
    return element;
}

namespace {

void assemble(const Element &element, Table &whole)
{
    const auto &K = element.global;
    const int bi = 3 * element.ni - 3;
    const int bj = 3 * element.nj - 3;
    for (int r = 1; r <= 3; ++r)
        for (int c = 1; c <= 3; ++c) {
            whole(bi + r, bi + c) += K[r][c];
            whole(bi + r, bj + c) += K[r][c + 3];
            whole(bj + r, bi + c) += K[r + 3][c];
            whole(bj + r, bj + c) += K[r + 3][c + 3];
        }
}

} // namespace

bool eliminate(Table &A, Table &b, Table &x, int n)
{
    bool fault = n == 0;
    const auto divided = [&](double dividend, double divisor) {
        fault = fault || divisor == 0 || !std::isfinite(dividend / divisor);
        return dividend / divisor;
    };
    const auto tested = [&](double value) {
        fault = fault || !std::isfinite(value);
        return value;
    };
    for (int k = 1; k <= n; ++k) {
        for (int j = k; j <= n; ++j)
            tested(A(k, j));
        for (int i = k + 1; i <= n && !fault; ++i) {
            if (A(k, i) == 0)
                continue;
            for (int j = i; j <= n && !fault; ++j)
                A(i, j) = tested(A(i, j) - divided(A(k, i), A(k, k)) * A(k, j));
            b(i) = tested(b(i) - divided(A(k, i), A(k, k)) * b(k));
        }
        if (fault)
            return false;
    }
    for (int k = n; k >= 1 && !fault; --k) {
        double sum = 0;
        for (int j = k + 1; j <= n; ++j)
            sum = tested(sum + x(j) * A(k, j));
        x(k) = divided(k == n ? b(n) : tested(b(k) - sum), A(k, k));
    }
    return !fault;
}

Equations assemble()
{
    Equations equations;
    auto &[free, whole, permuted, ff, fs, sf, ss, loads, order] = equations;
    const int freedoms = 3 * Arithmos_Kombon;
    Table fixedEnds(600);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        assemble(elementOf(e), whole);
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            whole(3 * n - 3 + k, 3 * n - 3 + k) += Elatiria(n, k);

    const auto restraint = [](int d) { return Komboi((d - 1) / 3 + 1, (d - 1) % 3 + 3); };
    for (int d = 1; d <= freedoms; ++d)
        if (restraint(d) == 0)
            order(++free) = d;
    for (int d = 1, p = free; d <= freedoms; ++d)
        if (restraint(d) == 1)
            order(++p) = d;
    const int constrained = freedoms - free;
    for (int p = 1; p <= freedoms; ++p)
        for (int q = 1; q <= freedoms; ++q)
            permuted(p, q) = whole(static_cast<int>(order(p)), static_cast<int>(order(q)));
    const auto cut = [&from = equations.permuted](Table &part, int rows, int columns, int below,
                                                  int right) {
        for (int p = 1; p <= rows; ++p)
            for (int q = 1; q <= columns; ++q)
                part(p, q) = from(below + p, right + q);
    };
    cut(ff, free, free, 0, 0);
    cut(fs, free, constrained, 0, free);
    cut(sf, constrained, free, free, 0);
    cut(ss, constrained, constrained, free, free);

    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const Element element = elementOf(e);
        for (int k = 1; k <= 3; ++k) {
            fixedEnds(3 * element.ni - 3 + k) += element.fixedEnd[k];
            fixedEnds(3 * element.nj - 3 + k) += element.fixedEnd[k + 3];
        }
    }
    for (int p = 1; p <= free; ++p) {
        const int d = static_cast<int>(order(p));
        loads(p) = Komboi((d - 1) / 3 + 1, (d - 1) % 3 + 6) - fixedEnds(d);
    }
    return equations;
}

Results analyse()
{
    Results results;
    Equations equations = assemble();
    auto &[free, whole, permuted, ff, fs, sf, ss, loads, order] = equations;
    Table solution(600), global(300, 6);
    results.solved = eliminate(ff, loads, solution, free);
    if (!results.solved)
        return results;
    for (int p = 1; p <= free; ++p)
        results.displacements(static_cast<int>(order(p))) = solution(p);

    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const Element element = elementOf(e);
        double u[7] = {}, uLocal[7], fixedEnd[7];
        for (int k = 1; k <= 3; ++k) {
            u[k] = results.displacements(3 * element.ni - 3 + k);
            u[k + 3] = results.displacements(3 * element.nj - 3 + k);
        }
        rotate(element.T, u, uLocal);
        rotate(element.T, element.fixedEnd, fixedEnd);
        for (int r = 1; r <= 6; ++r) {
            for (int m = 1; m <= 6; ++m)
                results.endForces(e, r) += element.K[r][m] * uLocal[m];
            results.endForces(e, r) += fixedEnd[r];
        }
        for (int r = 1; r <= 6; ++r)
            for (int m = 1; m <= 6; ++m)
                global(e, r) += element.T[m][r] * results.endForces(e, m);
        for (int r = 1; r <= 6; ++r) {
            const int n = r <= 3 ? element.ni : element.nj;
            const int k = (r - 1) % 3 + 1;
            if (Komboi(n, k + 2) == 1)
                results.reactions(n, k) += global(e, r);
        }
    }
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            results.reactions(n, k) -= Komboi(n, k + 5);
    // At the end every working table is released and created once more.
    for (Table *table : {&whole, &permuted, &fs, &sf, &ss})
        *table = Table(600, 600);
    ff = Table(600, 601);
    return results;
}

} // namespace veskora::literal
