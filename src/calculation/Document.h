#pragma once
/// @file
/// A document before it is laid out: what it says, in its order.

#include "ResultCells.h"

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace veskora {

/// The title over a box of what the document is about.
struct TitleBlock
{
    std::string title;
    std::vector<std::pair<std::string, std::string>> lines; ///< label and value
};

/// All headings with their pages.
struct Contents
{};

struct Heading
{
    int level; ///< 1 or 2
    std::string text;
};

struct Paragraph
{
    enum class Kind {
        plain,
        lead,   ///< to what follows, from which no page parts it
        bold,   ///< the same
        warning ///< the same
    };

    std::string text; ///< CR LF parts its lines
    Kind kind = Kind::plain;
};

/// What the canvas shows as @ref shown, one of `view`, over tables of its extremes.
struct Picture
{
    std::int16_t shown;
    std::vector<TextTable> extremes;
};

using Block = std::variant<TitleBlock, Contents, Heading, Paragraph, TextTable, Picture>;

struct Document
{
    std::string name; ///< at the foot of each page
    std::string title;
    std::string program;
    std::vector<Block> blocks;
};

} // namespace veskora
