#include "Csv.h"

#include "MathFunc.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace veskora {

namespace {

void append(std::string &text, const std::string &cell, char separator)
{
    const bool isQuoted = std::any_of(cell.begin(), cell.end(), [separator](char c) {
        return c == separator || c == '"' || c == '\r' || c == '\n';
    });
    if (!isQuoted) {
        text += cell;
        return;
    }
    text += '"';
    for (const char character : cell)
        text.append(character == '"' ? 2 : 1, character);
    text += '"';
}

} // namespace

std::string csvNumber(double value)
{
    std::array<char, 32> digits; // the longest is -2.2250738585072014e-308
    const double number = value == 0 ? 0 : value;
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr};
}

std::string csvText(const CsvTable &table, CsvForm form)
{
    const bool hasCommas = form.isRegional && regionalDecimalSeparator() == ",";
    const char separator = hasCommas ? ';' : ',';
    std::string text;
    for (const CsvRow &row : table) {
        for (const std::string &cell : row) {
            append(text, hasCommas && numberFromWholeText(cell) ? withSeparator(cell, ",") : cell,
                   separator);
            text += separator;
        }
        text.pop_back();
        text += form.lineEnd;
    }
    return text;
}

} // namespace veskora
