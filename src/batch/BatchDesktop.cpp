#include "BatchDesktop.h"

#include <QStandardPaths>

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

std::string BatchDesktop::dataFolder()
{
    std::string folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString();
    return (folder += '/') += applicationTitle;
}

} // namespace veskora
