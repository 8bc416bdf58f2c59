// The batch runner's command line under arbitrary arguments, one to a line: a complaint, which ends
// the run as wrong usage, or an order within its limits that can be given again in other words.

#include "Batch.h"
#include "FuzzTarget.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Order.h"

#include <algorithm>
#include <sstream>

namespace veskora {
namespace {

using Arguments = std::vector<std::string>;

Arguments lines(std::string_view text)
{
    Arguments arguments;
    for (bool isLast = text.empty(); !isLast;) {
        const std::size_t end = text.find('\n');
        arguments.emplace_back(text.substr(0, end));
        isLast = end == std::string_view::npos;
        text.remove_prefix(isLast ? text.size() : end + 1);
    }
    return arguments;
}

bool isWithin(double value, double least, double most)
{
    return value >= least && value <= most;
}

bool isName(const std::string &text)
{
    return !text.starts_with('-');
}

void requireWithinLimits(const Order &order)
{
    require(!order.models.empty() && std::ranges::count(order.models, "") == 0, "models");
    require(isWithin(order.width, 200, 8000) && isWithin(order.height, 200, 8000), "size");
    require(isWithin(order.labelScale, 0.5, 4), "label scale");
    require(isWithin(order.parts, 1, 100), "parts");
    require(isWithin(order.shownSteps.digits, 1, 15), "digits");
    for (const int row : order.shownSteps.elements)
        require(isWithin(row, 1, 300), "element");
    require(!order.paper || order.paper == "A4" || order.paper == "Letter", "paper");
    require(order.title.value_or("").size() <= 200 && order.author.value_or("").size() <= 200,
            "texts");
    require(isName(order.folder) && (isName(order.summary) || order.summary == "-"), "places");
    require(!order.summary.ends_with(".vsk"), "a summary in a model's place");
    require(!order.print || (order.folder.empty() && !order.csv && !order.values), "one output");
    require(!order.print || order.summary != "-", "one thing printed");
    require(order.wantsPictures() || !order.fit, "pictures");
    require(order.pdf || (!order.paper && !order.title && !order.author), "report");
}

/// The same order, every option that has a value with one.
Arguments written(const Order &order)
{
    Arguments arguments;
    const auto give = [&](bool isGiven, const char *name, const std::string &value = {}) {
        if (isGiven)
            arguments.emplace_back(name);
        if (isGiven && !value.empty())
            arguments.push_back(value);
    };
    give(order.print, "-");
    give(order.check, "--check");
    give(order.csv, "--csv");
    give(order.values, "--values", std::to_string(order.parts));
    give(order.regional, "--regional");
    give(order.pngPictures, "--pictures=png");
    give(order.svgPictures, "--pictures=svg");
    give(order.pdfPictures, "--pictures=pdf");
    give(order.pdf, "--pdf");
    give(order.steps, "--steps");
    give(order.fit, "--fit");
    give(order.strict, "--strict");
    give(order.help, "--help");
    give(order.version, "--version");
    give(!order.folder.empty(), "--out", order.folder);
    give(!order.summary.empty(), "--summary", order.summary);
    std::string elements;
    for (const int row : order.shownSteps.elements)
        (elements += elements.empty() ? "" : ",") += std::to_string(row);
    give(!elements.empty(), "--steps-elements", elements);
    give(order.shapesSteps, "--steps-digits", std::to_string(order.shownSteps.digits));
    give(order.wantsPictures(), "--size",
         std::to_string(order.width) + "x" + std::to_string(order.height));
    give(order.wantsPictures(), "--label-scale", numberText(order.labelScale));
    const auto text = [&](const char *name, const std::optional<std::string> &value) {
        if (value)
            arguments.insert(arguments.end(), {name, *value});
    };
    text("--paper", order.paper);
    text("--title", order.title);
    text("--author", order.author);
    arguments.emplace_back("--");
    arguments.insert(arguments.end(), order.models.begin(), order.models.end());
    return arguments;
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
        const Order again = parse(written(order));
        require(again.complaint.empty() && written(again) == written(order),
                "an order can be given again");
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
