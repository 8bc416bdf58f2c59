#pragma once
/// @file
/// Sentences of the language packs with numbers and rows put in, so that translators have them
/// whole.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace veskora {

inline constexpr std::string_view nl = "\r\n"; ///< ends a line of the texts of this folder

/// @p text with @p values where it has %1, %2 ...; a value is not searched for further marks.
std::string filled(std::string_view text, const std::vector<std::string> &values);

/// A text may hold several that belong together, parted by "|": a title and what stands under it,
/// a sentence for one row and for several. This is the one at place @p index, from 0; empty where
/// there are not so many.
std::string part(const std::string &text, std::size_t index);

/// The first part for one row, the second for any other number of them.
std::string forRows(const std::string &text, std::size_t rows);

/// Rows in rising order as "1 to 12, 15 and 17". A long list ends with how many more there are.
std::string rowList(const std::vector<int> &rows);

/// "node 3, y"
std::string freedomText(int freedom);

/// @p items with @p separator between them, at most @p most; how many more are left is told.
std::string itemList(const std::vector<std::string> &items, std::string_view separator,
                     std::size_t most);

/// The texts that are not empty, one below the other.
std::string paragraphs(const std::vector<std::string> &texts);

/// @p text broken at blanks into lines of at most @p width characters; its line ends stay.
std::string wrapped(std::string_view text, std::size_t width);

} // namespace veskora
