#include "ResultTables.h"

#include "AlongElement.h"
#include "Equilibrium.h"
#include "Extremes.h"
#include "MathFunc.h"
#include "RowQueries.h"

#include <array>
#include <optional>

namespace veskora {

namespace {

CsvRow endRow(int e, const char *name, int nodeColumn, double (StressResultant::*at)(int) const,
              int firstForce)
{
    CsvRow row = {numberText(e), name, numberText(nodeOf(e, nodeColumn))};
    for (const StressResultant &resultant : {resultantN, resultantQ, resultantM})
        row.push_back(csvNumber((resultant.*at)(e)));
    for (int column = firstForce; column < firstForce + 3; ++column)
        row.push_back(csvNumber(Entasi_Topiki(e, column)));
    return row;
}

/// M, element and x of the largest and of the smallest moment; empty cells where there is no
/// element.
void appendMoments(CsvRow &row)
{
    const std::optional<ForceRange> range = forceRange(resultantM);
    if (!range) {
        row.resize(row.size() + 6);
        return;
    }
    for (const auto &[e, x, M] : {range->largest, range->smallest})
        row.insert(row.end(), {csvNumber(M), numberText(e), csvNumber(x)});
}

std::string cellOf(const std::optional<double> &value)
{
    return value ? csvNumber(*value) : "";
}

const std::array<std::string, 4> marks = {"M_extreme", "deflection_extreme", "Q_zero", "M_zero"};

const CsvRow valuesHeader = {"element", "x",          "x/L", "N",  "Q",
                             "M",       "deflection", "dx",  "dy", "place"};

void appendValues(CsvTable &table, int parts, int e)
{
    const AlongElement along = alongElement(e);
    for (const Station &station : stations(along, parts)) {
        const StationValues at = valuesAt(along, station);
        CsvRow &row = table.emplace_back();
        row.reserve(valuesHeader.size());
        row.push_back(numberText(e));
        row.push_back(csvNumber(station.x));
        row.push_back(csvNumber(station.x / along.length));
        for (const auto &value : {at.N, at.Q, at.M, at.v, at.dx, at.dy})
            row.push_back(cellOf(value));
        row.push_back(markNames(station.marks, marks, " "));
    }
}

const char *textOf(ModelStatus status)
{
    switch (status) {
    case ModelStatus::ok:
        return "ok";
    case ModelStatus::mechanism:
        return "mechanism";
    case ModelStatus::singular:
        return "singular";
    case ModelStatus::killed:
        return "killed";
    case ModelStatus::unreadable:
        break;
    }
    return "unreadable";
}

} // namespace

CsvTable endsTable()
{
    CsvTable table = {
        {"element", "end", "node", "N", "Q", "M", "axial_force", "shear_force", "moment"}};
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        table.push_back(endRow(e, "i", element::nodeI, &StressResultant::atI, 1));
        table.push_back(endRow(e, "j", element::nodeJ, &StressResultant::atJ, 4));
    }
    return table;
}

CsvTable spansTable(int parts)
{
    CsvTable table = {{"element", "x", "M"}};
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        const AlongElement along = alongElement(e);
        for (const Station &station : stations(along, parts))
            if ((station.marks & placeMark::extremeM) != 0)
                table.push_back(
                    {numberText(e), csvNumber(station.x), cellOf(valuesAt(along, station).M)});
    }
    return table;
}

CsvTable nodesTable()
{
    CsvTable table = {{"node", "ux", "uy", "rotation", "Rx", "Ry", "Mz"}};
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        CsvRow row = {numberText(n)};
        for (int k = 1; k <= 3; ++k)
            row.push_back(csvNumber(Metatopiseis(freedomOf(n, k))));
        for (int k = 1; k <= 3; ++k) {
            const auto reaction = reactionAt(n, k);
            row.push_back(reaction ? csvNumber(*reaction) : "");
        }
        table.push_back(std::move(row));
    }
    return table;
}

CsvTable valuesTable(int parts)
{
    CsvTable table = {valuesHeader};
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        appendValues(table, parts, e);
    return table;
}

CsvTable valuesTable(int parts, int e)
{
    CsvTable table = {valuesHeader};
    appendValues(table, parts, e);
    return table;
}

CsvRow summaryHeader()
{
    return {"model",   "status",        "max_M",       "max_M_element",    "max_M_x",
            "min_M",   "min_M_element", "min_M_x",     "max_displacement", "max_displacement_node",
            "loads_x", "loads_y",       "reactions_x", "reactions_y"};
}

CsvRow summaryRow(const std::string &model, ModelStatus status)
{
    CsvRow row = {model, textOf(status)};
    if (status == ModelStatus::ok || status == ModelStatus::mechanism) {
        appendMoments(row);
        const int n = nodeOfLargestDisplacement();
        const auto sums = std::get<Equilibrium>(checkEquilibrium().facts);
        row.insert(row.end(), {csvNumber(displacementOf(n)), numberText(n)});
        for (const double sum : {sums.x.loads, sums.y.loads, sums.x.reactions, sums.y.reactions})
            row.push_back(csvNumber(sum));
    }
    row.resize(summaryHeader().size());
    return row;
}

} // namespace veskora
