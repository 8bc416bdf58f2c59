#pragma once
/// @file
/// The blocks of a document with their measures on a sheet.

#include "Document.h"
#include "PageFlow.h"

namespace veskora {

/// In the document's order, one for each block.
std::vector<std::unique_ptr<PrintedBlock>> printedBlocks(const Document &document,
                                                         const Sheet &sheet);

/// Tells the contents where the headings have come to stand.
void tellPages(const std::vector<std::unique_ptr<PrintedBlock>> &blocks,
               const std::vector<Page> &pages);

} // namespace veskora
