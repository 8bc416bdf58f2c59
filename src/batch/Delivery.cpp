#include "Delivery.h"

#include "Fault.h"
#include "Files.h"
#include "FileSystem.h"
#include "ResultTables.h"

#include <filesystem>
#include <ostream>

namespace fs = std::filesystem;

namespace veskora {

namespace {

/// One path for one file, however it is written.
std::string canonical(const std::string &path)
{
    std::error_code error;
    const fs::path found = fs::weakly_canonical(path, error);
    return error ? path : found.string();
}

} // namespace

Delivery::Delivery(const Task &task, std::ostream &out, BatchDesktop &desktop)
    : task_(task), out_(out), desktop_(desktop), summary_({summaryHeader()})
{
    for (const std::string &model : task.order.models)
        models_.insert(canonical(model));
}

void Delivery::begin(const std::string &model)
{
    model_ = model;
    modelFailed_ = false;
}

void Delivery::take(std::size_t output, const Made &made)
{
    const Output &kind = task_.outputs[output];
    const std::string target = pathOf(kind);
    if (!made.note.empty())
        desktop_.tell(target + ": " + made.note);
    const std::string failure =
        made.content.empty() ? "" : deliver(target, made.content, isPrinted(kind));
    tellFailure(model_, failure.empty() ? made.failure : failure);
}

void Delivery::end(bool failed, const CsvRow &summary)
{
    modelFailed_ = modelFailed_ || failed;
    hasFailed_ = hasFailed_ || modelFailed_;
    if (modelFailed_)
        warnOfOldFiles();
    if (!summary.empty())
        summary_.push_back(summary);
}

void Delivery::finish()
{
    const std::string &target = task_.order.summary;
    if (!target.empty())
        tellFailure("summary",
                    deliver(target, csvText(summary_, csvForm(task_.order)), target == "-"));
    hasFailed_ = hasFailed_ || modelFailed_;
}

/// An empty text tells of none.
void Delivery::tellFailure(const std::string &subject, const std::string &what)
{
    if (what.empty())
        return;
    desktop_.tell(subject + ": " + what);
    modelFailed_ = true;
}

/// @return why it could not be done, empty when it was
std::string Delivery::deliver(const std::string &target, const std::string &content, bool isPrinted)
{
    if (isPrinted) {
        out_ << content << std::flush;
        return out_ ? "" : target + " could not be printed";
    }
    if (written_.contains(canonical(target)))
        return target + " was written in this run already";
    if (isModelOfRun(target))
        return target + " is a model of this run and no place for results";
    if (holdsModel(target))
        return target + " holds a model and is no place for results";
    try {
        writeWholeFile(target, content, Durability::onDisk);
    } catch (const Fault &fault) {
        return target + ": " + fault.facts();
    }
    written_.insert(canonical(target));
    return {};
}

/// A file left from an earlier run must not pass for one of this model as it is now.
void Delivery::warnOfOldFiles()
{
    for (const Output &output : task_.outputs) {
        const std::string target = pathOf(output);
        std::error_code ignored;
        if (!isPrinted(output) && !written_.contains(canonical(target))
            && fs::exists(target, ignored) && !isModelOfRun(target) && !holdsModel(target))
            desktop_.tell(target + " is from an earlier run");
    }
}

bool Delivery::isPrinted(const Output &output) const
{
    return task_.order.print && output.isPrinted;
}

std::string Delivery::pathOf(const Output &output) const
{
    return (fs::path(task_.order.folder) / fs::path(model_).stem()).string() + output.ending;
}

bool Delivery::isModelOfRun(const std::string &target) const
{
    return models_.contains(canonical(target));
}

} // namespace veskora
