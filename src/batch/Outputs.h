#pragma once
/// @file
/// The files that the batch runner makes of a model.

#include "Csv.h"
#include "Order.h"

#include <span>

namespace veskora {

/// What was made for a file.
struct Made
{
    std::string content; ///< empty: there is none, and no file
    std::string note;    ///< told to the user, though nothing failed
    std::string failure; ///< why the model counts as failed, though what content there is is whole
};

/// A file of each model.
struct Output
{
    const char *ending;   ///< behind the model's name
    bool Order::*ordered; ///< what orders it; null where it is always made
    bool needsResults;    ///< else it is made of each model that can be read
    bool isPrinted;       ///< "-" prints it in place of the file
    Made (*make)(const Order &order);
};

/// How the tables of the run are written, but for the values along the elements.
CsvForm csvForm(const Order &order);

/// Those that need no toolkit, in the order in which they are made.
std::span<const Output> plainOutputs();

} // namespace veskora
