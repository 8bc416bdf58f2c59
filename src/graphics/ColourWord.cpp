#include "ColourWord.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace veskora {

namespace {

constexpr std::uint32_t systemColourBit = 0x80000000;

/// The system colours by their numbers, as colour words.
constexpr std::array<std::uint32_t, 25> systemColours = {
    0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, // scroll bar, desktop, titles, menu
    0xFFFFFF, 0x646464, 0x000000, 0x000000, 0x000000, // window, its frame, texts
    0xB4B4B4, 0xFCF7F4, 0xABABAB, 0xD77800, 0xFFFFFF, // borders, workspace, highlight and its text
    0xF0F0F0, 0xA0A0A0, 0x6D6D6D, 0x000000, 0x000000, // button, shadow, grey text, texts
    0xFFFFFF, 0x696969, 0xE3E3E3, 0x000000, 0xE1FFFF, // 3D edges, tool tips
};

} // namespace

Rgb colourOf(double word)
{
    constexpr double wordRange = 4294967296.0;
    if (!(std::abs(word) < wordRange))
        return {0, 0, 0};
    auto bits = static_cast<std::uint32_t>(static_cast<std::int64_t>(word));
    if ((bits & systemColourBit) != 0) {
        const std::size_t number = bits & 0xFF;
        bits = number < systemColours.size() ? systemColours[number] : 0;
    }
    return {static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
            static_cast<std::uint8_t>(bits >> 16)};
}

} // namespace veskora
