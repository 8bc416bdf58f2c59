#pragma once
/// @file
/// Whether a workbook came onto the disk as it was meant.

#include <QStringList>

#include <string>

namespace veskora {

/// Reads the workbook @p path, of one sheet, back. The library that writes workbooks puts their
/// parts into temporary files first and does not look whether those took them: on a full disk it
/// packs what there is, and reports success.
/// @param texts  those of the cells that are not empty, row by row
/// @param cells  how many there are, empty ones too
/// Fault: a part of it is missing.
void requireWholeWorkbook(const std::string &path, const QStringList &texts, qsizetype cells);

} // namespace veskora
