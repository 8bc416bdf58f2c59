#pragma once
/// @file
/// What holds of every model, whatever was read, typed or drawn.

#include "Metablites.h"
#include "Require.h"

#include <cmath>

namespace veskora {

/// Counts are within the tables, live rows hold numbers and name rows that are there, and those
/// behind them hold nothing.
inline void requireSound()
{
    require(Arithmos_Kombon >= 0 && Arithmos_Kombon <= maxNodes, "number of nodes");
    require(Arithmos_Stoixeion >= 0 && Arithmos_Stoixeion <= maxElements, "number of elements");
    require(Arithmos_Omadon >= 0 && Arithmos_Omadon <= maxGroups, "number of groups");
    const auto requireRows = [](auto &table, int count, const char *what) {
        for (int row = 1; row <= table.rows; ++row)
            for (const auto cell : table.row(row))
                require(row <= count ? std::isfinite(cell) : cell == 0, what);
    };
    requireRows(Komboi, Arithmos_Kombon, "node");
    requireRows(Elatiria, Arithmos_Kombon, "spring");
    requireRows(Omades, Arithmos_Omadon, "group");
    requireRows(Stoixeia, Arithmos_Stoixeion, "element");
    const auto isCode = [](float cell) { return cell == 0 || cell == 1; };
    const auto isRow = [](float cell, int count) {
        return cell >= 1 && cell <= static_cast<float>(count) && cell == std::floor(cell);
    };
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int column = node::fixedX; column <= node::fixedRotation; ++column)
            require(isCode(Komboi(n, column)), "restraint");
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        require(isRow(Stoixeia(e, element::nodeI), Arithmos_Kombon), "node i");
        require(isRow(Stoixeia(e, element::nodeJ), Arithmos_Kombon), "node j");
        require(isRow(Stoixeia(e, element::group), Arithmos_Omadon), "group of an element");
        require(isCode(Stoixeia(e, element::hingeI)) && isCode(Stoixeia(e, element::hingeJ)),
                "hinge");
    }
    require(std::isfinite(Klimaka) && std::isfinite(Arxi_X) && std::isfinite(Arxi_Y), "view");
}

} // namespace veskora
