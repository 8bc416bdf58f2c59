#include "Batch.h"
#include "Order.h"
#include "Startup.h"

#include <cerrno>
#include <exception>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <unistd.h>

namespace {

/// The program that has a toolkit: it is found from the place of this one, wherever that was moved
/// to and by whatever link it was called.
std::string drawingProgram()
{
    const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe");
    return (own.parent_path() / VESKORA_DRAWING_PROGRAM).lexically_normal().string();
}

/// Leaves the rest to @p program; comes back where there is none.
/// @return why it cannot be started
std::string goOnAs(const std::string &program, int argc, char **argv)
{
    std::string caller = veskora::callerArgument();
    std::vector<char *> arguments(argv, argv + argc + 1); // with the null behind the last
    arguments.insert(arguments.begin() + 1, caller.data());
    ::execv(program.c_str(), arguments.data());
    return std::generic_category().message(errno);
}

} // namespace

int main(int argc, char **argv)
try {
    veskora::prepareProcess();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const veskora::Order order = veskora::parse(arguments);
    if (veskora::needsDrawings(order)) {
        const std::string program = drawingProgram();
        const std::string missing =
            program + ", which cannot be started: " + goOnAs(program, argc, argv);
        if (order.version)
            return veskora::runBatch(arguments, std::cout, std::cerr,
                                     {.toolkit = "No drawings: they are made by " + missing});
        std::cerr << "Veskora_batch: pictures, PDF and steps are made by " << missing
                  << ". Without them models are analysed; to have them, install the program "
                     "again.\n";
        return veskora::batchStatus::someFailed;
    }
    return veskora::runBatch(arguments, std::cout, std::cerr);
} catch (const std::exception &error) {
    std::cerr << "Veskora_batch: " << error.what() << "\n";
    return veskora::batchStatus::someFailed;
}
