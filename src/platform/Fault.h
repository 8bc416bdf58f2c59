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
    enum class Kind {
        subscript,      ///< a row or column outside its table
        divisionByZero, ///< a divisor that is exactly 0
        overflow,       ///< a result that is infinite or not a number
        input,          ///< a file holds something that the program cannot have written
        system,         ///< the operating system refused
    };

    /// @param facts  what happened and where, one line of plain English without a full stop
    Fault(Kind kind, std::string facts) : kind_(kind), facts_(std::move(facts)) {}

    Kind kind() const noexcept { return kind_; }
    const std::string &facts() const noexcept { return facts_; }
    const char *what() const noexcept override { return facts_.c_str(); }

private:
    Kind kind_;
    std::string facts_;
};

} // namespace veskora
