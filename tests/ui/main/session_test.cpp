// What a user does with models and their files, and what the program says and shows behind it.

#include "FileCommands.h"
#include "Gestures.h"
#include "Journal.h"
#include "JournalKeeper.h"
#include "ModelText.h"
#include "NamedVariables.h"
#include "StatusPanel.h"

#include <QFocusFrame>
#include <QMimeData>

#include <fnmatch.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

/// With what tests/data/session.txt says besides the gestures.
class Session : public Gestures
{
protected:
    Session() { fs::create_directories(recovery()); }

    /// What a row names, or several that blanks part, as text.
    std::string factsOf(const QString &names)
    {
        if (names.contains('/'))
            return contentNamed(inFolder(names));
        QString all;
        for (const QString &name : names.split(' '))
            all += QString::fromStdString(factOf(name));
        for (const auto &[name, folder] : folders_)
            all.replace(folder, name);
        return all.toStdString();
    }
    QStringList linesBefore_;

private:
    const std::vector<std::pair<QString, QString>> folders_ = {
        {"recovery/", QString::fromStdString(recovery().string() + "/")},
        {"~/", QString::fromStdString(path(""))}};

    std::string inFolder(QString text) const
    {
        for (const auto &[name, folder] : folders_)
            text.replace(name, folder);
        return text.replace("\\n", "\r\n").toStdString();
    }
    std::string contentNamed(const std::string &name) const
    {
        const std::string content = contentOf(name);
        return !fs::exists(name)          ? "none"
               : content == small         ? "small"
               : content == modelText()   ? "the model"
               : content == left_         ? "the model left"
               : content.starts_with('*') ? "another model"
                                          : content.substr(0, 5);
    }
    std::string factOf(const QString &name)
    {
        const auto number = [](double value) { return QString::number(value).toStdString(); };
        const std::map<QString, std::function<std::string()>> facts = {
            {"caption", [&] { return caption(); }},
            {"file", [] { return Onoma_Arxeiou; }},
            {"folder", [] { return currentFolder + "/"; }},
            {"nodes", [&] { return number(Arithmos_Kombon); }},
            {"x", [&] { return number(Komboi(1, node::x)); }},
            {"view", [&] { return number(Katastasi_Provolis); }},
            {"steps", [&] { return number(Thesi_Istorikou); }},
            {"toAnalyse", [&] { return number(Allagi_Montelou); }},
            {"isSaved", [&] { return number(FileCommands::isSaved()); }},
            {"isOpen", [&] { return number(window->isVisible()); }},
            {"pointer", [&] { return number(canvas().cursor().shape()); }},
            {"ground", [&] { return number(canvas().kanvas().image().pixel(1, 1) & 0xFFFFFF); }},
            {"isBold", [&] { return number(endOfLog().fontWeight() == QFont::Bold); }},
            {"said", [&] { return said_; }},
            {"log", [&] { return log().mid(linesBefore_.size()).join(" /").toStdString(); }},
            {"tellings", [&] { return std::to_string(log().filter("by another program").size()); }},
            {"kept", [&] { return kept(); }},
            {"recent", [&] { return recent(); }},
            {"proposed", [&] { return desktop.fileQuestions.back().proposed; }},
            {"filter", [&] { return desktop.fileQuestions.back().filter; }}};
        if (const auto fact = facts.find(name); fact != facts.end())
            return fact->second();
        const auto variables = namedVariables();
        if (const auto variable = variables.find(name.toStdString()); variable != variables.end())
            return number(valueOf(variable->second));
        return lookOf(*find<QObject>(name.toLatin1()));
    }
    static std::string lookOf(const QObject &object)
    {
        if (const auto *action = qobject_cast<const QAction *>(&object))
            return action->isCheckable() ? action->isChecked() ? "x" : "o"
                                         : action->text().toStdString();
        if (const auto *frame = qobject_cast<const QFocusFrame *>(&object);
            frame && frame->widget())
            return frame->widget()->objectName().toStdString();
        if (const auto *panel = qobject_cast<const StatusPanel *>(&object))
            return panel->look() ? "on" : "off";
        const auto *label = qobject_cast<const QLabel *>(&object);
        return !dynamic_cast<const QWidget &>(object).isVisible() ? "hidden"
               : label != nullptr                                 ? label->text().toStdString()
                                                                  : "shown";
    }
    std::string kept() const
    {
        QString all;
        for (const std::string &model : keptModels())
            all += QString::fromStdString(model);
        return all.simplified().toStdString();
    }
    std::string recent()
    {
        auto *menu = find<QMenu>("mnuRECENT");
        emit menu->aboutToShow();
        QStringList tips;
        for (const QAction *entry : menu->actions())
            if (entry->isVisible() && entry->isEnabled())
                tips << entry->toolTip();
        return tips.join(" + ").toStdString();
    }

    bool perform(const QString &gesture) override
    {
        left_ = modelText();
        const QString verb = gesture.section(' ', 0, 0), rest = gesture.section(' ', 1);
        const QString first = rest.section(' ', 0, 0), others = rest.section(' ', 1);
        static const QMap<QString, Answer> answers = {{"ok", Answer::ok},
                                                      {"yes", Answer::yes},
                                                      {"no", Answer::no},
                                                      {"cancel", Answer::cancel}};
        static const std::map<QString, Icon> icons = {
            {"plain", Icon::none}, {"warning", Icon::exclamation}, {"error", Icon::critical}};
        const Answer answer = answers.value(others.section(' ', 0, 0));
        const QString text = others.section(' ', 1);
        const std::map<QString, std::function<void()>> verbs = {
            {"start", [&] { startWith(rest); }},
            {"end", [&] { window.reset(); }},
            {"run", [&] { openDesktop(), startWith(rest); }},
            {"write", [&] { writeText(first, others); }},
            {"remove", [&] { fs::remove_all(inFolder(rest)); }},
            {"group", [&] { putGroup(3, 4, 5); }},
            {"node", [&] { putNode(9, 9); }},
            {"without", [&] { --Arithmos_Kombon; }},
            {"emptied", [] { Katharismos_Montelou(); }},
            {"set", [&] { setValue(namedVariables().at(first.toStdString()), others.toDouble()); }},
            {"back", [&] { comeBack(); }},
            {"button", [&] { MainWindow::click(rest.toLatin1()); }},
            {"dialog", [&] { desktop.expectFileDialog(inFolder(rest)); }},
            {"no-dialog", [&] { desktop.expectFileDialog(std::nullopt); }},
            {"filter", [&] { desktop.filterPattern = rest.toStdString(); }},
            {"box", [&] { desktop.expectMessage(inFolder(text), icons.at(first), answer); }},
            {"save?", [&] { expectSaveQuestion(answer, inFolder(text), icons.at(first)); }},
            {"any-box", [&] { desktop.expectAnyMessage(said_); }},
            {"choice", [&] { desktop.expectChoice(inFolder(others), first.toULong()); }},
            {"meanwhile", [&] { desktop.beforeChoice = [this, rest] { perform(rest); }; }},
            {"drop", [&] { drop(rest.split("; ")); }},
            {"seconds", [&] { pass(rest.toInt()); }},
        };
        const auto found = verbs.find(verb);
        if (found == verbs.end())
            return false;
        found->second();
        return true;
    }
    void startWith(const QString &file)
    {
        linesBefore_.clear();
        reopen();
        start(file.isEmpty() ? "" : inFolder(file));
    }
    /// "small", of which lines may be others, as "7:text;" tells, or cut off, as "7-" does; or what
    /// stands there.
    void writeText(const QString &file, const QString &text)
    {
        if (!text.startsWith("small"))
            return write(inFolder(file), inFolder(text));
        QStringList lines = QString::fromStdString(small).split("\r\n");
        for (const QString &change : text.mid(6).split(';', Qt::SkipEmptyParts))
            if (change.endsWith('-'))
                lines.resize(change.chopped(1).toInt());
            else
                lines[change.section(':', 0, 0).toInt() - 1] = change.section(':', 1);
        write(inFolder(file), inFolder(lines.join("\r\n")));
    }
    /// On the canvas and into the window, as a file manager lets one drop and move them.
    void drop(const QStringList &files)
    {
        QList<QUrl> urls;
        for (const QString &file : files)
            urls << QUrl::fromLocalFile(QString::fromStdString(inFolder(file)));
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&canvas(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window.get(), &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        QCoreApplication::processEvents();
    }
    void pass(int seconds)
    {
        for (; seconds > 0; --seconds) {
            tick("JournalTimer");
            find<JournalKeeper>("")->waitForWriting();
        }
    }

    std::string said_, left_; ///< the model before the last act
};

TEST_F(Session, IsSeenToDoWhatItDoes)
{
    for (const auto &[given, expected] : dataCases("session.txt")) {
        SCOPED_TRACE(given);
        linesBefore_ = window != nullptr ? log() : QStringList();
        act(given);
        desktop.expectNothingLeft();
        for (const QString &fact : QString::fromStdString(expected).split(" | ")) {
            const std::string is = factsOf(fact.section('=', 0, 0));
            const std::string pattern = fact.section('=', 1).toStdString();
            EXPECT_EQ(::fnmatch(pattern.c_str(), is.c_str(), 0), 0)
                << fact.toStdString() << "\n  it is: " << is;
        }
    }
}

} // namespace
} // namespace veskora
