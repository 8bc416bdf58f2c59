#include "ModelRun.h"

#include "AnalysisCommands.h"
#include "Fault.h"
#include "Files.h"
#include "Metablites.h"
#include "ResultTables.h"

namespace veskora {

namespace {

/// @param status  follows how far it came
/// @return what went wrong, empty when nothing
std::string analyse(std::string model, const Order &order, ModelStatus &status)
{
    Anagnosi_Arxeiou(model);
    if (Onoma_Arxeiou.empty())
        return "not read";
    status = ModelStatus::singular;
    if (Arithmos_Kombon == 0)
        return "no nodes, nothing to analyse";
    Button_Epilisi();
    if (Sfalma_Epilisis)
        return "not analysed";
    status = mechanismSuspected ? ModelStatus::mechanism : ModelStatus::ok;
    return mechanismSuspected && order.strict ? "probably a mechanism" : "";
}

bool canBeMade(const Output &output, ModelStatus status)
{
    const bool hasResults = status == ModelStatus::ok || status == ModelStatus::mechanism;
    return hasResults || (!output.needsResults && status != ModelStatus::unreadable);
}

} // namespace

void runModel(const std::string &model, const Task &task, BatchDesktop &desktop, Receiver &receiver)
{
    bool failed = false;
    const auto attempt = [&](const auto &step) {
        std::string failure;
        try {
            failure = step();
        } catch (const Fault &fault) { // what would end a window program ends one step here
            failure = fault.facts();
        }
        desktop.finishLine();
        if (!failure.empty())
            desktop.tell(model + ": " + failure);
        failed = failed || !failure.empty();
        return failure.empty();
    };
    resetStore();
    ModelStatus status = ModelStatus::unreadable;
    attempt([&] { return analyse(model, task.order, status); });
    for (std::size_t i = 0; i < task.outputs.size(); ++i) {
        if (!canBeMade(task.outputs[i], status))
            continue;
        Made made;
        const bool isMade = attempt([&] {
            made = task.outputs[i].make(task.order);
            return std::string();
        });
        if (isMade)
            receiver.take(i, made);
    }
    CsvRow summary;
    if (!task.order.summary.empty())
        attempt([&] {
            summary = summaryRow(model, status);
            return std::string();
        });
    receiver.end(failed, summary);
}

} // namespace veskora
