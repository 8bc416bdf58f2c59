#include "Registry.h"

#include "Desktop.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <type_traits>

namespace veskora {

bool nai_aksones, nai_grid, nai_komboi, nai_arithmisi_kombon, nai_desmefseis, nai_graf_stir,
    nai_sint_kombon, nai_springs, nai_stoixeia, nai_arithmisi_stoixeion, nai_eleftheroseis,
    nai_omades, nai_miki, nai_fortiseis_si, nai_times_fortiseon_si, nai_fortiseis_om,
    nai_times_fortiseon_om, nai_times_M, nai_times_Q, nai_times_N, Q_sin_Ina, N_sin_Ina,
    M_sin_Tension, Nai_Apolites_Sint, Nai_Sxetikes_Sint;
float kannab, Ena_cm_posa_KNm_M, Ena_cm_posa_KN_Q, Ena_cm_posa_KN_N, Ena_cm_posa_m_epi_1000;
std::int16_t dekadika_M, dekadika_Q, dekadika_N;
double xroma_background, xroma_aksonon, xroma_grid, xroma_stoixeion, xroma_kombon,
    xroma_sigkentromenon, xroma_omoiomorfon, xroma_paramorfosis, xroma_M, xroma_Q, xroma_N;

const std::array<Setting, 44> settings = {{
    {"nai_aksones", &nai_aksones, "True"},
    {"nai_grid", &nai_grid, "True"},
    {"kannab", &kannab, "1"},
    {"nai_komboi", &nai_komboi, "True"},
    {"nai_arithmisi_kombon", &nai_arithmisi_kombon, "True"},
    {"nai_desmefseis", &nai_desmefseis, "True"},
    {"nai_graf_stir", &nai_graf_stir, "True"},
    {"nai_sint_kombon", &nai_sint_kombon, "False"},
    {"nai_springs", &nai_springs, "true"},
    {"nai_stoixeia", &nai_stoixeia, "True"},
    {"nai_arithmisi_stoixeion", &nai_arithmisi_stoixeion, "True"},
    {"nai_eleftheroseis", &nai_eleftheroseis, "True"},
    {"nai_omades", &nai_omades, "False"},
    {"nai_miki", &nai_miki, "False"},
    {"nai_fortiseis_si", &nai_fortiseis_si, "True"},
    {"nai_times_fortiseon_si", &nai_times_fortiseon_si, "True"},
    {"nai_fortiseis_om", &nai_fortiseis_om, "True"},
    {"nai_times_fortiseon_om", &nai_times_fortiseon_om, "True"},
    {"nai_times_M", &nai_times_M, "True"},
    {"nai_times_Q", &nai_times_Q, "True"},
    {"nai_times_N", &nai_times_N, "True"},
    {"Q_sin_Ina", &Q_sin_Ina, "True"},
    {"N_sin_Ina", &N_sin_Ina, "True"},
    {"M_sin_Tension", &M_sin_Tension, "True"},
    {"Ena_cm_posa_KNm_M", &Ena_cm_posa_KNm_M, "100"},
    {"Ena_cm_posa_KN_Q", &Ena_cm_posa_KN_Q, "100"},
    {"Ena_cm_posa_KN_N", &Ena_cm_posa_KN_N, "100"},
    {"Ena_cm_posa_m_epi_1000", &Ena_cm_posa_m_epi_1000, "100"},
    {"dekadika_M", &dekadika_M, "3"},
    {"dekadika_Q", &dekadika_Q, "3"},
    {"dekadika_N", &dekadika_N, "3"},
    {"xroma_background", &xroma_background, "-2147483634"},
    {"xroma_aksonon", &xroma_aksonon, "8388608"},
    {"xroma_grid", &xroma_grid, "&HE0E0E0"},
    {"xroma_stoixeion", &xroma_stoixeion, "0"},
    {"xroma_kombon", &xroma_kombon, "&HFF0000"},
    {"xroma_sigkentromenon", &xroma_sigkentromenon, "41984"},
    {"xroma_omoiomorfon", &xroma_omoiomorfon, "32768"},
    {"xroma_paramorfosis", &xroma_paramorfosis, "16711680"},
    {"xroma_M", &xroma_M, "3557577"},
    {"xroma_Q", &xroma_Q, "10499638"},
    {"xroma_N", &xroma_N, "2852397"},
    {"Nai_Apolites_Sint", &Nai_Apolites_Sint, "False"},
    {"Nai_Sxetikes_Sint", &Nai_Sxetikes_Sint, "True"},
}};

namespace {

std::string lowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// Stores what @p text says; answers false, storing nothing, where it says nothing that the program
/// itself could have stored.
struct AssignText
{
    const std::string &text;

    bool operator()(bool *value) const
    {
        const std::string word = lowerCase(text);
        if (word == "true" || word == "false")
            *value = word == "true";
        return word == "true" || word == "false";
    }
    bool operator()(std::int16_t *value) const // decimals
    {
        const std::optional<double> number = leadingNumber(text);
        if (!number || !(*number >= 0 && *number <= maxDecimals && *number == std::floor(*number)))
            return false;
        *value = static_cast<std::int16_t>(*number);
        return true;
    }
    bool operator()(float *value) const // scales and the grid step
    {
        const std::optional<float> number = toSingle(Val(text));
        if (!number || !(*number > 0))
            return false;
        *value = *number;
        return true;
    }
    bool operator()(double *value) const // colour words
    {
        const std::optional<double> number = leadingNumber(text);
        if (!number
            || !(*number >= std::numeric_limits<std::int32_t>::min()
                 && *number <= std::numeric_limits<std::uint32_t>::max()
                 && *number == std::floor(*number)))
            return false;
        *value = *number;
        return true;
    }
};

void assignStandard(const Setting &setting)
{
    std::visit(AssignText{setting.standard}, setting.value);
}

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
    return std::visit([](const auto *variable) { return SettingValue(*variable); }, setting.value);
}

SettingValue standardValue(const Setting &setting)
{
    return std::visit(
        [&setting](const auto *variable) {
            auto value = *variable;
            AssignText{setting.standard}(&value);
            return SettingValue(value);
        },
        setting.value);
}

void takeOver(const Setting &setting, const SettingValue &value)
{
    std::visit(
        [&value](auto *variable) {
            *variable = std::get<std::remove_pointer_t<decltype(variable)>>(value);
        },
        setting.value);
}

void storeAsDefault(const Setting &setting, const SettingValue &value)
{
    desktop().storeSetting("Rithmiseis", setting.key, std::visit(StoredText{}, value));
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
    std::ranges::for_each(settings, assignStandard);
}

void Fortosi_Rithmiseon()
{
    for (const Setting &setting : settings)
        if (!std::visit(AssignText{desktop().setting("Rithmiseis", setting.key, setting.standard)},
                        setting.value))
            assignStandard(setting); // a damaged store must not keep the program from starting
}

} // namespace veskora
