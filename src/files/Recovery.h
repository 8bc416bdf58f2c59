#pragma once
/// @file
/// What is kept of a model that would otherwise be lost.

#include <string>

namespace veskora {

/// Writes the model of the store to a new file in the recovery folder.
/// @return its path, empty when it could be written nowhere
std::string writeRecoveryFile();

/// Whether the store holds nothing that a recovery file could keep.
bool isModelEmpty();

} // namespace veskora
