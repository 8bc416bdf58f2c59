#pragma once
/// @file
/// System calls on files that fail when a drill wants it. The kernel hands each of them to this
/// process first (seccomp), so that those from inside the C library count too, which a library
/// preloaded in front of it would not see. Linux on x86-64.

#include <array>
#include <atomic>
#include <string_view>

namespace veskora {

/// What can go wrong, each at the calls that it can happen to.
constexpr std::array<std::string_view, 9> callFaults = {
    "ENOSPC",      "EIO", "EINTR", "EACCES",
    "short",       ///< half is written
    "full",        ///< half is written, and then ENOSPC for each call that takes room
    "gone",        ///< EIO for each call from then on
    "kill",        ///< the process dies before the call
    "kill-behind", ///< and behind it
};

/// A call that was looked at.
struct MadeCall
{
    long number = -1;
    bool writes = false;          ///< false: on a file that is open for reading only
    std::array<char, 256> file{}; ///< its path
    std::array<char, 256> to{};   ///< of a rename: the new one
};

/// What is to strike, and what became of it. In memory that a child shares with its parent.
struct CallRecord
{
    std::size_t fault = 0; ///< of `callFaults`
    int turn = 0;          ///< the how manieth of its calls; 0: none
    std::array<std::atomic<int>, callFaults.size()> calls{}; ///< counted, of each fault
    std::array<MadeCall, 2048> made{};                       ///< in their order
    std::atomic<std::size_t> madeCount = 0;
    std::atomic<long> struck = -1; ///< which of them; -1: none yet
};

/// From now on the calls of this process on files below @p folder are counted in @p record, and
/// the fault in it strikes. For the rest of the life of the process.
void strikeCalls(std::string_view folder, CallRecord &record);
/// Whether they are, for as long as the process is being looked at.
void armCalls(bool isOn);

/// "rename", or the like.
const char *callName(long number);

} // namespace veskora
