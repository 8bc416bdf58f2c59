#include "Batch.h"

#include "AnalysisCommands.h"
#include "BatchDesktop.h"
#include "Fault.h"
#include "Files.h"
#include "FileSystem.h"
#include "Metablites.h"
#include "Outputs.h"
#include "ResultTables.h"
#include "Version.h"

#include <QtGlobal>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>

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

/// One run over all models.
class BatchRun
{
public:
    BatchRun(const Order &order, std::ostream &out, std::ostream &err)
        : order_(order), out_(out), err_(err), desktop_(err)
    {
        setDesktop(&desktop_);
        for (const std::string &model : order.models)
            models_.insert(canonical(model));
    }
    ~BatchRun() { setDesktop(nullptr); }
    BatchRun(const BatchRun &) = delete;
    BatchRun &operator=(const BatchRun &) = delete;

    /// @return whether all went well that was ordered for the model
    bool run(const std::string &model)
    {
        resetStore();
        ModelStatus status = ModelStatus::unreadable;
        bool isDone = succeeds(model, [&] { return analyse(model, status); });
        for (const Output &output : outputs())
            if (isOrdered(output) && canBeMade(output, status))
                isDone = succeeds(model, [&] { return make(output, model); }) && isDone;
        if (!isDone)
            warnOfOldFiles(model);
        if (!order_.summary.empty())
            isDone = succeeds(model,
                              [&] {
                                  summary_.push_back(summaryRow(model, status));
                                  return std::string();
                              })
                     && isDone;
        return isDone;
    }

    /// @return whether the summary was written, where it was ordered
    bool finish()
    {
        return order_.summary.empty() || succeeds("summary", [&] {
                   return deliver(order_.summary, csvText(summary_, csvForm(order_)),
                                  order_.summary == "-");
               });
    }

private:
    /// Whether @p step says nothing of @p subject; what it says, or a fault in it, is told.
    template <typename Step>
    bool succeeds(const std::string &subject, Step step)
    {
        std::string failure;
        try {
            failure = step();
        } catch (const Fault &fault) { // what would end a window program ends one step here
            failure = fault.facts();
        }
        desktop_.finishLine();
        if (!failure.empty())
            tell(subject, failure);
        return failure.empty();
    }

    void tell(const std::string &subject, const std::string &what)
    {
        desktop_.finishLine();
        err_ << "Veskora_batch: " << subject << ": " << what << std::endl;
    }

    /// @param status  follows how far it came
    /// @return what went wrong, empty when nothing
    std::string analyse(std::string model, ModelStatus &status)
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
        return mechanismSuspected && order_.strict ? "probably a mechanism" : "";
    }

    bool isOrdered(const Output &output) const
    {
        return output.ordered == nullptr || order_.*output.ordered;
    }

    static bool canBeMade(const Output &output, ModelStatus status)
    {
        const bool hasResults = status == ModelStatus::ok || status == ModelStatus::mechanism;
        return hasResults || (!output.needsResults && status != ModelStatus::unreadable);
    }

    std::string make(const Output &output, const std::string &model)
    {
        const Made made = output.make(order_);
        const std::string target = pathOf(output, model);
        if (!made.note.empty())
            tell(target, made.note);
        const std::string failure =
            made.content.empty() ? ""
                                 : deliver(target, made.content, order_.print && output.isPrinted);
        return failure.empty() ? made.failure : failure;
    }

    std::string deliver(const std::string &target, const std::string &content, bool isPrinted)
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
    void warnOfOldFiles(const std::string &model)
    {
        for (const Output &output : outputs()) {
            const std::string target = pathOf(output, model);
            std::error_code ignored;
            if (isOrdered(output) && !(order_.print && output.isPrinted)
                && !written_.contains(canonical(target)) && fs::exists(target, ignored)
                && !isModelOfRun(target) && !holdsModel(target))
                err_ << "Veskora_batch: " << target << " is from an earlier run" << std::endl;
        }
    }

    std::string pathOf(const Output &output, const std::string &model) const
    {
        return (fs::path(order_.folder) / fs::path(model).stem()).string() + output.ending;
    }

    bool isModelOfRun(const std::string &target) const
    {
        return models_.contains(canonical(target));
    }

    const Order &order_;
    std::ostream &out_;
    std::ostream &err_;
    BatchDesktop desktop_;
    std::set<std::string> models_, written_; ///< canonical
    CsvTable summary_ = {summaryHeader()};
};

} // namespace

bool needsFonts(const std::vector<std::string> &arguments)
{
    const Order order = parse(arguments);
    return order.wantsPictures() || order.pdf || order.steps;
}

int runBatch(const std::vector<std::string> &arguments, std::ostream &out, std::ostream &err)
{
    const Order order = parse(arguments);
    if (order.help || order.version) {
        if (order.help)
            out << usage;
        else
            out << "Veskora_batch " << programVersion << "\nQt " << qVersion() << "\n";
        return out.flush() ? batchStatus::allAnalysed : batchStatus::someFailed;
    }
    if (!order.complaint.empty()) {
        err << "Veskora_batch: " << order.complaint << "\n\n" << usage;
        return batchStatus::wrongUsage;
    }
    if (!order.folder.empty()) {
        std::error_code error;
        fs::create_directories(order.folder, error);
        if (error) {
            err << "Veskora_batch: " << order.folder << ": " << error.message() << "\n";
            return batchStatus::someFailed;
        }
    }
    if (holdsModel(order.summary)) { // told before the work that would be lost
        err << "Veskora_batch: " << order.summary
            << " holds a model and is no place for a summary\n";
        return batchStatus::wrongUsage;
    }
    BatchRun run(order, out, err);
    bool allAnalysed = true;
    for (const std::string &model : order.models)
        allAnalysed = run.run(model) && allAnalysed;
    allAnalysed = run.finish() && allAnalysed;
    return allAnalysed ? batchStatus::allAnalysed : batchStatus::someFailed;
}

} // namespace veskora
