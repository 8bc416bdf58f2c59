#include "ScriptedDesktop.h"

#include "Metablites.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <ostream>

namespace veskora {

void PrintTo(const LogLine &line, std::ostream *out)
{
    *out << '"' << line.text << "\" colour " << line.colour << (line.bold ? " bold" : "");
}

void ScriptedDesktop::expectNothingLeft() const
{
    for (const Expected &left : messages_)
        ADD_FAILURE() << "never said: " << left.text;
    EXPECT_TRUE(choices_.empty()) << "a box with answers of its own did not come";
    EXPECT_TRUE(texts_.empty()) << "an input box did not come";
    EXPECT_TRUE(files_.empty()) << "a file dialog did not come";
}

namespace {

/// The next answer of @p script, or @p otherwise where @p question was not foreseen.
template <typename T>
T next(std::deque<T> &script, const std::string &question, T otherwise)
{
    if (script.empty()) {
        ADD_FAILURE() << "not foreseen: " << question;
        return otherwise;
    }
    T answer = script.front();
    script.pop_front();
    return answer;
}

} // namespace

Answer ScriptedDesktop::message(const std::string &text, Icon icon, Buttons buttons)
{
    if (agrees)
        return buttons == Buttons::ok || buttons == Buttons::okCancel ? Answer::ok : Answer::yes;
    if (answerAnything)
        return answerAnything();
    const Expected expected = next(messages_, text, {text, icon, Answer::cancel});
    if (expected.said != nullptr) {
        *expected.said = text;
    } else {
        EXPECT_EQ(text, expected.text);
        EXPECT_EQ(icon, expected.icon) << text;
    }
    return expected.answer;
}

std::size_t ScriptedDesktop::choose(const std::string &text, const std::vector<std::string> &,
                                    std::size_t escape)
{
    if (beforeChoice)
        beforeChoice();
    const auto [expected, place] = next(choices_, text, {text, escape});
    EXPECT_EQ(text, expected);
    return place;
}

std::string ScriptedDesktop::askText(const std::string &question)
{
    textQuestions.push_back(question);
    return next(texts_, question, {});
}

std::optional<std::string> ScriptedDesktop::askOpenFile(const FileQuestion &question)
{
    fileQuestions.push_back(question);
    return next(files_, "file dialog", {});
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
    const auto found = settingsStore.find(settingName(section, key));
    return found != settingsStore.end() ? found->second : std::string(standard);
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
    return in ? std::string(std::istreambuf_iterator<char>(in), {}) : "(no file " + path + ")";
}

void StoreTest::write(const std::string &path, const std::string &content)
{
    std::ofstream(path, std::ios::binary) << content;
}

} // namespace veskora
