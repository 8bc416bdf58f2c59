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
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSocketNotifier>

#include <iostream>
#include <sstream>
#include <stdexcept>

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
        std::string line, name, first, second;
        if (!std::getline(std::cin, line))
            return QApplication::quit();
        std::istringstream(line) >> name >> first >> second;
        const std::string text = perform(name, first, second);
        QCoreApplication::processEvents(); // what waits to be written is
        answer(text);
    }

    std::string perform(const std::string &order, const std::string &first,
                        const std::string &second)
    {
        if (order == "edit") {
            DrivenWindow::provideGroup();
            Omades(1, group::E) = std::stod(first);
        } else if (order == "remember") {
            rememberFile(first);
        } else if (order == "recent") {
            std::string all;
            for (const std::string &file : recentFiles())
                all += file + ' ';
            return all;
        } else if (order == "set") {
            desktop_.storeSetting("Drill", first, second);
        } else if (order == "get") {
            return desktop_.setting("Drill", first, "");
        } else if (order == "save") {
            return save("mnuAPOTHIKEFSIitem", first);
        } else if (order == "new") {
            return save("mnuNEOitem", first);
        } else if (order == "open") {
            window_.trigger("mnuANAGNOSIitem");
            return Onoma_Arxeiou;
        } else if (order == "journal") {
            window_.keepJournal();
        } else if (order == "help") {
            return searchHelp();
        } else {
            throw std::invalid_argument(order);
        }
        return {};
    }

    void answer(const std::string &text)
    {
        std::cout << std::exchange(desktop_.asked, 0) << ' '
                  << DrivenWindow::sumOfModel().constData() << ' ' << text << std::endl;
    }

    /// @return "saved" or nothing
    std::string save(const char *command, const std::string &reply)
    {
        desktop_.replaces = reply == "yes";
        desktop_.saves = true;
        const std::string text = modelText(), file = Onoma_Arxeiou;
        window_.trigger(command);
        desktop_.saves = false;
        const auto known = knownFileSum ? knownFileSum : sumOfFile(file); // the model may be left
        return known == sumOf(text) ? "saved" : "";
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
