#pragma once
/// @file
/// Models in, reports out, without a window.

#include "Outputs.h"

#include <functional>
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

/// What a program with a toolkit makes besides.
struct Drawings
{
    std::span<const Output> outputs = {};
    std::string toolkit = {};         ///< its name and version
    std::function<void()> start = {}; ///< called in each process that draws, before its first model
};

/// Whether these arguments ask for what only `Drawings` have: pictures, a PDF among them, the steps
/// of the analysis, the version of the toolkit.
bool needsDrawings(const Order &order);

/// Runs `Veskora_batch` with the arguments behind the program's name: reads each model, analyses it
/// and writes what is ordered: report, check, tables, pictures; check and model picture even where
/// the analysis fails. Every model starts from a fresh store with the default settings, and a
/// failure of one does not keep the next from its turn. The summary of all comes last. An
/// unconnected node is reported and kept.
///
/// @param out  where "-" prints the reports, and "--summary -" the summary
/// @param err  what the message log would say, and why a model failed
/// @return one of `batchStatus`
int runBatch(const std::vector<std::string> &arguments, std::ostream &out, std::ostream &err,
             const Drawings &drawings = {});

} // namespace veskora
