#pragma once
/// @file
/// Grids as spreadsheet workbooks.

#include <QStringList>

#include <string>
#include <vector>

class QWidget;

namespace veskora {

class ResultGrid;

/// Writes @p grid cell by cell into a workbook of its own, on a sheet named after @p section. It
/// stands beside the file of the model, @p model, else, or where that is an example, in a folder of
/// the user's, under a name that no file has yet, which the log tells. A failure is reported to the
/// user. The lines @p told stand in red over the cells.
/// @return its path, empty when it could not be written
std::string ExportFlexGrid(const ResultGrid &grid, const std::string &section,
                           const std::string &model, const std::vector<std::string> &told = {});

/// Opens workbooks in the desktop's spreadsheet program, each by itself, and does not wait for it.
/// A failure, such as no such program, is reported over @p window, once for all of them; where one
/// of them alone is not opened, with its path.
void openWorkbooks(const QStringList &paths, QWidget *window);

/// @p section as a workbook allows it for a sheet: no character that is kept for references, 31
/// characters at most.
std::string sheetName(const std::string &section);

} // namespace veskora
