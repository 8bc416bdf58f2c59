#include "Startup.h"

#include "Version.h"

#include <csignal>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

namespace veskora {

void prepareProcess()
{
    // Opened for reading alone, so that printing fails as it does on a closed stream.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", O_RDONLY);
    std::signal(SIGXFSZ, SIG_IGN); // the write fails then, and is told
    constexpr int heldMemory = 1 << 26;
    ::mallopt(M_MMAP_THRESHOLD, heldMemory);
    ::mallopt(M_TRIM_THRESHOLD, heldMemory);
}

std::string callerArgument()
{
    return std::string("--drawings-of=") + programVersion;
}

} // namespace veskora
