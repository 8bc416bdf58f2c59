#include "Registry.h"

#include "Desktop.h"
#include "Functions.h"
#include "MathFunc.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace veskora {

namespace {

using Parsed = std::optional<SettingValue>;

std::string lowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::optional<double> wholeNumber(const std::string &text, double least, double most)
{
    const std::optional<double> number = leadingNumber(text);
    const bool fits = number >= least && number <= most && *number == std::floor(*number);
    return fits ? number : std::nullopt;
}

/// What @p text says to a setting of the type; nothing where it says nothing that the program
/// itself could have stored.
struct Parse
{
    const std::string &text;

    Parsed operator()(const bool *) const
    {
        const std::string word = lowerCase(text);
        return word == "true" || word == "false" ? Parsed(word == "true") : std::nullopt;
    }
    Parsed operator()(const std::int16_t *) const // decimals
    {
        const std::optional<double> number = wholeNumber(text, 0, maxDecimals);
        return number ? Parsed(static_cast<std::int16_t>(*number)) : std::nullopt;
    }
    Parsed operator()(const float *) const // scales and the grid step
    {
        const std::optional<float> number = toSingle(Val(text));
        return number > 0 ? Parsed(*number) : std::nullopt;
    }
    Parsed operator()(const double *) const // colour words
    {
        return wholeNumber(text, std::numeric_limits<std::int32_t>::min(),
                           std::numeric_limits<std::uint32_t>::max());
    }
};

/// The text of a value in the per-user store.
struct StoredText
{
    std::string operator()(bool value) const { return value ? "True" : "False"; }
    std::string operator()(std::int16_t value) const { return numberText(static_cast<int>(value)); }
    std::string operator()(float value) const { return numberText(value); }
    std::string operator()(double value) const // a colour word, signed
    {
        // A model file may bring what is no colour word; it shows as black.
        constexpr double wordRange = 4294967296.0;
        if (!(std::abs(value) < wordRange))
            return "0";
        return std::to_string(static_cast<std::int32_t>(static_cast<std::int64_t>(value)));
    }
};

} // namespace

SettingValue currentValue(const Setting &setting)
{
    return std::visit([](const auto *value) { return SettingValue(*value); }, setting.value);
}

SettingValue standardValue(const Setting &setting)
{
    return std::visit(Parse{setting.standard}, setting.value).value();
}

void takeOver(const Setting &setting, const SettingValue &value)
{
    assign(setting.value, value);
}

void storeAsDefault(const Setting &setting, const SettingValue &value)
{
    desktop().storeSetting(settingsSection, setting.key, std::visit(StoredText{}, value));
}

bool writeSettingsOrTell()
{
    const std::string refusing = desktop().writeSettings();
    if (refusing.empty())
        return true;
    showRefusal(Metafrasi(1651, "The settings could not be written to the file:") + " " + refusing);
    return false;
}

void setStandardSettings()
{
    for (const Setting &setting : settings)
        takeOver(setting, standardValue(setting));
}

void Fortosi_Rithmiseon()
{
    for (const Setting &setting : settings) {
        const std::string text = desktop().setting(settingsSection, setting.key, setting.standard);
        // A damaged store must not keep the program from starting.
        takeOver(setting, std::visit(Parse{text}, setting.value).value_or(standardValue(setting)));
    }
}

} // namespace veskora
