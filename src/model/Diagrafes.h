#pragma once
/// @file
/// Deleting a row of a model table: later rows move down one place and references follow.

#include <cstdint>
#include <string>

namespace veskora {

/// The beginnings of a deletion's sentences, in the user's language.
struct DeletionWords
{
    std::string deleted, renumbered, to;
};

/// "Node deleted: #3. Nodes renumbered: #4 to # 9." when row @p row of @p last was deleted.
std::string deletionText(const DeletionWords &words, int row, int last);

/// Deletes node @p n (1 to `Arithmos_Kombon`, not checked) with its loads, restraints and springs.
/// Elements attached to it stay and keep their reference: the caller deletes them first.
void Diagrafi_Kombou(std::int16_t n);

/// Deletes element @p e (1 to `Arithmos_Stoixeion`, not checked).
void Diagrafi_Stoixeiou(std::int16_t e);

} // namespace veskora
