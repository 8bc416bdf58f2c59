#include "Csv.h"

#include <array>
#include <charconv>

namespace veskora {

namespace {

std::string quoted(const std::string &cell)
{
    if (cell.find_first_of(",\"\r\n") == std::string::npos)
        return cell;
    std::string text = "\"";
    for (const char character : cell)
        text.append(character == '"' ? 2 : 1, character);
    return text + '"';
}

} // namespace

std::string csvNumber(double value)
{
    std::array<char, 32> digits; // the longest is -2.2250738585072014e-308
    const double number = value == 0 ? 0 : value;
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr};
}

std::string csvText(const CsvTable &table)
{
    std::string text;
    for (const CsvRow &row : table) {
        for (const std::string &cell : row)
            (text += quoted(cell)) += ',';
        text.back() = '\n';
    }
    return text;
}

} // namespace veskora
