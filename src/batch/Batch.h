#pragma once
/// @file
/// Models in, reports out, without a window.

#include <iosfwd>
#include <string>
#include <vector>

namespace veskora {

/// Exit status of a batch run.
namespace batchStatus {
inline constexpr int allAnalysed = 0;
inline constexpr int someFailed =
    1; ///< a model could not be read or analysed, a file not written, or a free motion was found
inline constexpr int wrongUsage = 2;
} // namespace batchStatus

/// Whether these arguments ask for pictures, a PDF among them, which need Qt's fonts: a
/// `QGuiApplication` must exist while `runBatch` runs.
bool needsFonts(const std::vector<std::string> &arguments);

/// Runs `Veskora_batch` with the arguments behind the program's name: reads each model, analyses it
/// and writes what is ordered: report, check, tables, pictures; check and model picture even where
/// the analysis fails. Every model starts from a fresh store with the default settings, and a
/// failure of one does not keep the next from its turn. The summary of all comes last. An
/// unconnected node is reported and kept.
///
/// @param out  where "-" prints the reports, and "--summary -" the summary
/// @param err  what the message log would say, and why a model failed
/// @return one of `batchStatus`
int runBatch(const std::vector<std::string> &arguments, std::ostream &out, std::ostream &err);

} // namespace veskora
