// From the solution to displacements, end forces and reactions.

#include "element.h"
#include "epilisi.h"
#include "RowQueries.h"

#include <cmath>
#include <string>

namespace veskora {

namespace {

void multiply(const Pinakas<double, 6, 6> &matrix, const Pinakas<double, 6> &vector,
              Pinakas<double, 6> &result)
{
    result.clear();
    for (int r = 1; r <= 6; ++r)
        for (int m = 1; m <= 6; ++m)
            result(r) += matrix(r, m) * vector(m);
}

} // namespace

void Ipologismos_Antidraseon_Vathmon()
{
    R_Desmevmena.clear();
    for (int p = 1; p <= Desmevmenoi_Vathmoi; ++p) {
        const auto [first, last] = K_sf.stretch(p);
        for (int q = first; q <= last; ++q)
            R_Desmevmena(p) = U_Eleftheroi(q) * std::as_const(K_sf)(p, q) + R_Desmevmena(p);
    }
}

void Anaptyxi_Metatopiseon()
{
    Metatopiseis.clear();
    for (int p = 1; p <= 3 * Arithmos_Kombon; ++p)
        Metatopiseis(static_cast<int>(Seira_Vathmon(p))) =
            p <= Eleftheroi_Vathmoi ? U_Eleftheroi(p) : 0;
}

void Metatopiseis_Stoixeiou(int e)
{
    const auto [ni, nj] = elementNodes(e);
    for (int component = 1; component <= 3; ++component) {
        U_Stoixeiou_Oliko(component) = Metatopiseis(freedomOf(ni, component));
        U_Stoixeiou_Oliko(component + 3) = Metatopiseis(freedomOf(nj, component));
    }
}

void Topikes_Metatopiseis()
{
    multiply(T_Pinakas, U_Stoixeiou_Oliko, U_Stoixeiou_Topiko);
}

void Topika_F_Pakton()
{
    multiply(T_Pinakas, F_Pakton_Oliko, F_Pakton_Topiko);
}

void Entasi_Stoixeiou(int e)
{
    for (int r = 1; r <= 6; ++r) {
        double &force = Entasi_Topiki(e, r);
        for (int m = 1; m <= 6; ++m)
            force += K_Topiko(r, m) * U_Stoixeiou_Topiko(m);
        force += F_Pakton_Topiko(r);
        if (!std::isfinite(force))
            throw Fault("Overflow in the end forces of element " + std::to_string(e));
    }
}

void Oliki_Entasi_Stoixeiou(int e)
{
    for (int r = 1; r <= 6; ++r)
        for (int m = 1; m <= 6; ++m)
            Entasi_Oliki(e, r) += T_Anastrofos(r, m) * Entasi_Topiki(e, m);
}

void Ipologismos_Antidraseon()
{
    Antidraseis.clear();
    const auto gather = [](int n, int e, int before) {
        for (int component = 1; component <= 3; ++component)
            if (Komboi(n, node::fixedX - 1 + component) == 1)
                Antidraseis(n, component) += Entasi_Oliki(e, before + component);
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const auto [ni, nj] = elementNodes(e);
        gather(ni, e, 0);
        gather(nj, e, 3);
    }
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int component = 1; component <= 3; ++component) {
            double &reaction = Antidraseis(n, component);
            reaction -= Komboi(n, node::Fx - 1 + component);
            if (!std::isfinite(reaction))
                throw Fault("Overflow in the reactions of node " + std::to_string(n));
        }
}

} // namespace veskora
