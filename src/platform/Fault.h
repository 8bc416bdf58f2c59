#pragma once
/// @file
/// The one fault type of the program.

#include <exception>
#include <string>

namespace veskora {

/// What a run-time error is to this program: a subscript out of range, a division by zero where it
/// is tested, a file that ends early, a write that failed.
///
/// It is caught in few places only, which docs/architecture.md lists, and once around everything at
/// the edge of the process.
class Fault : public std::exception
{
public:
    /// @param facts  what happened and where, one line of plain English without a full stop
    explicit Fault(std::string facts) : facts_(std::move(facts)) {}

    const std::string &facts() const noexcept { return facts_; }
    const char *what() const noexcept override { return facts_.c_str(); }

private:
    std::string facts_;
};

} // namespace veskora
