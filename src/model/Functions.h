#pragma once
/// @file
/// What nearly every routine calls: translation lookup and message log, and small texts made of
/// them.

#include <cstdint>
#include <string>
#include <string_view>

namespace veskora {

/// The text of a language slot: @p standard while the language is English, else what the language
/// pack holds for @p slot (1 to 2500), empty where it holds nothing.
std::string Metafrasi(int slot, std::string_view standard);

/// A text in a table that is made before the language is known: its slot and its English default.
struct Phrase
{
    int slot;
    const char *english;

    std::string text() const { return Metafrasi(slot, english); }
};

/// Colours of the message log, the `xroma` of `Grammi_Log`.
namespace logColour {
inline constexpr std::int16_t black = 0; ///< plain notes
inline constexpr std::int16_t navy = 1;  ///< a definition or change
inline constexpr std::int16_t green = 2; ///< deletions and renumbering
inline constexpr std::int16_t red = 3;   ///< refusals and check results
inline constexpr std::int16_t grey = 4;
} // namespace logColour

/// The colour word that the log is given for one of `logColour`.
std::uint32_t logColourWord(std::int16_t xroma);

/// Writes to the message log: behind what stands there when @p idia_grammi, else on a new line.
void Grammi_Log(const std::string &text, std::int16_t xroma, bool entona = false,
                bool idia_grammi = false);

/// Tells the user why a command is refused: in a box with a warning icon, and in red in the log.
void showRefusal(const std::string &text);

inline constexpr const char *modelExtension = ".vsk"; ///< of a model's file

/// Sets the caption of the main window for the model file @p path, "Untitled.vsk" when empty.
void showModelCaption(const std::string &path);

} // namespace veskora
