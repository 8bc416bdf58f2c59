#pragma once
/// @file
/// Tables as comma-separated values: RFC 4180 with LF line ends, UTF-8, points in numbers; on
/// request as programs of the user's region read them.

#include <string>
#include <vector>

namespace veskora {

using CsvRow = std::vector<std::string>;
using CsvTable = std::vector<CsvRow>; ///< the first row has the names of the columns

/// The shortest text that reads back as the very Double, as Python's float() does; -0 is 0.
std::string csvNumber(double value);

enum class CsvForm {
    international,
    regional ///< where the decimal separator is a comma: it in numbers, semicolons between cells
};

/// Quotes the cells that need it.
std::string csvText(const CsvTable &table, CsvForm form = CsvForm::international);

} // namespace veskora
