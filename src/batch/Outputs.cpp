#include "Outputs.h"

#include "Anafora.h"
#include "CheckText.h"
#include "ModelCheck.h"
#include "ResultTables.h"

#include <array>

namespace veskora {

namespace {

Made report(const Order &)
{
    return {reportFileText(reportOf([](const ReportSection &) { return true; })), {}, {}};
}

Made check(const Order &)
{
    const std::vector<Finding> findings = checkModel();
    return {checkText(findings),
            {},
            hasFreeMotion(findings) ? "the structure can move freely"
            : isUnstable(findings)  ? "the structure is unstable"
                                    : ""};
}

template <CsvTable (*table)()>
Made csv(const Order &order)
{
    return {csvText(table(), csvForm(order)), {}, {}};
}

Made spans(const Order &order)
{
    return {csvText(spansTable(order.parts), csvForm(order)), {}, {}};
}

Made values(const Order &order)
{
    return {csvText(valuesTable(order.parts), {.isRegional = order.regional}), {}, {}};
}

} // namespace

CsvForm csvForm(const Order &order)
{
    return {.isRegional = order.regional, .lineEnd = CsvForm::lf};
}

std::span<const Output> plainOutputs()
{
    static constexpr auto all = std::to_array<Output>({
        {".txt", nullptr, true, true, report},
        {"_check.txt", &Order::check, false, true, check},
        {"_ends.csv", &Order::csv, true, false, csv<endsTable>},
        {"_spans.csv", &Order::csv, true, false, spans},
        {"_nodes.csv", &Order::csv, true, false, csv<nodesTable>},
        {"_values.csv", &Order::values, true, false, values},
    });
    return all;
}

} // namespace veskora
