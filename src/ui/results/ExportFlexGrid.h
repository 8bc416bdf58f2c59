#pragma once
/// @file
/// Grids as spreadsheet workbooks.

#include <string>

namespace veskora {

class ResultGrid;

/// Writes @p grid cell by cell into a workbook of its own, on a sheet named after @p section, and
/// opens it in the desktop's spreadsheet program. The file stays: it stands beside that of the
/// model,
/// @p model, else in a folder of the user's, under a name that no file has yet, which the log
/// tells. A failure, such as no spreadsheet program, is reported to the user.
void ExportFlexGrid(const ResultGrid &grid, const std::string &section, const std::string &model);

/// @p section as a workbook allows it for a sheet: no character that is kept for references, 31
/// characters at most.
std::string sheetName(const std::string &section);

} // namespace veskora
