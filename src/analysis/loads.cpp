// Uniform element loads as fixed-end forces, and the right-hand side.

#include "element.h"
#include "epilisi.h"
#include "RowQueries.h"

#include <array>

namespace veskora {

void Ipologismos_F_Pakton(int e)
{
    const auto [L, c, s] = elementGeometry(e);
    const double wx = Stoixeia(e, element::wx);
    const double wy = Stoixeia(e, element::wy);
    const double n = wx * c + wy * s;  // along the element
    const double q = -wx * s + wy * c; // across it
    const double L2 = L * L;

    const double axial = -n * L / 2;
    std::array<double, 6> local{};
    switch (elementType(e)) {
    case ElementType::P2:
        local = {0, -q * L / 2, -q * L2 / 12, 0, -q * L / 2, q * L2 / 12};
        break;
    case ElementType::hingeAtJ:
        local = {0, -q * L * 5 / 8, -q * L2 / 8, 0, -q * L * 3 / 8, 0};
        break;
    case ElementType::hingeAtI:
        local = {0, -q * L * 3 / 8, 0, 0, -q * L * 5 / 8, q * L2 / 8};
        break;
    case ElementType::P1:
        local = {0, -q * L / 2, 0, 0, -q * L / 2, 0};
        break;
    case ElementType::none:
        break;
    }
    local[0] = local[3] = axial;

    Ipologismos_T(e);
    F_Pakton_Oliko.clear();
    for (int r = 1; r <= 6; ++r)
        for (int m = 1; m <= 6; ++m)
            F_Pakton_Oliko(r) += T_Anastrofos(r, m) * local[static_cast<std::size_t>(m - 1)];
}

void Synthesi_P(int e)
{
    const auto [ni, nj] = elementNodes(e);
    for (int component = 1; component <= 3; ++component) {
        P_Oliko(freedomOf(ni, component)) += F_Pakton_Oliko(component);
        P_Oliko(freedomOf(nj, component)) += F_Pakton_Oliko(component + 3);
    }
}

void Dexi_Meli()
{
    P_Eleftheroi.clear();
    for (int p = 1; p <= Eleftheroi_Vathmoi; ++p) {
        const int freedom = static_cast<int>(Seira_Vathmon(p));
        const float load = Komboi(nodeOfFreedom(freedom), node::Fx - 1 + componentOf(freedom));
        P_Eleftheroi(p) = load - P_Oliko(freedom);
    }
}

} // namespace veskora
