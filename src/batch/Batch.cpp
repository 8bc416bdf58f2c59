#include "Batch.h"

#include "Anafora.h"
#include "AnalysisCommands.h"
#include "BatchDesktop.h"
#include "CheckText.h"
#include "Fault.h"
#include "Files.h"
#include "FileSystem.h"
#include "ImageKanvas.h"
#include "Metablites.h"
#include "ModelCheck.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <ostream>
#include <set>

namespace fs = std::filesystem;

namespace veskora {

namespace {

constexpr const char *usage =
    "Usage: Veskora_batch [--out DIR | -] [--check] [--pictures] MODEL.vsk...\n"
    "\n"
    "Analyses plane frames and writes the report of each MODEL.vsk as MODEL.txt.\n"
    "\n"
    "  --out DIR  folder of the reports, made when it is not there; the working\n"
    "             directory when not given\n"
    "  -          print the reports instead\n"
    "  --check    write MODEL_check.txt too, or print it behind the report: free\n"
    "             motions, equilibrium, correct digits and slips of modelling; also of\n"
    "             a model whose analysis fails\n"
    "  --pictures write MODEL_model.png, MODEL_M.png, MODEL_Q.png, MODEL_N.png\n"
    "             and MODEL_D.png too, the whole model in view\n"
    "  --         what follows is a model, whatever it begins with\n"
    "  --help     this text\n"
    "\n"
    "Exit status: 0 all models analysed, 1 some could not be read or analysed, or\n"
    "--check found that one can move freely, 2 wrong usage.\n";

struct Order
{
    bool print = false;
    bool check = false;
    bool pictures = false;
    bool help = false;
    std::string folder; ///< empty: the working directory
    std::vector<std::string> models;
    std::string complaint; ///< not empty: wrong usage
};

Order parse(const std::vector<std::string> &arguments)
{
    Order order;
    bool onlyModels = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string &argument = arguments[i];
        if (onlyModels || !argument.starts_with('-'))
            order.models.push_back(argument);
        else if (argument == "--")
            onlyModels = true;
        else if (argument == "-")
            order.print = true;
        else if (argument == "--check")
            order.check = true;
        else if (argument == "--pictures")
            order.pictures = true;
        else if (argument == "--help" || argument == "-h")
            order.help = true;
        else if (argument == "--out" && order.folder.empty() && i + 1 < arguments.size())
            order.folder = arguments[++i];
        else if (argument == "--out")
            order.complaint = "--out needs one folder";
        else
            order.complaint = "unknown option " + argument;
    }
    if (order.print && !order.folder.empty())
        order.complaint = "--out and - exclude each other";
    if (order.models.empty() || std::ranges::count(order.models, "") > 0)
        order.complaint = order.complaint.empty() ? "no model given" : order.complaint;
    return order;
}

/// One run over all models.
class BatchRun
{
public:
    BatchRun(const Order &order, std::ostream &out, std::ostream &err)
        : order_(order), out_(out), err_(err), desktop_(err)
    {
        setDesktop(&desktop_);
    }
    ~BatchRun() { setDesktop(nullptr); }
    BatchRun(const BatchRun &) = delete;
    BatchRun &operator=(const BatchRun &) = delete;

    /// @return whether all went well that was ordered for the model
    bool run(const std::string &model)
    {
        resetStore();
        bool isDone = succeeds(model, &BatchRun::process);
        if (order_.check && !Onoma_Arxeiou.empty())
            isDone = succeeds(model, &BatchRun::check) && isDone;
        if (!isDone) {
            warnOfOldFile(reportPath(model));
            if (order_.check)
                warnOfOldFile(checkPath(model));
        }
        return isDone;
    }

private:
    /// Whether @p step says nothing of @p model; what it says, or a fault in it, is told.
    bool succeeds(const std::string &model, std::string (BatchRun::*step)(const std::string &))
    {
        std::string failure;
        try {
            failure = (this->*step)(model);
        } catch (const Fault &fault) { // what would end a window program ends one step here
            failure = fault.facts();
        }
        desktop_.finishLine();
        if (!failure.empty())
            err_ << "Veskora_batch: " << model << ": " << failure << std::endl;
        return failure.empty();
    }

    /// Reads and analyses the model and writes its report and pictures.
    /// @return what went wrong, empty when nothing
    std::string process(const std::string &model)
    {
        std::string path = model;
        Anagnosi_Arxeiou(path);
        if (Onoma_Arxeiou.empty())
            return "not read";
        if (Arithmos_Kombon == 0)
            return "no nodes, nothing to analyse";
        Button_Epilisi();
        if (Sfalma_Epilisis)
            return "not analysed";
        std::string report;
        for (const ReportSection &section : reportSections)
            report += section.text();
        const std::string failure = deliver(reportPath(model), reportFileText(report));
        return failure.empty() && order_.pictures ? drawPictures(model) : failure;
    }

    /// Writes the check of the model, analysed or not.
    std::string check(const std::string &model)
    {
        const std::vector<Finding> findings = checkModel();
        const std::string failure = deliver(checkPath(model), checkText(findings));
        return failure.empty() && hasFreeMotion(findings) ? "the structure can move freely"
                                                          : failure;
    }

    std::string deliver(const std::string &target, const std::string &text)
    {
        if (order_.print) {
            out_ << text << std::flush;
            return out_ ? "" : target + " could not be printed";
        }
        if (!written_.insert(target).second)
            return target + " was written in this run already";
        if (isModelOfRun(target))
            return target + " is a model of this run and no place for a report";
        try {
            writeWholeFile(target, text, Durability::onDisk);
        } catch (const Fault &fault) {
            return target + ": " + fault.facts();
        }
        return {};
    }

    /// A report left from an earlier run must not pass for one of this model as it is now.
    void warnOfOldFile(const std::string &target)
    {
        std::error_code ignored;
        if (!order_.print && !written_.contains(target) && fs::exists(target, ignored)
            && !isModelOfRun(target))
            err_ << "Veskora_batch: " << target << " is from an earlier run" << std::endl;
    }

    /// The five views of the model at best fit.
    std::string drawPictures(const std::string &model)
    {
        using Ending = std::pair<std::int16_t, const char *>;
        constexpr std::array endings = {
            Ending{view::model, "_model.png"}, Ending{view::M, "_M.png"}, Ending{view::Q, "_Q.png"},
            Ending{view::N, "_N.png"}, Ending{view::deformed, "_D.png"}};
        const QSize size(1280, 800);
        ImageKanvas kanvas(size);
        kanvas.setBackground(xroma_background);
        setPicture1(&kanvas);
        Zoom_Best_Fit();
        std::string failure;
        for (const auto &[shown, ending] : endings) {
            if (!failure.empty())
                break;
            Katastasi_Provolis = shown;
            Ananeosi_Sxediou();
            const std::string path = pathWithout(model) + ending;
            if (!written_.insert(path).second)
                failure = path + " was written in this run already";
            else if (!writeImage(kanvas.image(), QString::fromStdString(path), "png"))
                failure = path + ": the picture could not be written";
        }
        setPicture1(nullptr);
        return failure;
    }

    /// Where the results of a model go, without an extension.
    std::string pathWithout(const std::string &model) const
    {
        return (fs::path(order_.folder) / fs::path(model).stem()).string();
    }

    std::string reportPath(const std::string &model) const { return pathWithout(model) + ".txt"; }
    std::string checkPath(const std::string &model) const
    {
        return pathWithout(model) + "_check.txt";
    }

    bool isModelOfRun(const std::string &target) const
    {
        return std::ranges::any_of(order_.models, [&](const std::string &model) {
            std::error_code ignored;
            return fs::equivalent(model, target, ignored);
        });
    }

    const Order &order_;
    std::ostream &out_;
    std::ostream &err_;
    BatchDesktop desktop_;
    std::set<std::string> written_;
};

} // namespace

bool wantsPictures(const std::vector<std::string> &arguments)
{
    return parse(arguments).pictures;
}

int runBatch(const std::vector<std::string> &arguments, std::ostream &out, std::ostream &err)
{
    const Order order = parse(arguments);
    if (order.help) {
        out << usage << std::flush;
        return out ? batchStatus::allAnalysed : batchStatus::someFailed;
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
    BatchRun run(order, out, err);
    bool allAnalysed = true;
    for (const std::string &model : order.models)
        allAnalysed = run.run(model) && allAnalysed;
    return allAnalysed ? batchStatus::allAnalysed : batchStatus::someFailed;
}

} // namespace veskora
