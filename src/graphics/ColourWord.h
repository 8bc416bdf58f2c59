#pragma once
/// @file
/// Colour words: 32 bits with red in the low byte; a word with the high bit set names one of the
/// desktop's system colours.

#include <cstdint>

namespace veskora {

struct Rgb
{
    std::uint8_t red, green, blue;
    bool operator==(const Rgb &) const = default;
};

/// The colour of a word as the store holds it. System colours come from one fixed, light table and
/// not from the theme in force: the picture is the same on every screen, in every exported file and
/// without a display. What is no colour word is black.
Rgb colourOf(double word);

} // namespace veskora
