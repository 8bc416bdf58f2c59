#include "ResultTables.h"

#include "Equilibrium.h"
#include "Functions_Bres_Megista.h"
#include "MathFunc.h"
#include "MomentAlongElement.h"
#include "RowQueries.h"

#include <cmath>

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

void append(CsvRow &row, const PlacedMoment &moment)
{
    for (const std::string &cell :
         {csvNumber(moment.value), numberText(moment.element), csvNumber(moment.x)})
        row.push_back(cell);
}

double displacementOf(int n)
{
    const double x = Metatopiseis(freedomOf(n, 1));
    const double y = Metatopiseis(freedomOf(n, 2));
    return std::sqrt(x * x + y * y);
}

int nodeOfLargestDisplacement()
{
    int most = 1;
    for (int n = 2; n <= Arithmos_Kombon; ++n)
        if (displacementOf(n) > displacementOf(most))
            most = n;
    return most;
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

CsvTable spansTable()
{
    CsvTable table = {{"element", "x", "M"}};
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (const auto extreme = momentBetweenEnds(e))
            table.push_back({numberText(e), csvNumber(extreme->x), csvNumber(extreme->value)});
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
        if (const auto range = momentRange()) {
            append(row, range->largest);
            append(row, range->smallest);
        } else
            row.resize(row.size() + 6);
        const int n = nodeOfLargestDisplacement();
        const auto sums = std::get<Equilibrium>(checkEquilibrium().facts);
        for (const std::string &cell :
             {csvNumber(displacementOf(n)), numberText(n), csvNumber(sums.x.loads),
              csvNumber(sums.y.loads), csvNumber(sums.x.reactions), csvNumber(sums.y.reactions)})
            row.push_back(cell);
    }
    row.resize(summaryHeader().size());
    return row;
}

} // namespace veskora
