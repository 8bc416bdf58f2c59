#include "Batch.h"

#include "BatchDesktop.h"
#include "Delivery.h"
#include "Files.h"
#include "Jobs.h"
#include "Version.h"

#include <algorithm>
#include <filesystem>
#include <ostream>

namespace fs = std::filesystem;

namespace veskora {

namespace {

std::vector<Output> orderedOutputs(const Order &order, const Drawings &drawings)
{
    std::vector<Output> ordered;
    for (const std::span<const Output> outputs : {plainOutputs(), drawings.outputs})
        for (const Output &output : outputs)
            if (output.ordered == nullptr || order.*output.ordered)
                ordered.push_back(output);
    return ordered;
}

/// @return what stands in the way of the whole run, and the status to end with
std::pair<std::string, int> obstacle(const Order &order)
{
    if (!order.folder.empty()) {
        std::error_code error;
        fs::create_directories(order.folder, error);
        if (error)
            return {order.folder + ": " + error.message(), batchStatus::someFailed};
    }
    if (holdsModel(order.summary)) // told before the work that would be lost
        return {order.summary + " holds a model and is no place for a summary",
                batchStatus::wrongUsage};
    return {};
}

/// While it lives, what the store has to say goes to it.
class DesktopInUse
{
public:
    explicit DesktopInUse(Desktop &desktop) { setDesktop(&desktop); }
    ~DesktopInUse() { setDesktop(nullptr); }
    DesktopInUse(const DesktopInUse &) = delete;
    DesktopInUse &operator=(const DesktopInUse &) = delete;
};

} // namespace

bool needsDrawings(const Order &order)
{
    return !order.help && (order.version || (order.complaint.empty() && order.wantsDrawings()));
}

int runBatch(const std::vector<std::string> &arguments, std::ostream &out, std::ostream &err,
             const Drawings &drawings)
{
    const Order order = parse(arguments);
    if (order.help || order.version) {
        if (order.help)
            out << usage;
        else
            out << "Veskora_batch " << programVersion << "\n"
                << (drawings.toolkit.empty() ? "" : drawings.toolkit + "\n");
        return out.flush() ? batchStatus::allAnalysed : batchStatus::someFailed;
    }
    if (!order.complaint.empty()) {
        err << "Veskora_batch: " << order.complaint << "\n\n" << usage;
        return batchStatus::wrongUsage;
    }
    BatchDesktop desktop(err);
    if (const auto [what, status] = obstacle(order); !what.empty()) {
        desktop.tell(what);
        return status;
    }
    const DesktopInUse inUse(desktop);
    const Task task = {order, orderedOutputs(order, drawings), drawings.start};
    Delivery delivery(task, out, desktop);
    if (const int jobs = std::min(order.jobs, static_cast<int>(order.models.size())); jobs > 1) {
        err.flush(); // else each process would have what waits
        runInProcesses(jobs, task, delivery, desktop, err);
    } else {
        if (task.start)
            task.start();
        for (const std::string &model : order.models) {
            delivery.begin(model);
            runModel(model, task, desktop, delivery);
        }
    }
    delivery.finish();
    return delivery.hasFailed() ? batchStatus::someFailed : batchStatus::allAnalysed;
}

} // namespace veskora
