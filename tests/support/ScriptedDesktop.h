#pragma once
/// @file
/// The tests' desktop: answers by a script, remembers all that was said.

#include "Desktop.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace veskora {

struct LogLine
{
    std::string text; ///< without the line break and the blank before it
    std::uint32_t colour = 0;
    bool bold = false;
    bool operator==(const LogLine &) const = default;
};
void PrintTo(const LogLine &line, std::ostream *out);

/// Fails the test on a question that was not foreseen and on an answer left over.
class ScriptedDesktop : public Desktop
{
public:
    /// The next box must say exactly @p text under @p icon.
    void expectMessage(const std::string &text, Icon icon = Icon::exclamation,
                       Answer answer = Answer::ok)
    {
        messages_.push_back({text, icon, answer});
    }
    /// The next box may say anything, which goes to @p said.
    void expectAnyMessage(std::string &said)
    {
        messages_.push_back({"(any)", Icon::none, Answer::ok, &said});
    }
    /// The next box with answers of its own must say exactly @p text; it gets the answer at @p
    /// place.
    void expectChoice(const std::string &text, std::size_t place)
    {
        choices_.emplace_back(text, place);
    }
    /// The next input box is answered by @p text; empty is Cancel.
    void expectQuestion(std::string text) { texts_.push_back(std::move(text)); }
    /// The next file dialog gives @p path; none is Cancel.
    void expectFileDialog(std::optional<std::string> path) { files_.push_back(std::move(path)); }
    std::string filterPattern; ///< of the filter that save dialogs give; empty: they give none
    void expectNothingLeft() const;
    std::function<Answer()> answerAnything; ///< when set, no box is unforeseen
    bool agrees = false;                    ///< to whatever a box asks

    std::function<void()> beforeChoice; ///< what happens when such a box comes

    std::vector<LogLine> log;
    std::string caption;
    std::vector<std::string> textQuestions;
    std::vector<FileQuestion> fileQuestions;
    std::vector<std::string> events; ///< pointer, toolbar and repaint calls in their order
    std::map<std::string, std::string> settingsStore;
    std::string program = std::filesystem::temp_directory_path();
    std::deque<TimeOfDay> times; ///< "12:00:00" when used up

    Answer message(const std::string &text, Icon icon, Buttons buttons) override;
    std::size_t choose(const std::string &text, const std::vector<std::string> &answers,
                       std::size_t escape) override;
    std::string askText(const std::string &question) override;
    std::optional<std::string> askOpenFile(const FileQuestion &question) override;
    std::optional<std::string> askSaveFile(const FileQuestion &question) override;
    void insertLog(const std::string &text, std::uint32_t colour, bool bold) override;
    void setCaption(const std::string &text) override { caption = text; }
    void setPointer(Pointer pointer) override
    {
        events.emplace_back(pointer == Pointer::hourglass ? "hourglass" : "pointer");
    }
    void setAnalysing(bool isOn) override { events.emplace_back(isOn ? "analysing" : "idle"); }
    void repaintMainWindow() override { events.emplace_back("repaint window"); }
    void repaintLog() override { events.emplace_back("repaint log"); }
    void redraw() override { events.emplace_back("redraw"); }
    TimeOfDay timeOfDay() override;
    std::string setting(std::string_view section, std::string_view key,
                        std::string_view standard) override;
    void storeSetting(std::string_view section, std::string_view key,
                      std::string_view value) override
    {
        settingsStore[settingName(section, key)] = value;
    }
    std::string writeSettings() override { return {}; }
    std::string programFolder() override { return program; }
    std::string documentsFolder() override { return "/documents"; }
    std::string dataFolder() override { return program + "/data"; }

private:
    struct Expected
    {
        std::string text;
        Icon icon;
        Answer answer;
        std::string *said = nullptr; ///< where any text is welcome
    };
    static std::string settingName(std::string_view section, std::string_view key)
    {
        return std::string(section) + "/" + std::string(key);
    }
    std::deque<Expected> messages_;
    std::deque<std::pair<std::string, std::size_t>> choices_;
    std::deque<std::string> texts_;
    std::deque<std::optional<std::string>> files_;
};

/// A fresh store, a scripted desktop, and a folder of the test's own.
class StoreTest : public testing::Test
{
protected:
    StoreTest();
    ~StoreTest() override;

    /// A path in the test's folder.
    std::string path(const std::string &name) const { return (folder_ / name).string(); }
    static std::string contentOf(const std::string &path);
    static void write(const std::string &path, const std::string &content);

    ScriptedDesktop desktop;

private:
    std::filesystem::path folder_;
};

} // namespace veskora
