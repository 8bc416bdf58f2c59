#pragma once
/// @file
/// The desktop of a process without a window.

#include "Desktop.h"

#include <iosfwd>

namespace veskora {

/// Answers every question by rule and writes the message log to a stream. Nothing is kept between
/// runs: settings are always the defaults.
class BatchDesktop : public Desktop
{
public:
    explicit BatchDesktop(std::ostream &log) : log_(log) {}

    /// Ends the log line that stands open.
    void finishLine();

    /// A line of the runner's own, behind its name.
    void tell(const std::string &what);

    /// No to every question: an unconnected node is kept. What a box says beyond the log is
    /// logged.
    Answer message(const std::string &text, Icon icon, Buttons buttons) override;
    std::size_t choose(const std::string &, const std::vector<std::string> &,
                       std::size_t escape) override
    {
        return escape;
    }
    std::string askText(const std::string &) override { return {}; }
    std::optional<std::string> askOpenFile(const FileQuestion &) override { return std::nullopt; }
    std::optional<std::string> askSaveFile(const FileQuestion &) override { return std::nullopt; }
    void insertLog(const std::string &text, std::uint32_t colour, bool bold) override;
    std::string setting(std::string_view, std::string_view, std::string_view standard) override
    {
        return std::string(standard);
    }
    void storeSetting(std::string_view, std::string_view, std::string_view) override {}
    std::string writeSettings() override { return {}; }
    std::string programFolder() override { return "."; }
    std::string documentsFolder() override { return "."; }
    std::string dataFolder() override; ///< the user's, as that of the window

private:
    std::ostream &log_;
    bool lineOpen_ = false;
};

} // namespace veskora
