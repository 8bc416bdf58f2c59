#pragma once
/// @file
/// Marks on rows of the model, over the picture that there is.

#include <cstdint>
#include <span>

namespace veskora {

/// Colour words.
namespace markColour {
inline constexpr std::uint32_t node = 0x0080FF; ///< orange
inline constexpr std::uint32_t element = 0x0000FF;
} // namespace markColour

/// Rings the nodes and draws the elements thick; one that joins no two nodes is left out.
void markRows(std::span<const int> nodes, std::span<const int> elements);

} // namespace veskora
