#pragma once
/// @file
/// Where what a batch run makes goes: to the standard output and into files.

#include "ModelRun.h"

#include <iosfwd>
#include <set>

namespace veskora {

/// Prints and writes what is made of the models, one after the other. It replaces no model, nor
/// twice the same file.
class Delivery : public Receiver
{
public:
    Delivery(const Task &task, std::ostream &out, BatchDesktop &desktop);

    /// What comes next was made of @p model.
    void begin(const std::string &model);
    void take(std::size_t output, const Made &made) override;
    void end(bool failed, const CsvRow &summary) override;

    /// Writes the summary where one is ordered.
    void finish();

    /// Whether anything failed so far.
    bool hasFailed() const { return hasFailed_; }

private:
    void tellFailure(const std::string &subject, const std::string &what);
    std::string deliver(const std::string &target, const std::string &content, bool isPrinted);
    bool isPrinted(const Output &output) const;
    bool isModelOfRun(const std::string &target) const;
    std::string pathOf(const Output &output) const;
    void warnOfOldFiles();

    const Task &task_;
    std::ostream &out_;
    BatchDesktop &desktop_;
    std::set<std::string> models_, written_; ///< canonical
    CsvTable summary_;
    std::string model_; ///< whose turn it is
    bool modelFailed_ = false, hasFailed_ = false;
};

} // namespace veskora
