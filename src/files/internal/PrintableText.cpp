#include "PrintableText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace veskora {

namespace {

/// The length of the character of UTF-8 that @p text begins with, 0 where it begins with none.
std::size_t characterLength(std::string_view text)
{
    const auto byte = [text](std::size_t at) { return static_cast<std::uint8_t>(text[at]); };
    const std::size_t length = byte(0) < 0x80                      ? 1
                               : byte(0) >= 0xC2 && byte(0) < 0xE0 ? 2
                               : byte(0) >= 0xE0 && byte(0) < 0xF0 ? 3
                               : byte(0) >= 0xF0 && byte(0) < 0xF5 ? 4
                                                                   : 0;
    if (length == 0 || length > text.size())
        return 0;
    for (std::size_t at = 1; at < length; ++at)
        if ((byte(at) & 0xC0) != 0x80)
            return 0;
    const bool isTooLong =
        (byte(0) == 0xE0 && byte(1) < 0xA0) || (byte(0) == 0xF0 && byte(1) < 0x90);
    const bool isNoCharacter =
        (byte(0) == 0xED && byte(1) >= 0xA0) || (byte(0) == 0xF4 && byte(1) >= 0x90);
    return isTooLong || isNoCharacter ? 0 : length;
}

bool shows(std::string_view character)
{
    using Range = std::pair<std::string_view, std::string_view>;
    constexpr std::array<Range, 8> hidden = {{{{"\0", 1}, "\x1F"},
                                              {"\x7F", "\xC2\x9F"},
                                              {"\u00AD", "\u00AD"}, // a hyphen where lines end
                                              {"\u061C", "\u061C"}, // a direction
                                              {"\u200B", "\u200F"},
                                              {"\u2028", "\u202E"},
                                              {"\u2060", "\u206F"},
                                              {"\uFEFF", "\uFEFF"}}};
    return std::ranges::none_of(hidden, [character](const Range &range) {
        return character >= range.first && character <= range.second;
    });
}

} // namespace

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string printableText(std::string_view bytes, std::size_t longest)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = characterLength(bytes.substr(at));
        const std::string_view character = bytes.substr(at, std::max<std::size_t>(length, 1));
        at += character.size();
        if (at > longest)
            return text + "...";
        if (length != 0 && shows(character))
            text += character;
        else
            for (const char c : character) {
                const auto byte = static_cast<std::uint8_t>(c);
                ((text += "\\x") += digits[byte >> 4]) += digits[byte & 15];
            }
    }
    return text;
}

} // namespace veskora
