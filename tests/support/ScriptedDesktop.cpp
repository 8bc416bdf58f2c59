#include "ScriptedDesktop.h"

#include "Metablites.h"

#include <cstdlib>
#include <fstream>
#include <ostream>
#include <sstream>

namespace veskora {

void PrintTo(const LogLine &line, std::ostream *out)
{
    *out << '"' << line.text << "\" colour " << line.colour << (line.bold ? " bold" : "");
}

void ScriptedDesktop::expectMessage(const std::string &text, Icon icon, Answer answer)
{
    messages_.push_back({text, icon, answer});
}

void ScriptedDesktop::expectAnyMessage(std::string &said)
{
    messages_.push_back({"(any)", Icon::none, Answer::ok, &said});
}

void ScriptedDesktop::expectNothingLeft() const
{
    for (const Expected &left : messages_)
        ADD_FAILURE() << "never said: " << left.text;
    EXPECT_TRUE(choices_.empty()) << "a box with answers of its own did not come";
    EXPECT_TRUE(texts_.empty()) << "an input box did not come";
    EXPECT_TRUE(files_.empty()) << "a file dialog did not come";
}

Answer ScriptedDesktop::message(const std::string &text, Icon icon, Buttons)
{
    if (answerAnything)
        return answerAnything();
    if (messages_.empty()) {
        ADD_FAILURE() << "not foreseen: " << text;
        return Answer::cancel;
    }
    const Expected expected = messages_.front();
    messages_.pop_front();
    if (expected.said != nullptr) {
        *expected.said = text;
        return expected.answer;
    }
    EXPECT_EQ(text, expected.text);
    EXPECT_EQ(icon, expected.icon) << text;
    return expected.answer;
}

void ScriptedDesktop::expectChoice(const std::string &text, std::size_t place)
{
    choices_.emplace_back(text, place);
}

std::size_t ScriptedDesktop::choose(const std::string &text, const std::vector<std::string> &,
                                    std::size_t escape)
{
    if (choices_.empty()) {
        ADD_FAILURE() << "not foreseen: " << text;
        return escape;
    }
    if (beforeChoice)
        beforeChoice();
    const auto [expected, place] = choices_.front();
    choices_.pop_front();
    EXPECT_EQ(text, expected);
    return place;
}

std::string ScriptedDesktop::askText(const std::string &question)
{
    textQuestions.push_back(question);
    if (texts_.empty()) {
        ADD_FAILURE() << "not foreseen: " << question;
        return {};
    }
    const std::string text = texts_.front();
    texts_.pop_front();
    return text;
}

std::optional<std::string> ScriptedDesktop::askOpenFile(const FileQuestion &question)
{
    fileQuestions.push_back(question);
    if (files_.empty()) {
        ADD_FAILURE() << "file dialog not foreseen";
        return std::nullopt;
    }
    const auto path = files_.front();
    files_.pop_front();
    return path;
}

std::optional<std::string> ScriptedDesktop::askSaveFile(const FileQuestion &question)
{
    if (question.pattern != nullptr && !filterPattern.empty())
        *question.pattern = filterPattern;
    return askOpenFile(question);
}

void ScriptedDesktop::insertLog(const std::string &text, std::uint32_t colour, bool bold)
{
    if (text.starts_with("\r\n "))
        log.push_back({text.substr(3), colour, bold});
    else if (log.empty())
        log.push_back({text.substr(1), colour, bold});
    else
        log.back().text += text;
}

void ScriptedDesktop::setPointer(Pointer pointer)
{
    events.emplace_back(pointer == Pointer::hourglass ? "hourglass" : "pointer");
}

void ScriptedDesktop::setAnalysing(bool isOn)
{
    events.emplace_back(isOn ? "analysing" : "idle");
}

TimeOfDay ScriptedDesktop::timeOfDay()
{
    if (times.empty())
        return {"12:00:00", 43200};
    const TimeOfDay time = times.front();
    times.pop_front();
    return time;
}

std::string ScriptedDesktop::setting(std::string_view section, std::string_view key,
                                     std::string_view standard)
{
    const auto found = settingsStore.find(std::string(section) + "/" + std::string(key));
    return found != settingsStore.end() ? found->second : std::string(standard);
}

void ScriptedDesktop::storeSetting(std::string_view section, std::string_view key,
                                   std::string_view value)
{
    settingsStore[std::string(section) + "/" + std::string(key)] = value;
}

StoreTest::StoreTest()
{
    ::setenv("LC_ALL", "C.UTF-8", 1); // the user's decimal separator is not the test's
    resetStore();
    setDesktop(&desktop);
    std::string pattern = (std::filesystem::temp_directory_path() / "veskora-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no folder for the test");
    folder_ = pattern;
    desktop.program = pattern;
}

StoreTest::~StoreTest()
{
    desktop.expectNothingLeft();
    setDesktop(nullptr);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string StoreTest::contentOf(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return in ? content.str() : "(no file " + path + ")";
}

void StoreTest::write(const std::string &path, const std::string &content)
{
    std::ofstream(path, std::ios::binary) << content;
}

} // namespace veskora
