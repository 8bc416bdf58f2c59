#pragma once
/// @file
/// Results as tables for other programs. They are made of the store as it stands; numbers have the
/// model's own units, and all the digits of the analysis.

#include "Csv.h"

namespace veskora {

/// Two rows for each element: end, node, N, Q and M in the signs of the diagrams, and the forces
/// that the node applies to the end, in local axes, as the report has them.
CsvTable endsTable();

/// A row for each extreme of M between the ends of an element; x is measured along it from end i.
CsvTable spansTable();

/// A row for each node. A reaction stands where the node is restrained or held by a spring.
CsvTable nodesTable();

enum class ModelStatus {
    ok,
    mechanism,  ///< analysed, but the structure can probably move
    singular,   ///< read, but not analysed
    unreadable, ///< not read
};

/// The names of the columns of a summary.
CsvRow summaryHeader();

/// The row of @p model, whose results stand in the store where there are any.
CsvRow summaryRow(const std::string &model, ModelStatus status);

} // namespace veskora
