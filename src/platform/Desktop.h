#pragma once
/// @file
/// What the program needs of a desktop: three abstract interfaces, and one that is them all.
///
/// Everything below the forms speaks to the user through `desktop()`. The window program, the batch
/// runner and the tests each bring an implementation of their own. All texts are UTF-8; line breaks
/// inside a text are CR LF.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veskora {

/// The application's title: in message boxes, in captions, and the name of its settings.
inline constexpr std::string_view applicationTitle = "Kalvorn Veskora ML";

enum class Icon { none, information, question, exclamation, critical };
enum class Buttons {
    ok,
    okCancel,
    yesNo,
    noYes, ///< Yes and No, where Enter means No: what Yes replaces is gone
    yesNoCancel
};
enum class Answer { ok, yes, no, cancel };
enum class Pointer { standard, hourglass };

/// The time of day, read once.
struct TimeOfDay
{
    std::string text;      ///< "HH:mm:ss"
    double seconds;        ///< since midnight, with fractions
    std::string date = {}; ///< "yyyy-MM-dd"
};

/// A file dialog's question.
struct FileQuestion
{
    std::string filter;             ///< "Name (*.ext)|*.ext", several joined by "|"
    std::string folder;             ///< where the dialog starts
    std::string proposed = {};      ///< proposed file name, saving only
    std::string *pattern = nullptr; ///< takes that of the filter chosen, "*.ext"; saving only
};

/// Boxes and dialogs.
class Questions
{
public:
    virtual ~Questions() = default;

    /// Shows a modal box under the application's title and returns the button pressed.
    virtual Answer message(const std::string &text, Icon icon, Buttons buttons = Buttons::ok) = 0;

    /// The same with a button for each of @p answers, the first of which is that of Enter.
    /// @return the answer's place in the list; @p escape also where the box was closed
    virtual std::size_t choose(const std::string &text, const std::vector<std::string> &answers,
                               std::size_t escape) = 0;

    /// Asks for a line of text; empty when the user cancelled or gave none.
    virtual std::string askText(const std::string &question) = 0;

    /// File dialogs; no value when the user cancelled. The save dialog asks before an existing file
    /// is chosen.
    virtual std::optional<std::string> askOpenFile(const FileQuestion &question) = 0;
    virtual std::optional<std::string> askSaveFile(const FileQuestion &question) = 0;
};

/// The main window as the layers below see it. Where there is none, nothing happens.
class WindowSurface
{
public:
    virtual ~WindowSurface() = default;

    /// Inserts a text, line break included, at the end of the message log.
    /// Its colour is a colour word, red in the low byte.
    virtual void insertLog(const std::string & /*text*/, std::uint32_t /*colour*/, bool /*bold*/) {}

    virtual void setCaption(const std::string & /*text*/) {}
    virtual void setPointer(Pointer /*pointer*/) {}
    /// An analysis has begun, or has ended in whatever way.
    virtual void setAnalysing(bool /*isOn*/) {}
    virtual void repaintMainWindow() {}
    virtual void repaintLog() {}
    /// Paints the whole picture anew from the tables.
    virtual void redraw() {}
};

/// What is the user's own: settings, folders, clock.
class UserStore
{
public:
    virtual ~UserStore() = default;

    /// Local time, read from the system's clock.
    virtual TimeOfDay timeOfDay();

    /// The per-user settings: texts keyed by section and key, as they are now: another running copy
    /// of the program may have changed them. An empty text counts as none.
    virtual std::string setting(std::string_view section, std::string_view key,
                                std::string_view standard) = 0;

    virtual void storeSetting(std::string_view section, std::string_view key,
                              std::string_view value) = 0;

    /// Brings to the disk what was stored.
    /// @return the file that refuses, empty where none does
    virtual std::string writeSettings() = 0;

    /// The folder of the program's executable (see suppliedFilesFolder), the user's folder for
    /// documents, and the user's folder for the program's own data.
    virtual std::string programFolder() = 0;
    virtual std::string documentsFolder() = 0;
    virtual std::string dataFolder() = 0;
};

class Desktop : public Questions, public WindowSurface, public UserStore
{};

/// The desktop in use. A process sets it once, before anything else of the program runs.
Desktop &desktop();
void setDesktop(Desktop *desktop);

} // namespace veskora
