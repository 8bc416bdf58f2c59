// What the program makes of arbitrary texts in its settings, one to a line behind key and equals
// sign: it is within limits, and what is stored then is read back equal.

#include "BatchDesktop.h"
#include "FileSystem.h"
#include "TakenSettings.h"

#include <map>
#include <ostream>

namespace veskora {
namespace {

class SettingsDesktop : public BatchDesktop
{
public:
    using BatchDesktop::BatchDesktop;

    void hold(std::string_view content)
    {
        texts_.clear();
        for (const std::string &line : lines(content))
            if (const std::size_t sign = line.find('='); sign != std::string::npos)
                texts_[line.substr(0, sign)] = line.substr(sign + 1);
    }
    std::string setting(std::string_view, std::string_view key, std::string_view standard) override
    {
        const std::string &text = texts_[std::string(key)];
        return text.empty() ? std::string(standard) : text;
    }
    void storeSetting(std::string_view, std::string_view key, std::string_view value) override
    {
        texts_[std::string(key)] = value;
    }
    std::string dataFolder() override { return privateFolder(); }

private:
    std::map<std::string, std::string> texts_; ///< by key: none stands in two sections
};

} // namespace
} // namespace veskora

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    using namespace veskora;
    static std::ostream nowhere(nullptr);
    static SettingsDesktop desktop(nowhere);
    setDesktop(&desktop);
    desktop.hold(bytes(data, size));
    const TakenSettings taken;
    requireWithinLimits(taken);
    const TakenSettings expected = stored(taken);
    require(TakenSettings() == expected, "what was stored is read back equal");
    return 0;
}
