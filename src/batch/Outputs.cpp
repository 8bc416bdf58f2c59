#include "Outputs.h"

#include "Anafora.h"
#include "CheckText.h"
#include "Metablites.h"
#include "ModelCheck.h"
#include "Pictures.h"
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

Made values(const Order &order)
{
    return {csvText(valuesTable(order.parts), csvForm(order)), {}, {}};
}

template <std::int16_t shown>
Made picture(const Order &order)
{
    return drawPicture(shown, order);
}

} // namespace

CsvForm csvForm(const Order &order)
{
    return order.regional ? CsvForm::regional : CsvForm::international;
}

std::span<const Output> outputs()
{
    static constexpr auto all = std::to_array<Output>({
        {".txt", nullptr, true, true, report},
        {"_check.txt", &Order::check, false, true, check},
        {"_ends.csv", &Order::csv, true, false, csv<endsTable>},
        {"_spans.csv", &Order::csv, true, false, csv<spansTable>},
        {"_nodes.csv", &Order::csv, true, false, csv<nodesTable>},
        {"_values.csv", &Order::values, true, false, values},
        {"_model.png", &Order::pictures, false, false, picture<view::model>},
        {"_M.png", &Order::pictures, true, false, picture<view::M>},
        {"_Q.png", &Order::pictures, true, false, picture<view::Q>},
        {"_N.png", &Order::pictures, true, false, picture<view::N>},
        {"_D.png", &Order::pictures, true, false, picture<view::deformed>},
    });
    return all;
}

} // namespace veskora
