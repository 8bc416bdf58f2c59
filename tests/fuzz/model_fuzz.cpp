// The model file reader under arbitrary input: it refuses and leaves what it says it leaves, or it
// reads a model that is sound and that the writer turns into a file of the same content.

#include "BatchDesktop.h"
#include "Files.h"
#include "FuzzTarget.h"
#include "Metablites.h"
#include "ModelText.h"
#include "Registry.h"
#include "Sound.h"

#include <ostream>

namespace veskora {
namespace {

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
