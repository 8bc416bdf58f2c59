#pragma once
/// @file
/// What the program takes from the user's settings, whatever they say.

#include "FuzzTarget.h"
#include "Languages.h"
#include "MathFunc.h"
#include "RecentFiles.h"
#include "Registry.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace veskora {

struct TakenSettings
{
    std::vector<SettingValue> values;
    std::vector<std::string> recent = recentFiles();
    std::string language = storedLanguage();

    TakenSettings()
    {
        Fortosi_Rithmiseon();
        for (const Setting &setting : settings)
            values.push_back(currentValue(setting));
    }
    bool operator==(const TakenSettings &) const = default;
};

struct IsWithinLimits
{
    bool operator()(bool) const { return true; }
    bool operator()(std::int16_t decimals) const { return decimals >= 0 && decimals <= 13; }
    bool operator()(float scale) const { return std::isfinite(scale) && scale > 0; }
    bool operator()(double colour) const
    {
        return colour == std::floor(colour) && colour >= -2147483648.0 && colour <= 4294967295.0;
    }
};

inline void requireWithinLimits(const TakenSettings &taken)
{
    for (const SettingValue &value : taken.values)
        require(std::visit(IsWithinLimits{}, value), "setting");
    require(taken.recent.size() <= 10 && std::ranges::count(taken.recent, "") == 0, "recent files");
    require(!taken.language.empty(), "language");
}

/// A value as it comes back from the store: a Single with the seven digits that it has there, a
/// colour as a signed word.
struct AsStored
{
    SettingValue operator()(float value) const
    {
        return static_cast<float>(Val(numberText(value)));
    }
    SettingValue operator()(double value) const
    {
        return static_cast<double>(static_cast<std::int32_t>(static_cast<std::int64_t>(value)));
    }
    SettingValue operator()(auto value) const { return value; }
};

/// Stores all that was taken, and opens a file.
/// @return what must be there now
inline TakenSettings stored(TakenSettings taken)
{
    const std::string opened = "/a file";
    for (std::size_t i = 0; i < settings.size(); ++i) {
        storeAsDefault(settings[i], taken.values[i]);
        taken.values[i] = std::visit(AsStored{}, taken.values[i]);
    }
    storeLanguage(taken.language);
    rememberFile(opened);
    std::erase(taken.recent, opened);
    taken.recent.insert(taken.recent.begin(), opened);
    taken.recent.resize(std::min<std::size_t>(taken.recent.size(), 10));
    return taken;
}

} // namespace veskora
