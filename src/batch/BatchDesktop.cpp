#include "BatchDesktop.h"

#include <cstdlib>
#include <ostream>

namespace veskora {

Answer BatchDesktop::message(const std::string &text, Icon, Buttons buttons)
{
    // The log repeats the first paragraph of a box; what stands below it is said here.
    if (const std::size_t paragraph = text.find("\r\n\r\n"); paragraph != std::string::npos)
        insertLog("\r\n " + text.substr(paragraph + 4), 0, false);
    return buttons == Buttons::ok ? Answer::ok : Answer::no;
}

void BatchDesktop::insertLog(const std::string &text, std::uint32_t, bool)
{
    std::string_view rest = text;
    if (rest.starts_with("\r\n")) {
        finishLine();
        rest.remove_prefix(2);
    }
    log_ << rest;
    lineOpen_ = true;
}

void BatchDesktop::finishLine()
{
    if (lineOpen_)
        log_ << std::endl;
    lineOpen_ = false;
}

void BatchDesktop::tell(const std::string &what)
{
    finishLine();
    log_ << "Veskora_batch: " << what << std::endl;
}

/// Where desktops keep it by their common rules: a path that is not absolute does not count.
std::string BatchDesktop::dataFolder()
{
    const auto variable = [](const char *name) {
        const char *value = std::getenv(name);
        return std::string(value == nullptr ? "" : value);
    };
    std::string folder = variable("XDG_DATA_HOME");
    if (!folder.starts_with('/'))
        folder = variable("HOME") + "/.local/share";
    return (folder += '/') += applicationTitle;
}

} // namespace veskora
