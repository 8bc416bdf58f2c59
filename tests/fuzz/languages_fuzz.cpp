// The reader of language packs under arbitrary input: it drops the pack whole and the program
// speaks English, or each text is one that can be shown, that the report takes into its columns,
// and that another pack can say.

#include "Anafora.h"
#include "BatchDesktop.h"
#include "FileSystem.h"
#include "FuzzTarget.h"
#include "Languages.h"
#include "Metablites.h"

#include <QStringDecoder>

#include <algorithm>
#include <filesystem>
#include <ostream>

namespace veskora {
namespace {

constexpr const char *packName = "Fuzz";

class PackDesktop : public BatchDesktop
{
public:
    using BatchDesktop::BatchDesktop;
    std::vector<Icon> boxes;

    Answer message(const std::string &, Icon icon, Buttons) override
    {
        boxes.push_back(icon);
        return Answer::ok;
    }
    std::string setting(std::string_view, std::string_view, std::string_view) override
    {
        return packName;
    }
    std::string programFolder() override { return folder_; }

private:
    std::string folder_ = privateFolder();
};

/// Asked of the toolkit, which has its own opinion of what is UTF-8.
bool canBeShown(const std::string &text)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder.decode(QByteArrayView(text));
    return !decoder.hasError();
}

/// A pack of the same texts. A mark stands only in a text that needs none around it.
std::string written()
{
    std::string pack = "A pack\r\nwritten anew\r\n";
    for (int slot = 1; slot <= languageSlots; ++slot) {
        const std::string &text = Pinakas_Glossas(slot);
        if (text.empty())
            continue;
        const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
        const bool needsMarks =
            text.find(',') != std::string::npos || isBlank(text.front()) || isBlank(text.back());
        const std::string marks(needsMarks ? 1 : 0, '"');
        pack += std::to_string(slot) + ',' + marks + text + marks + "\r\n";
    }
    return pack += "END\r\n";
}

/// A model with something in each section of the report.
void makeModel()
{
    Arithmos_Omadon = Arithmos_Stoixeion = 1;
    Arithmos_Kombon = 2;
    std::ranges::fill(Stoixeia.row(1), 1.0F);
    Stoixeia(1, element::nodeJ) = 2;
    std::ranges::fill(Komboi.row(2), 1.0F);
    std::ranges::fill(Elatiria.row(2), 1.0F);
}

} // namespace
} // namespace veskora

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    using namespace veskora;
    static std::ostream nowhere(nullptr);
    static PackDesktop desktop(nowhere);
    static MemoryFile pack;
    static const bool isReady = [] {
        const std::filesystem::path packs = desktop.programFolder() + "/Languages";
        std::filesystem::create_directory(packs);
        std::filesystem::create_symlink(pack.path(), packs / (std::string(packName) + ".lng"));
        setDesktop(&desktop);
        makeModel();
        return true;
    }();
    (void)isReady;

    pack.hold(bytes(data, size));
    desktop.boxes.clear();
    Fortosi_Glossas();
    if (Nai_Agglika) {
        require(Glossa == "English", "the program speaks English");
        require(desktop.boxes == std::vector{Icon::exclamation}, "a refusal is told once");
        for (int slot = 1; slot <= languageSlots; ++slot)
            require(Pinakas_Glossas(slot).empty(), "a refused pack is dropped whole");
        return 0;
    }
    require(Glossa == packName, "the language is the pack's");
    require(desktop.boxes.empty() || desktop.boxes == std::vector{Icon::information},
            "what a pack lacks is told once");
    for (int slot = 1; slot <= languageSlots; ++slot) {
        const std::string &text = Pinakas_Glossas(slot);
        require(text.empty() || canBeShown(text), "a text in UTF-8");
        require(text.find_first_of("\r\n") == std::string::npos, "a text on one line");
    }
    require(canBeShown(reportOf([](const ReportSection &) { return true; })), "report in UTF-8");

    const auto texts = Pinakas_Glossas;
    pack.hold(written());
    Fortosi_Glossas();
    require(!Nai_Agglika, "what was written can be read");
    for (int slot = 1; slot <= languageSlots; ++slot)
        require(Pinakas_Glossas(slot) == texts(slot), "what was written is read the same");
    return 0;
}
