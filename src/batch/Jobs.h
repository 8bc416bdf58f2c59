#pragma once
/// @file
/// Models of one run in several processes.

#include "Delivery.h"

#include <iosfwd>

namespace veskora {

/// Runs the models of @p task in up to @p jobs processes and hands what they make to @p delivery in
/// the order of the models, as if they ran here one after the other. What is ahead of its turn
/// waits in a temporary file without a name. The models of a process that is killed run in a new
/// one; a model that is killed twice has failed. Where the system gives no process, no temporary
/// file or no room in it, models run here: all that follow where three found no room, or where this
/// process has started to draw.
///
/// @param desktop  speaks to @p err
void runInProcesses(int jobs, const Task &task, Delivery &delivery, BatchDesktop &desktop,
                    std::ostream &err);

} // namespace veskora
