#pragma once
/// @file
/// Calls of the operating system that fail.

#include <string>
#include <vector>

/// A system call that answers an error instead, from its @p first call to its @p last.
struct Refusal
{
    std::string call;
    int error;
    int first = 1, last = 1000;
};
inline std::vector<Refusal> refusals; ///< in force
