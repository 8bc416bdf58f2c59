// The batch runner's command line under arbitrary arguments, one to a line: a complaint, which ends
// the run as wrong usage, or an order within its limits.

#include "Batch.h"
#include "FuzzTarget.h"
#include "Metablites.h"
#include "Order.h"

#include <algorithm>
#include <sstream>

namespace veskora {
namespace {

using Arguments = std::vector<std::string>;

void requireWithinLimits(const Order &order)
{
    const auto isWithin = [](int value, int most) { return value >= 1 && value <= most; };
    require(isWithin(order.parts, maxParts), "parts");
    require(isWithin(order.shownSteps.digits, steps::mostDigits), "digits");
    for (const int row : order.shownSteps.elements)
        require(isWithin(row, maxElements), "element");
    require(order.width > 0 && order.height > 0 && order.labelScale > 0, "pictures");
    require(!order.models.empty() && std::ranges::count(order.models, "") == 0, "models");
}

/// Whatever stands before it, a name at the end is one more model.
void requireOneMore(Order order, Arguments arguments)
{
    arguments.emplace_back("another.vsk");
    order.models.push_back(arguments.back());
    const Order more = parse(arguments);
    require(more.complaint.empty() && more.models == order.models, "one more model");
}

} // namespace
} // namespace veskora

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    using namespace veskora;
    const Arguments arguments = lines(bytes(data, size));
    const Order order = parse(arguments);
    if (order.complaint.empty()) {
        requireWithinLimits(order);
        requireOneMore(order, arguments);
    }
    const bool asks = order.help || order.version;
    if (asks || !order.complaint.empty()) { // nothing else is safe to run here
        std::ostringstream out, err;
        const int status = runBatch(arguments, out, err);
        require(status == (asks ? batchStatus::allAnalysed : batchStatus::wrongUsage),
                "the status says whether something was wrong");
        require(out.view().empty() != asks && err.view().empty() == asks, "one of the outputs");
        require(!order.help || out.view() == usage, "the usage is what was asked for");
        require(asks
                    || (err.view().ends_with(usage)
                        && err.view().find(order.complaint) != std::string::npos),
                "a complaint is told, and the usage");
    }
    return 0;
}
