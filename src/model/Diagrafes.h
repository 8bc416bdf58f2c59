#pragma once
/// @file
/// Deleting a row of a model table: later rows move down one place and references follow.

#include <cstdint>

namespace veskora {

/// Deletes node @p n (1 to `Arithmos_Kombon`, not checked) with its loads, restraints and springs.
/// Elements attached to it stay and keep their reference: the caller deletes them first.
void Diagrafi_Kombou(std::int16_t n);

/// Deletes element @p e (1 to `Arithmos_Stoixeion`, not checked).
void Diagrafi_Stoixeiou(std::int16_t e);

/// Deletes group @p g (1 to `Arithmos_Omadon`, not checked), which no element belongs to.
void deleteGroup(int g);

} // namespace veskora
