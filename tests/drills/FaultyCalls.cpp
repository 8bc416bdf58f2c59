#include "FaultyCalls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>
#include <vector>

// The only place whose calls the filter lets pass.
asm(R"(
    .text
    .globl drillCall
drillCall:
    mov %rdi, %rax
    mov %rsi, %rdi
    mov %rdx, %rsi
    mov %rcx, %rdx
    mov %r8, %r10
    mov %r9, %r8
    mov 8(%rsp), %r9
    syscall
    .globl drillCallReturn
drillCallReturn:
    ret
)");
extern "C" long drillCall(long number, long, long, long, long, long, long);
extern "C" const char drillCallReturn[];

namespace veskora {

namespace {

enum Can : unsigned { takeRoom = 1, beInterrupted = 2, beForbidden = 4, beShort = 8 };

struct FileCall
{
    long number;
    const char *name;
    int path; ///< which argument it is, behind that of its folder where it is not the first
    unsigned can;
};
constexpr int descriptor = -1; // the first argument is one

constexpr FileCall fileCalls[] = {
    {SYS_open, "open", 0, beInterrupted | beForbidden},
    {SYS_openat, "openat", 1, beInterrupted | beForbidden},
    {SYS_creat, "creat", 0, takeRoom | beInterrupted | beForbidden},
    {SYS_read, "read", descriptor, beInterrupted},
    {SYS_pread64, "pread", descriptor, beInterrupted},
    {SYS_write, "write", descriptor, takeRoom | beInterrupted | beShort},
    {SYS_pwrite64, "pwrite", descriptor, takeRoom | beInterrupted | beShort},
    {SYS_writev, "writev", descriptor, takeRoom | beInterrupted},
    {SYS_copy_file_range, "copy_file_range", descriptor, takeRoom},
    {SYS_sendfile, "sendfile", descriptor, takeRoom | beInterrupted},
    {SYS_fallocate, "fallocate", descriptor, takeRoom | beInterrupted},
    {SYS_ftruncate, "ftruncate", descriptor, beInterrupted},
    {SYS_truncate, "truncate", 0, beInterrupted | beForbidden},
    {SYS_fsync, "fsync", descriptor, takeRoom | beInterrupted},
    {SYS_fdatasync, "fdatasync", descriptor, takeRoom | beInterrupted},
    {SYS_close, "close", descriptor, takeRoom | beInterrupted},
    {SYS_flock, "flock", descriptor, beInterrupted},
    {SYS_fchmod, "fchmod", descriptor, beForbidden},
    {SYS_chmod, "chmod", 0, beForbidden},
    {SYS_fchown, "fchown", descriptor, beForbidden},
    {SYS_chown, "chown", 0, beForbidden},
    {SYS_mkdir, "mkdir", 0, takeRoom | beForbidden},
    {SYS_mkdirat, "mkdirat", 1, takeRoom | beForbidden},
    {SYS_link, "link", 0, takeRoom | beForbidden},
    {SYS_linkat, "linkat", 1, takeRoom | beForbidden},
    {SYS_rename, "rename", 0, takeRoom | beForbidden},
    {SYS_renameat, "renameat", 1, takeRoom | beForbidden},
    {SYS_renameat2, "renameat2", 1, takeRoom | beForbidden},
    {SYS_unlink, "unlink", 0, beForbidden},
    {SYS_unlinkat, "unlinkat", 1, beForbidden},
};

CallRecord *record = nullptr;
std::array<char, 512> watched{};
std::atomic<bool> isArmed = false;

using Arguments = std::array<long, 6>;

bool isOpening(const FileCall &call)
{
    return call.number == SYS_open || call.number == SYS_openat;
}

long passOn(long number, const Arguments &given)
{
    return drillCall(number, given[0], given[1], given[2], given[3], given[4], given[5]);
}

using Path = decltype(MadeCall::file);

/// In a signal handler: no memory is had, and the C library's errno stays.
Path pathOf(long file)
{
    std::array<char, 40> link{"/proc/self/fd/"};
    char *end = link.data() + std::strlen(link.data());
    for (long rest = file; rest > 0 || end[-1] == '/'; rest /= 10)
        *end++ = static_cast<char>('0' + rest % 10);
    std::reverse(link.data() + std::strlen("/proc/self/fd/"), end);
    Path path{};
    drillCall(SYS_readlink, reinterpret_cast<long>(link.data()),
              reinterpret_cast<long>(path.data()), path.size() - 1, 0, 0, 0);
    return path;
}

/// The path that an argument is; below an open folder that of the folder.
Path pathOf(const FileCall &call, const Arguments &given, std::size_t argument)
{
    const char *name = reinterpret_cast<const char *>(given[argument]);
    const long folder = given[argument - static_cast<std::size_t>(call.path)];
    if (call.path == 1 && *name != '/' && folder != AT_FDCWD)
        return pathOf(folder);
    Path path{};
    std::strncpy(path.data(), name, path.size() - 1);
    return path;
}

bool writes(const FileCall &call, const Arguments &given)
{
    const long flags = call.path == descriptor ? drillCall(SYS_fcntl, given[0], F_GETFL, 0, 0, 0, 0)
                       : isOpening(call)       ? given[static_cast<std::size_t>(call.path) + 1]
                                               : O_RDWR;
    return (flags & O_ACCMODE) != O_RDONLY;
}

MadeCall made(const FileCall &call, const Arguments &given)
{
    MadeCall one = {call.number, writes(call, given), {}, {}};
    one.file = call.path == descriptor ? pathOf(given[0])
                                       : pathOf(call, given, static_cast<std::size_t>(call.path));
    if (std::strncmp(call.name, "rename", 6) == 0)
        one.to = pathOf(call, given, static_cast<std::size_t>(2 * call.path + 1));
    return one;
}

bool concerns(const MadeCall &call)
{
    return std::strncmp(call.file.data(), watched.data(), std::strlen(watched.data())) == 0;
}

bool takesRoom(const FileCall &call, const Arguments &given)
{
    const long flags = isOpening(call) ? given[static_cast<std::size_t>(call.path) + 1] : 0;
    return (call.can & takeRoom) != 0 || (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

bool canHappen(std::string_view fault, const FileCall &call, const Arguments &given)
{
    if (fault == "ENOSPC")
        return takesRoom(call, given);
    if (fault == "EINTR")
        return (call.can & beInterrupted) != 0;
    if (fault == "EACCES")
        return (call.can & beForbidden) != 0;
    if (fault == "short")
        return (call.can & beShort) != 0 && given[2] > 1;
    if (fault == "full") // what is smaller or has its room already goes on
        return takesRoom(call, given) && call.number != SYS_close && call.number != SYS_rename;
    return true;
}

long strike(std::string_view fault, const FileCall &call, const Arguments &given, bool isFirst)
{
    if (fault == "kill-behind")
        (void)passOn(call.number, given);
    if (fault.starts_with("kill"))
        drillCall(SYS_kill, drillCall(SYS_getpid, 0, 0, 0, 0, 0, 0), SIGKILL, 0, 0, 0, 0);
    if (fault == "short" || (fault == "full" && isFirst && (call.can & beShort) != 0)) {
        Arguments half = given;
        half[2] = (given[2] + 1) / 2;
        return passOn(call.number, half);
    }
    if (call.number == SYS_close)
        (void)passOn(call.number, given); // it is closed, whatever it says
    return fault == "EINTR"                    ? -EINTR
           : fault == "EACCES"                 ? -EACCES
           : fault == "EIO" || fault == "gone" ? -EIO
                                               : -ENOSPC;
}

long answer(long number, const Arguments &given)
{
    const auto *call = std::find_if(std::begin(fileCalls), std::end(fileCalls),
                                    [number](const FileCall &one) { return one.number == number; });
    if (!isArmed || call == std::end(fileCalls))
        return passOn(number, given);
    const MadeCall one = made(*call, given);
    if (!concerns(one))
        return passOn(number, given);
    const std::size_t place = record->madeCount++;
    record->made.at(place) = one;
    for (std::size_t i = 0; i < callFaults.size(); ++i) {
        if (!canHappen(callFaults[i], *call, given))
            continue;
        const int turn = ++record->calls[i];
        if (i != record->fault || record->turn == 0 || turn < record->turn)
            continue;
        if (turn == record->turn)
            record->struck = static_cast<long>(place);
        else if (callFaults[i] != "full" && callFaults[i] != "gone")
            continue;
        return strike(callFaults[i], *call, given, turn == record->turn);
    }
    return passOn(number, given);
}

void onCall(int, siginfo_t *info, void *context)
{
    auto &registers = static_cast<ucontext_t *>(context)->uc_mcontext.gregs;
    registers[REG_RAX] =
        answer(info->si_syscall,
               {static_cast<long>(registers[REG_RDI]), static_cast<long>(registers[REG_RSI]),
                static_cast<long>(registers[REG_RDX]), static_cast<long>(registers[REG_R10]),
                static_cast<long>(registers[REG_R8]), static_cast<long>(registers[REG_R9])});
}

/// Calls on files that do not come from `drillCall` become signals.
std::vector<sock_filter> filter()
{
    const auto load = [](std::size_t offset) {
        return sock_filter(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset)));
    };
    const auto jump = [](std::uint64_t value, std::size_t same, std::size_t other) {
        return sock_filter(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(value),
                                    static_cast<std::uint8_t>(same),
                                    static_cast<std::uint8_t>(other)));
    };
    const auto end = [](std::uint32_t what) {
        return sock_filter(BPF_STMT(BPF_RET | BPF_K, what));
    };
    std::vector<sock_filter> program = {load(offsetof(seccomp_data, nr))};
    for (std::size_t left = std::size(fileCalls); left > 0; --left)
        program.push_back(jump(static_cast<std::uint64_t>(fileCalls[left - 1].number), left, 0));
    program.push_back(end(SECCOMP_RET_ALLOW));
    const auto own = reinterpret_cast<std::uint64_t>(drillCallReturn);
    program.push_back(load(offsetof(seccomp_data, instruction_pointer)));
    program.push_back(jump(own & 0xffffffff, 0, 3));
    program.push_back(load(offsetof(seccomp_data, instruction_pointer) + 4));
    program.push_back(jump(own >> 32, 0, 1));
    program.push_back(end(SECCOMP_RET_ALLOW));
    program.push_back(end(SECCOMP_RET_TRAP));
    return program;
}

} // namespace

void strikeCalls(std::string_view folder, CallRecord &shared)
{
    record = &shared;
    folder.copy(watched.data(), watched.size() - 1);
    struct sigaction action = {};
    action.sa_sigaction = onCall;
    action.sa_flags = SA_SIGINFO;
    std::vector<sock_filter> program = filter();
    const sock_fprog whole = {static_cast<unsigned short>(program.size()), program.data()};
    if (::sigaction(SIGSYS, &action, nullptr) != 0 || ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0
        || ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_TSYNC, &whole) != 0)
        throw std::runtime_error("the kernel has no filter for system calls");
}

void armCalls(bool isOn)
{
    isArmed = isOn;
}

const char *callName(long number)
{
    for (const FileCall &call : fileCalls)
        if (call.number == number)
            return call.name;
    return "";
}

} // namespace veskora
