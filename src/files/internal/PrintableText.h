#pragma once
/// @file
/// Bytes of any origin, as text that can be shown.

#include <cstddef>
#include <string>
#include <string_view>

namespace veskora {

bool isUtf8(std::string_view text);

/// The first @p longest bytes of @p bytes, no character of which is cut in two, with "..." behind
/// where there are more. What is no character of UTF-8, or one that shows as nothing or turns what
/// stands around it (controls, line ends, directions), becomes "\x" and its bytes in hexadecimal.
std::string printableText(std::string_view bytes, std::size_t longest);

} // namespace veskora
