#pragma once
/// @file
/// The settings and the view by their names, as the files of tests/data/ write them.

#include "Metablites.h"
#include "Settings.h"

#include <map>
#include <string>

namespace veskora {

inline std::map<std::string, StoreVariable> namedVariables()
{
    std::map<std::string, StoreVariable> variables = {
        {"Klimaka", &Klimaka}, {"Arxi_X", &Arxi_X}, {"Arxi_Y", &Arxi_Y}};
    for (const Setting &setting : settings)
        variables.emplace(setting.key, setting.value);
    return variables;
}

inline double valueOf(const StoreVariable &variable)
{
    return std::visit([](const auto *value) { return static_cast<double>(*value); }, variable);
}

inline void setValue(const StoreVariable &variable, double value)
{
    std::visit([value](auto *of) { *of = static_cast<std::decay_t<decltype(*of)>>(value); },
               variable);
}

} // namespace veskora
