#pragma once
/// @file
/// Tables as comma-separated values: RFC 4180 with LF line ends, UTF-8, points in numbers.

#include <string>
#include <vector>

namespace veskora {

using CsvRow = std::vector<std::string>;
using CsvTable = std::vector<CsvRow>; ///< the first row has the names of the columns

/// The shortest text that reads back as the very Double, as Python's float() does; -0 is 0.
std::string csvNumber(double value);

/// Quotes the cells that need it.
std::string csvText(const CsvTable &table);

} // namespace veskora
