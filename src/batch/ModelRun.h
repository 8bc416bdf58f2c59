#pragma once
/// @file
/// What a batch run makes of one model.

#include "BatchDesktop.h"
#include "Csv.h"
#include "Outputs.h"

#include <functional>

namespace veskora {

/// Who is given what was made of a model. The log line is ended before.
class Receiver
{
public:
    virtual ~Receiver() = default;

    /// @param output  counts the outputs of the run from 0
    virtual void take(std::size_t output, const Made &made) = 0;

    /// Nothing more comes of this model.
    /// @param failed   something else failed than what was handed over
    /// @param summary  its row, where a summary is ordered
    virtual void end(bool failed, const CsvRow &summary) = 0;
};

/// What a run is to do, for all its models.
struct Task
{
    const Order &order;
    std::vector<Output> outputs; ///< those that are ordered
    std::function<void()> start; ///< called once in each process, before its first model; or null
};

/// Reads and analyses @p model in a fresh store and hands over what is ordered. What fails on the
/// way is told.
void runModel(const std::string &model, const Task &task, BatchDesktop &desktop,
              Receiver &receiver);

} // namespace veskora
