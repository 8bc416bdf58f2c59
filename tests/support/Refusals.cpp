#include "Refusals.h"

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool isRefused(const char *call)
{
    for (Refusal &refusal : refusals)
        if (refusal.call == call && --refusal.last >= 0 && --refusal.first <= 0) {
            errno = refusal.error;
            return true;
        }
    return false;
}

/// Makes a call of the system, or where it is refused does nothing.
template <typename... Argument>
long call(const char *name, long number, Argument... arguments)
{
    return isRefused(name) ? -1 : ::syscall(number, arguments...);
}

} // namespace

// In place of the C library's.
extern "C" int fsync(int file)
{
    return static_cast<int>(call("fsync", SYS_fsync, file));
}
extern "C" int fchmod(int file, mode_t mode) noexcept
{
    return static_cast<int>(call("fchmod", SYS_fchmod, file, mode));
}
extern "C" int fchown(int file, uid_t owner, gid_t group) noexcept
{
    return static_cast<int>(call("fchown", SYS_fchown, file, owner, group));
}
extern "C" ssize_t read(int file, void *buffer, size_t size)
{
    return call("read", SYS_read, file, buffer, size);
}
extern "C" ssize_t write(int file, const void *buffer, size_t size)
{
    const bool fails = isRefused("write");
    const int error = errno;
    const long written = ::syscall(SYS_write, file, buffer, fails ? size / 2 : size);
    errno = fails ? error : errno;
    return fails ? -1 : written; // it stops half way
}
