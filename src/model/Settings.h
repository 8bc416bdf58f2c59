#pragma once
/// @file
/// The view settings: their variables, and in one table their keys and start values. A setting is a
/// variable here and a row of `settings`.

#include <cstdint>
#include <span>
#include <variant>

namespace veskora {

inline bool nai_aksones, nai_grid, nai_komboi, nai_arithmisi_kombon, nai_desmefseis, nai_graf_stir;
inline bool nai_sint_kombon, nai_springs, nai_stoixeia, nai_arithmisi_stoixeion, nai_eleftheroseis;
inline bool nai_omades, nai_miki, nai_fortiseis_si, nai_times_fortiseon_si, nai_fortiseis_om;
inline bool nai_times_fortiseon_om, nai_times_M, nai_times_Q, nai_times_N;
inline bool Q_sin_Ina, N_sin_Ina, M_sin_Tension, Nai_Apolites_Sint, Nai_Sxetikes_Sint;
inline bool smallHeldRotation; ///< held rotation alone is a small mark, as at the joints of a truss
inline float kannab;           ///< grid step, model units
/// What 1 cm of paper stands for: moment, shear, axial force, and displacement in thousandths.
inline float Ena_cm_posa_KNm_M, Ena_cm_posa_KN_Q, Ena_cm_posa_KN_N, Ena_cm_posa_m_epi_1000;
inline std::int16_t dekadika_M, dekadika_Q, dekadika_N; ///< decimals of the diagrams' values
inline constexpr int maxDecimals = 13;
/// Colour words, red in the low byte; a word with the high bit set names a system colour.
inline double xroma_background, xroma_aksonon, xroma_grid, xroma_stoixeion, xroma_kombon;
inline double xroma_sigkentromenon, xroma_omoiomorfon, xroma_paramorfosis;
inline double xroma_M, xroma_Q, xroma_N;

/// A variable of the store of one of the types that settings and view have, and a value of such a
/// one: a switch, decimals, a length or scale, a colour word or place.
using StoreVariable = std::variant<bool *, std::int16_t *, float *, double *>;
using SettingValue = std::variant<bool, std::int16_t, float, double>;

/// @param value  of the variable's own type
void assign(const StoreVariable &variable, const SettingValue &value);

struct Setting
{
    const char *key; ///< in the per-user store
    StoreVariable value;
    const char *standard; ///< text taken when the user has none
};

/// All of them, in the order in which they are read from the user's store.
extern const std::span<const Setting> settings;

} // namespace veskora
