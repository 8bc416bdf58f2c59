// A user without a mind: a session of the real window, all of whose actions come by chance.
//   veskora_monkey SEED ACTIONS SCRIPT   each action is written to SCRIPT before it is done
//   veskora_monkey --replay SCRIPT       the same session again
// It has settings, files and model in a folder of its own, which goes with it, and starts no other
// program. Status 0 when nothing was broken; a fault that ends the program ends it with status 1.

#include "Application.h"
#include "Hands.h"
#include "Languages.h"
#include "Places.h"
#include "Script.h"
#include "Sound.h"
#include "Watch.h"
#include "Whim.h"

#include <QDesktopServices>
#include <QDialog>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QTimer>

#include <clocale>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <unistd.h>

namespace veskora {
namespace {

namespace fs = std::filesystem;

/// Asks the script, which asks chance where it is none that is replayed.
class MonkeyDesktop : public UnattendedDesktop
{
public:
    MonkeyDesktop(Script &script, const std::string &folder, unsigned seed)
        : UnattendedDesktop(QString(), seed), script_(script), folder_(folder)
    {}

    Answer message(const std::string &text, Icon icon, Buttons buttons) override
    {
        static const QMap<Buttons, QStringList> words = {
            {Buttons::ok, {"ok"}},
            {Buttons::okCancel, {"ok", "cancel"}},
            {Buttons::yesNo, {"yes", "no"}},
            {Buttons::noYes, {"yes", "no"}},
            {Buttons::yesNoCancel, {"yes", "no", "cancel"}}};
        const QString word = answer(words[buttons] + words[buttons] + QStringList("box"));
        if (word == "box")
            return QtDesktop::message(text, icon, buttons);
        const QStringList all = {"ok", "yes", "no", "cancel"};
        return static_cast<Answer>(all.indexOf(word.isEmpty() ? words[buttons].back() : word));
    }
    std::size_t choose(const std::string &text, const std::vector<std::string> &answers,
                       std::size_t escape) override
    {
        QStringList words = {"box"};
        for (std::size_t place = 0; place < answers.size(); ++place)
            words << QString::number(place);
        const QString word = answer(words);
        if (word == "box")
            return QtDesktop::choose(text, answers, escape);
        return word.isEmpty() ? escape : word.toUInt();
    }
    std::string askText(const std::string &question) override
    {
        const QString word = answer({"", "2", "3", "-1", "abc", "box"});
        return word == "box" ? QtDesktop::askText(question) : word.toStdString();
    }
    std::optional<std::string> askOpenFile(const FileQuestion &) override { return file(); }
    std::optional<std::string> askSaveFile(const FileQuestion &) override { return file(); }
    std::string programFolder() override { return folder_ + "/program"; }

    /// What is done before each answer.
    void setBeforeAnswer(std::function<void()> look) { beforeAnswer_ = std::move(look); }
    /// From now on every question goes without an answer.
    void leave() { leaves_ = true; }

private:
    QString answer(const QStringList &words)
    {
        beforeAnswer_();
        if (script_.isReplay())
            return script_.nextAnswer().value_or(QString());
        if (leaves_)
            return {};
        const QString word = words[below(static_cast<std::size_t>(words.size()))];
        script_.keep({"answer", word});
        return word;
    }
    std::optional<std::string> file()
    {
        const QString name = answer({"", Whim::anyFile(*this), Whim::anyFile(*this)});
        return name.isEmpty() ? std::nullopt
                              : std::optional(folder_ + "/files/" + name.toStdString());
    }

    Script &script_;
    const std::string folder_;
    std::function<void()> beforeAnswer_ = [] {};
    bool leaves_ = false;
};

class Session : public QObject
{
public:
    Session(Script &script, MonkeyDesktop &desktop, DrivenWindow &window, const QString &folder,
            int actions)
        : script_(script),
          desktop_(desktop),
          watch_(window),
          hands_(window, watch_, folder + "/files"),
          whim_(window, desktop),
          left_(actions)
    {
        desktop_.setBeforeAnswer([this] { watch_.see(); });
        next_.setSingleShot(true);
        connect(&next_, &QTimer::timeout, this, &Session::act);
        next_.start(0);
    }
    ~Session() override
    {
        desktop_.setBeforeAnswer([] {});
    }
    void report() const
    {
        std::cout << done_ << " actions, effective: " << effective_ << ", at most " << mostElements_
                  << " elements, analyses: " << analysesFinished << '\n';
    }

private:
    /// In whatever event loop waits for a user; what the line leads to may begin one more.
    void act()
    {
        const std::optional<Line> line = nextLine();
        next_.start(0);
        if (!line)
            return leave();
        ++done_;
        effective_ += perform(*line) ? 1 : 0;
        mostElements_ = std::max<int>(mostElements_, Arithmos_Stoixeion);
    }
    bool perform(const Line &line)
    {
        static const std::map<QString, bool (Watch::*)()> ways = {
            {"undo", &Watch::undo}, {"redo", &Watch::redo}, {"walk", &Watch::walk}};
        const QString verb = line.verb();
        if (const auto way = ways.find(verb); way != ways.end())
            return watch_.isModelAtHand() && (watch_.*way->second)();
        watch_.begin(line);
        const bool isEffective = hands_.perform(line);
        watch_.end(line);
        return isEffective;
    }
    std::optional<Line> nextLine()
    {
        if (script_.isReplay())
            return script_.next();
        if (--left_ < 0)
            return {};
        const QString line = whim_.nextLine().join('\t');
        script_.keep({line});
        return Line{line.split('\t')};
    }
    /// By way of all that waits for an answer.
    void leave()
    {
        desktop_.leave();
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        else if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            dialog->reject();
        else {
            next_.stop();
            QApplication::exit(); // a quit would ask about the model
        }
    }

    Script &script_;
    MonkeyDesktop &desktop_;
    Watch watch_;
    Hands hands_;
    Whim whim_;
    QTimer next_;
    int left_;
    int done_ = 0;
    int effective_ = 0; ///< of which those that found what they name
    int mostElements_ = 0;
};

/// The folders of a user who has just installed the program, and files to open.
void furnish(const fs::path &folder)
{
    const fs::path files = folder / "files", program = folder / "program";
    fs::create_directories(files / "folder.vsk");
    fs::create_directories(program / "examples");
    fs::create_directory(folder / "runtime");
    fs::permissions(folder / "runtime", fs::perms::owner_all);
    for (const char *name : {"Languages", "Veskora_ML.qch", "Veskora_ML.qhc"})
        fs::create_symlink(fs::path(PROGRAM_FOLDER) / name, program / name);
    for (const char *name : {"arch.vsk", "truss.vsk", "portal_frame.vsk", "supports.vsk",
                             "unstable_portal.vsk", "gerber_beam.vsk"})
        for (const fs::path &place : {files, program / "examples"})
            fs::copy_file(fs::path(EXAMPLES) / name, place / name);
    std::ofstream(files / "rubbish.vsk") << "\033rubbish\n\n,,,";
    fs::copy_file(files / "truss.vsk", files / "cut.vsk");
    fs::resize_file(files / "cut.vsk", fs::file_size(files / "truss.vsk") / 2);
    for (const auto &[name, value] : {std::pair{"XDG_CONFIG_HOME", (folder / "config").string()},
                                      {"XDG_DATA_HOME", (folder / "data").string()},
                                      {"XDG_RUNTIME_DIR", (folder / "runtime").string()},
                                      {"HOME", folder.string()},
                                      {"TMPDIR", folder.string()},
                                      {"PATH", ""},
                                      {"QT_QPA_PLATFORM", "offscreen"},
                                      {"QT_PRINTER_MODULE", "none"}})
        ::setenv(name, value.c_str(), 1);
    fs::current_path(files);
}

void hear(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    std::cerr << text.toStdString() << '\n';
    // What the platform without a screen lacks, and the hands' own.
    bool isKnown = type == QtDebugMsg || type == QtInfoMsg;
    for (const char *known :
         {"This plugin does not support", "not accepted by receiving widget",
          "Unable to detect a web browser", "Unable to load printer plugin \"none\""})
        isKnown = isKnown || text.contains(known);
    require(isKnown, "Qt has nothing to warn of");
}

/// The window reads what stands in the first line before it is made.
Line firstLine(Script &script, MonkeyDesktop &desktop)
{
    if (script.isReplay())
        return script.next().value_or(Line());
    constexpr const char *languages[] = {"English", "English", "German", "Greek",
                                         "French",  "Italian", "Spanish"};
    const QStringList fields = {"start", desktop.below(4) == 0 ? "welcome" : "plain",
                                languages[desktop.below(std::size(languages))],
                                desktop.below(4) == 0 ? QString() : Whim::anyFile(desktop)};
    script.keep(fields);
    return Line{fields};
}

int run(Script &script, const QString &folder, unsigned seed, int actions)
{
    resetStore();
    MonkeyDesktop desktop(script, folder.toStdString(), seed);
    setDesktop(&desktop);
    const Line start = firstLine(script, desktop);
    const QString model = start.at(3).isEmpty() ? QString() : folder + "/files/" + start.at(3);
    storeLanguage(start.at(2).toStdString());
    DrivenWindow window(desktop, start.at(1) == "welcome");
    Session session(script, desktop, window, folder, actions);
    window.start(model);
    QApplication::exec();
    Watch::requireRoundTrip(folder.toStdString());
    session.report();
    return EXIT_SUCCESS;
}

} // namespace
} // namespace veskora

int main(int argc, char **argv)
{
    using namespace veskora;
    const QStringList arguments(argv + 1, argv + argc);
    const bool isReplay = arguments.value(0) == "--replay";
    if (arguments.size() != (isReplay ? 2 : 3))
        return 2;
    Script script(arguments.back(), isReplay);
    const QTemporaryDir folder;
    furnish(folder.path().toStdString());
    qInstallMessageHandler(hear);
    const Application application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setCursorFlashTime(0);
    QApplication::styleHints()->setKeyboardInputInterval(-1);
    const int status = run(script, folder.path(), arguments[0].toUInt(), arguments[1].toInt());
    fs::current_path("/");
    return status;
}
