#include "Settings.h"

#include <array>

namespace veskora {

namespace {

constexpr std::array rows = std::to_array<Setting>({
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
    {"smallHeldRotation", &smallHeldRotation, "False"},
});

} // namespace

constinit const std::span<const Setting> settings = rows;

void assign(const StoreVariable &variable, const SettingValue &value)
{
    std::visit([&]<typename Type>(Type *place) { *place = std::get<Type>(value); }, variable);
}

} // namespace veskora
