#pragma once
/// @file
/// Data and results as tables of texts: what stands in which cell, and in which colour, in the
/// results window, in workbooks and in the calculation report.

#include <cstdint>
#include <string>
#include <vector>

namespace veskora {

/// Colour words of cell texts.
namespace cellColour {
inline constexpr std::uint32_t black = 0;
inline constexpr std::uint32_t maximum = 0xFF0000; ///< blue
inline constexpr std::uint32_t minimum = 0xFF;     ///< red
inline constexpr std::uint32_t spring = 0x8000;    ///< green
} // namespace cellColour

struct TextCell
{
    std::string text;
    std::uint32_t colour = cellColour::black;
    bool operator==(const TextCell &) const = default;
};

/// Cells behind the last one are empty.
struct TextRow
{
    enum class Kind { cells, header, separator };

    Kind kind = Kind::cells;
    std::vector<TextCell> cells;
    bool operator==(const TextRow &) const = default;
};

/// Row 0 is a header.
using TextTable = std::vector<TextRow>;

/// Number texts with the decimal separator of the region, which is asked for once.
class RegionalNumbers
{
public:
    static constexpr int allDigits = 0;

    /// @param digits  significant ones
    explicit RegionalNumbers(int digits = allDigits);
    std::string operator()(float value) const;
    std::string operator()(double value) const;

private:
    int digits_;
    std::string separator_;
};

/// The element type as tables and tree name it: "P2", "P2' (Hinge i)" ...
std::string elementTypeText(int e);

TextRow headerRow(const std::vector<std::string> &texts);

/// @name Of the store as it stands
/// @{
TextTable groupCells(const RegionalNumbers &number);
TextTable nodeCells(const RegionalNumbers &number);
TextTable elementCells(const RegionalNumbers &number);
TextTable nodalLoadCells(const RegionalNumbers &number);
TextTable elementalLoadCells(const RegionalNumbers &number);
/// These five, an empty row behind each.
TextTable dataCells(const RegionalNumbers &number);
TextTable displacementCells(const RegionalNumbers &number);
/// A separator behind the two rows of each element.
TextTable endForceCells(const RegionalNumbers &number);
TextTable reactionCells(const RegionalNumbers &number);
/// @}

} // namespace veskora
