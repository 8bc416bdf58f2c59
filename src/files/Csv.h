#pragma once
/// @file
/// Tables as comma-separated values: RFC 4180, UTF-8, points in numbers; on request as programs of
/// the user's region read them.

#include <string>
#include <vector>

namespace veskora {

using CsvRow = std::vector<std::string>;
using CsvTable = std::vector<CsvRow>; ///< the first row has the names of the columns

/// The shortest text that reads back as the very Double, as Python's float() does; -0 is 0.
std::string csvNumber(double value);

struct CsvForm
{
    /// Where the decimal separator is a comma: it in numbers, semicolons between cells.
    bool isRegional = false;
    const char *lineEnd = crlf;

    static constexpr const char *crlf = "\r\n"; ///< of RFC 4180
    static constexpr const char *lf = "\n";     ///< of the tables that programs have always read so
};

/// Quotes the cells that need it.
std::string csvText(const CsvTable &table, CsvForm form = {});

} // namespace veskora
