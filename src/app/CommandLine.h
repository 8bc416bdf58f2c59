#pragma once
/// @file
/// What the window program answers on the terminal.

#include <string_view>

namespace veskora {

/// The answer to the option @p argument; empty where it is none, but a model's name or its
/// beginning.
std::string_view answerTo(std::string_view argument);

} // namespace veskora
