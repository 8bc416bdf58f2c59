#include "Sentences.h"

#include "Functions.h"
#include "MathFunc.h"
#include "RowQueries.h"

#include <algorithm>

namespace veskora {

namespace {

constexpr std::size_t longestList = 20; ///< entries; a run of rows is one

std::string joined(const std::vector<std::string> &items, std::string_view separator)
{
    std::string text;
    for (const std::string &item : items)
        (text += text.empty() ? "" : separator) += item;
    return text;
}

std::string andMore(const std::string &list, std::size_t more)
{
    return filled(Metafrasi(1662, "%1 and %2 more"), {list, numberText(static_cast<int>(more))});
}

/// Where the run of consecutive rows that begins at @p first ends; two are not worth one.
std::size_t endOfRun(const std::vector<int> &rows, std::size_t first)
{
    std::size_t end = first + 1;
    while (end < rows.size() && rows[end] == rows[end - 1] + 1)
        ++end;
    return end - first < 3 ? first + 1 : end;
}

/// Where the line that begins at @p begin ends: at its last blank within @p width characters, or
/// there where it has none.
std::size_t endOfLine(std::string_view text, std::size_t begin, std::size_t width)
{
    std::size_t end = begin;
    std::size_t blank = begin;
    for (std::size_t characters = 0; end < text.size(); ++end) {
        const bool beginsCharacter = (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80;
        if (text[end] == ' ')
            blank = end;
        if (beginsCharacter && characters++ == width)
            return blank > begin ? blank : end;
    }
    return end;
}

} // namespace

std::string filled(std::string_view text, const std::vector<std::string> &values)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t value =
            text[i] == '%' && i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : 9;
        if (value < values.size()) {
            result += values[value];
            ++i;
        } else
            result += text[i];
    }
    return result;
}

std::string part(const std::string &text, std::size_t index)
{
    std::size_t begin = 0;
    for (; index > 0; --index) {
        begin = text.find('|', begin);
        if (begin == std::string::npos)
            return {};
        ++begin;
    }
    return text.substr(begin, text.find('|', begin) - begin);
}

std::string forRows(const std::string &text, std::size_t rows)
{
    return part(text, rows == 1 ? 0 : 1);
}

std::string rowList(const std::vector<int> &rows)
{
    std::vector<std::string> entries;
    std::size_t told = 0;
    while (told < rows.size() && entries.size() < longestList) {
        const std::size_t end = endOfRun(rows, told);
        entries.push_back(numberText(rows[told]));
        if (end > told + 1)
            entries.back() =
                filled(Metafrasi(1660, "%1 to %2"), {entries.back(), numberText(rows[end - 1])});
        told = end;
    }
    if (told < rows.size())
        return andMore(joined(entries, ", "), rows.size() - told);
    if (entries.size() < 2)
        return joined(entries, "");
    const std::string last = entries.back();
    entries.pop_back();
    return filled(Metafrasi(1661, "%1 and %2"), {joined(entries, ", "), last});
}

std::string freedomText(int freedom)
{
    const int k = componentOf(freedom);
    return filled(Metafrasi(1836, "node %1, %2"),
                  {numberText(nodeOfFreedom(freedom)), k == 1   ? "x"
                                                       : k == 2 ? "y"
                                                                : Metafrasi(1837, "rotation")});
}

std::string itemList(const std::vector<std::string> &items, std::string_view separator,
                     std::size_t most)
{
    const std::size_t shown = std::min(items.size(), most);
    const std::string list =
        joined({items.begin(), items.begin() + static_cast<long>(shown)}, separator);
    return shown < items.size() ? andMore(list, items.size() - shown) : list;
}

std::string paragraphs(const std::vector<std::string> &texts)
{
    std::vector<std::string> filledOnes = texts;
    std::erase(filledOnes, "");
    return joined(filledOnes, nl);
}

std::string wrapped(std::string_view text, std::size_t width)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t lineEnd = text.find(nl);
        const std::string_view line = text.substr(0, lineEnd);
        for (std::size_t begin = 0; begin < line.size();) {
            const std::size_t end = endOfLine(line, begin, width);
            (result += begin > 0 ? nl : "") += line.substr(begin, end - begin);
            begin = end < line.size() && line[end] == ' ' ? end + 1 : end;
        }
        if (lineEnd == std::string_view::npos)
            break;
        result += nl;
        text.remove_prefix(lineEnd + nl.size());
    }
    return result;
}

} // namespace veskora
