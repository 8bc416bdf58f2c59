// The model file reader under arbitrary input: it refuses and leaves what it says it leaves, or it
// reads a model that is sound and that the writer turns into a file of the same content.

#include "BatchDesktop.h"
#include "Files.h"
#include "FuzzTarget.h"
#include "Metablites.h"
#include "ModelText.h"
#include "Registry.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace veskora {
namespace {

bool within(float reference, int most)
{
    return reference >= 1 && reference <= static_cast<float>(most)
           && reference == std::floor(reference);
}

void requireEmptyBehind(const auto &table, int count)
{
    for (int row = count + 1; row <= table.rows; ++row)
        require(std::ranges::count(table.row(row), 0) == table.columns, "row behind the last");
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
    requireEmptyBehind(Omades, Arithmos_Omadon);
    requireEmptyBehind(Komboi, Arithmos_Kombon);
    requireEmptyBehind(Elatiria, Arithmos_Kombon);
    requireEmptyBehind(Stoixeia, Arithmos_Stoixeion);
    require(std::isfinite(Klimaka) && std::isfinite(Arxi_X) && std::isfinite(Arxi_Y), "view");
}

/// What is written and read is written the same again.
void requireRoundTrip()
{
    static MemoryFile file;
    const std::string text = modelText();
    file.hold(text);
    std::string path = file.path();
    require(Anagnosi_Arxeiou(path), "what was written can be read");
    require(isModelFile(path), "what was read is written the same");
}

/// An empty model with the settings and the view of a new one.
void emptyStore()
{
    startEmptyModel();
    setStandardSettings();
    resetView();
}

/// In an empty store, what a refusal can be told from: one group, in a file of its own.
void beginModel()
{
    Arithmos_Omadon = 1;
    Omades(1, group::E) = 1;
    Onoma_Arxeiou = "before";
}

} // namespace
} // namespace veskora

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    using namespace veskora;
    static std::ostream nowhere(nullptr);
    static BatchDesktop desktop(nowhere);
    static MemoryFile input;
    static std::string empty, before;
    if (empty.empty()) {
        setDesktop(&desktop);
        emptyStore();
        empty = modelText();
    }
    beginModel(); // after any other input the store is empty, or as this leaves it
    if (before.empty())
        before = modelText();
    input.hold(bytes(data, size));
    std::string path = input.path();
    if (Anagnosi_Arxeiou(path)) {
        require(Onoma_Arxeiou == path, "the model is that of the file");
        requireSound();
        requireRoundTrip();
        emptyStore();
    } else if (Onoma_Arxeiou == "before") {
        require(modelText() == before, "a file of another kind changes nothing");
    } else {
        require(Onoma_Arxeiou.empty() && modelText() == empty,
                "a damaged file leaves an empty model, and the settings as they were");
    }
    return 0;
}
