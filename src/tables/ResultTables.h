#pragma once
/// @file
/// Results as tables for other programs. They are made of the store as it stands; numbers have the
/// model's own units, and all the digits of the analysis.

#include "Csv.h"

namespace veskora {

/// Two rows for each element: end, node, N, Q and M in the signs of the diagrams, and the forces
/// that the node applies to the end, in local axes, as the report has them.
CsvTable endsTable();

/// A row for each extreme of M between the ends of an element, as `valuesTable` of @p parts has it;
/// x is measured along the element from end i.
CsvTable spansTable(int parts);

/// A row for each node. A reaction stands where the node is restrained or held by a spring.
CsvTable nodesTable();

/// A row for each of the `stations` of every element at @p parts equal parts: N, Q and M in the
/// signs of the diagrams, the deflection across the element, positive to the left seen from i to j,
/// the displacements along the global axes, and the marks of the place, parted by blanks. What
/// cannot be computed is an empty cell.
CsvTable valuesTable(int parts);
/// The same of element @p e alone.
CsvTable valuesTable(int parts, int e);

enum class ModelStatus {
    ok,
    mechanism,  ///< analysed, but the structure can probably move
    singular,   ///< read, but not analysed
    unreadable, ///< not read
    killed,     ///< the process that was to analyse it was killed
};

/// The names of the columns of a summary.
CsvRow summaryHeader();

/// The row of @p model, whose results stand in the store where there are any.
CsvRow summaryRow(const std::string &model, ModelStatus status);

} // namespace veskora
