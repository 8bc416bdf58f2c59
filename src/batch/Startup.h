#pragma once
/// @file
/// What the two programs of the batch runner have in common before their run.

#include <string>

namespace veskora {

/// Prepares a process of either program: no file takes the place of a closed standard stream, a
/// file that grows too large fails to be written, and what one model gives back serves the next.
void prepareProcess();

/// The first argument that the program for drawings needs: it works for its own version alone.
std::string callerArgument();

} // namespace veskora
