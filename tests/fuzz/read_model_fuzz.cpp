// The model file reader under arbitrary input: it refuses with an empty model, or it reads a model
// that is sound and that the writer turns into a file of the same content.

#include "BatchDesktop.h"
#include "Files.h"
#include "Metablites.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <span>
#include <sys/mman.h>
#include <unistd.h>

namespace veskora {
namespace {

void require(bool holds, const char *what)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

/// A file in memory that has a path.
class MemoryFile
{
public:
    MemoryFile(const void *content, std::size_t size) : descriptor_(::memfd_create("model", 0))
    {
        require(::write(descriptor_, content, size) == static_cast<ssize_t>(size), "scratch write");
    }
    ~MemoryFile() { ::close(descriptor_); }
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;
    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

bool within(float reference, int most)
{
    return reference >= 1 && reference <= static_cast<float>(most)
           && reference == std::floor(reference);
}

void requireSound()
{
    require(Arithmos_Kombon >= 0 && Arithmos_Kombon <= maxNodes, "number of nodes");
    require(Arithmos_Stoixeion >= 0 && Arithmos_Stoixeion <= maxElements, "number of elements");
    require(Arithmos_Omadon >= 0 && Arithmos_Omadon <= maxGroups, "number of groups");
    const auto isCode = [](float cell) { return cell == 0 || cell == 1; };
    for (int g = 1; g <= Arithmos_Omadon; ++g)
        for (const double cell : Omades.row(g))
            require(std::isfinite(cell), "group");
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        for (const float cell : Komboi.row(n))
            require(std::isfinite(cell), "node");
        for (int column = node::fixedX; column <= node::fixedRotation; ++column)
            require(isCode(Komboi(n, column)), "restraint");
        for (const float cell : Elatiria.row(n))
            require(std::isfinite(cell), "spring");
    }
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        require(within(Stoixeia(e, element::nodeI), Arithmos_Kombon), "node i");
        require(within(Stoixeia(e, element::nodeJ), Arithmos_Kombon), "node j");
        require(within(Stoixeia(e, element::group), Arithmos_Omadon), "group of an element");
        require(isCode(Stoixeia(e, element::hingeI)) && isCode(Stoixeia(e, element::hingeJ)),
                "hinge");
        require(std::isfinite(Stoixeia(e, element::wx)) && std::isfinite(Stoixeia(e, element::wy)),
                "load");
    }
    require(std::isfinite(Klimaka) && std::isfinite(Arxi_X) && std::isfinite(Arxi_Y), "view");
}

/// What is written, read and written again is the same text.
void requireRoundTrip()
{
    const std::string folder = "/dev/shm/veskora_fuzz_" + std::to_string(::getpid());
    std::string file = folder + ".vsk";
    require(Apothikefsi_Arxeiou(file, false), "write");
    Anagnosi_Arxeiou(file);
    require(Onoma_Arxeiou == file, "what was written can be read");
    require(Idio_Me_To_Arxeio(), "what was read is written the same");
    ::unlink(file.c_str());
}

} // namespace
} // namespace veskora

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace veskora;
    static std::ostream nowhere(nullptr);
    static BatchDesktop desktop(nowhere);
    setDesktop(&desktop);
    resetStore();
    const MemoryFile input(data, size);
    std::string path = input.path();
    Anagnosi_Arxeiou(path);
    if (Onoma_Arxeiou.empty()) {
        require(Arithmos_Kombon == 0 && Arithmos_Stoixeion == 0 && Arithmos_Omadon == 0,
                "a refused file leaves an empty model");
        return 0;
    }
    requireSound();
    requireRoundTrip();
    return 0;
}
