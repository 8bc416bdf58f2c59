// One of several copies of the window that work side by side; a script says what it does and when.
//   veskora_copies_session MODEL    in the user's folders of the environment
// Orders on standard input, one to a line; each is answered by a line: how often the user was asked
// before a file would be replaced, the sum of the model's text, and what the order gives.

#include "Application.h"
#include "DrivenWindow.h"
#include "FileSystem.h"
#include "Metablites.h"
#include "ModelText.h"
#include "RecentFiles.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSocketNotifier>

#include <functional>
#include <iostream>
#include <map>
#include <sstream>

namespace veskora {
namespace {

class CopyDesktop : public UnattendedDesktop
{
public:
    using UnattendedDesktop::UnattendedDesktop;

    Answer message(const std::string &text, Icon icon, Buttons buttons) override
    {
        if (buttons == Buttons::yesNoCancel)
            return saves ? Answer::yes : Answer::no;
        if (buttons != Buttons::noYes)
            return UnattendedDesktop::message(text, icon, buttons);
        ++asked;
        return replaces ? Answer::yes : Answer::no;
    }
    /// A journal that is offered is opened.
    std::size_t choose(const std::string &, const std::vector<std::string> &, std::size_t) override
    {
        return 0;
    }
    /// The dialog has its own question before a file is replaced.
    std::optional<std::string> askSaveFile(const FileQuestion &question) override
    {
        ++asked;
        return replaces ? UnattendedDesktop::askSaveFile(question) : std::nullopt;
    }

    int asked = 0;
    bool saves = false;    ///< before the model is left
    bool replaces = false; ///< what another copy has put into the file
};

class Session : public QObject
{
public:
    Session(DrivenWindow &window, CopyDesktop &desktop) : window_(window), desktop_(desktop)
    {
        connect(&input_, &QSocketNotifier::activated, this, &Session::obey);
        answer(Onoma_Arxeiou);
    }

private:
    void obey()
    {
        std::string line, name;
        if (!std::getline(std::cin, line))
            return QApplication::quit();
        std::istringstream words(line);
        words >> name;
        const std::string text = orders_.at(name)(words);
        QCoreApplication::processEvents(); // what waits to be written is
        answer(text);
    }

    void answer(const std::string &text)
    {
        const QByteArray sum = QCryptographicHash::hash(modelText(), QCryptographicHash::Md5);
        std::cout << std::exchange(desktop_.asked, 0) << ' ' << sum.toHex().constData() << ' '
                  << text << std::endl;
    }

    /// @return "saved" or nothing
    std::string save(const char *command, std::istream &words)
    {
        std::string reply;
        words >> reply;
        desktop_.replaces = reply == "yes";
        desktop_.saves = true;
        const std::string text = modelText(), file = Onoma_Arxeiou;
        window_.trigger(command);
        desktop_.saves = false;
        const auto known = knownFileSum ? knownFileSum : sumOfFile(file); // the model may be left
        return known == sumOf(text) ? "saved" : "";
    }

    static std::string edit(std::istream &words)
    {
        DrivenWindow::provideGroup();
        words >> Omades(1, group::E);
        return {};
    }

    std::string set(std::istream &words)
    {
        std::string key, value;
        words >> key >> value;
        desktop_.storeSetting("Drill", key, value);
        return {};
    }

    std::string get(std::istream &words)
    {
        std::string key;
        words >> key;
        return desktop_.setting("Drill", key, "");
    }

    static std::string remember(std::istream &words)
    {
        std::string path;
        words >> path;
        rememberFile(path);
        return {};
    }

    static std::string recent()
    {
        std::string all;
        for (const std::string &file : recentFiles())
            all += file + ' ';
        return all;
    }

    /// What the search of the help says of a word that many pages have, once its index is there.
    std::string searchHelp()
    {
        window_.trigger("mnuCONTENTSitem");
        for (QWidget *viewer : QApplication::topLevelWidgets()) {
            auto *found = viewer->findChild<QLabel *>("Found");
            if (found == nullptr)
                continue;
            viewer->findChild<QLineEdit *>("SearchText")->setText("node");
            viewer->findChild<QPushButton *>("SearchButton")->click();
            while (found->text() == "Searching...")
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            const std::string text = found->text().toStdString();
            viewer->close();
            return text;
        }
        return {};
    }

    DrivenWindow &window_;
    CopyDesktop &desktop_;
    QSocketNotifier input_{0, QSocketNotifier::Read};
    using Order = std::function<std::string(std::istream &)>;
    const std::map<std::string, Order> orders_ = {
        {"edit", edit},
        {"remember", remember},
        {"set", [this](std::istream &words) { return set(words); }},
        {"get", [this](std::istream &words) { return get(words); }},
        {"save", [this](std::istream &words) { return save("mnuAPOTHIKEFSIitem", words); }},
        {"new", [this](std::istream &words) { return save("mnuNEOitem", words); }},
        {"open",
         [this](std::istream &) {
             window_.trigger("mnuANAGNOSIitem");
             return Onoma_Arxeiou;
         }},
        {"journal",
         [this](std::istream &) {
             window_.keepJournal();
             return std::string();
         }},
        {"recent", [](std::istream &) { return recent(); }},
        {"help", [this](std::istream &) { return searchHelp(); }},
    };
};

} // namespace
} // namespace veskora

int main(int argc, char **argv)
{
    const veskora::Application application(argc, argv);
    const QString model = QApplication::arguments().value(1);
    veskora::resetStore();
    veskora::CopyDesktop desktop(model, 1);
    veskora::setDesktop(&desktop);
    veskora::DrivenWindow window(desktop, QFile::exists(model) ? model : QString());
    const veskora::Session session(window, desktop);
    return QApplication::exec();
}
