#include "Batch.h"
#include "Order.h"

#include <cerrno>
#include <exception>
#include <filesystem>
#include <iostream>
#include <malloc.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr int heldMemory = 1 << 26;

/// The program that has a toolkit: it is found from the place of this one, wherever that was moved
/// to and by whatever link it was called.
std::string drawingProgram()
{
    const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe");
    return (own.parent_path() / VESKORA_DRAWING_PROGRAM).lexically_normal().string();
}

} // namespace

int main(int argc, char **argv)
try {
    // What one model gives back serves the next.
    ::mallopt(M_MMAP_THRESHOLD, heldMemory);
    ::mallopt(M_TRIM_THRESHOLD, heldMemory);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const veskora::Order order = veskora::parse(arguments);
    if (veskora::needsDrawings(order)) {
        const std::string program = drawingProgram();
        ::execv(program.c_str(), argv); // the rest is its work; it comes back where there is none
        const std::string reason = std::generic_category().message(errno);
        if (!order.version) {
            std::cerr << "Veskora_batch: pictures, PDF and steps are made by " << program
                      << ", which cannot be started: " << reason
                      << ". Without them models are analysed; to have them, install the program "
                         "again.\n";
            return veskora::batchStatus::someFailed;
        }
    }
    return veskora::runBatch(arguments, std::cout, std::cerr);
} catch (const std::exception &error) {
    std::cerr << "Veskora_batch: " << error.what() << "\n";
    return veskora::batchStatus::someFailed;
}
