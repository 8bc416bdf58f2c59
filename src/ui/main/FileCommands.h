#pragma once
/// @file
/// How a model comes and how it is left.

#include <QObject>

#include <cstdint>
#include <optional>
#include <string>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace veskora {

struct LostJournal;

/// New, Open in all its ways, Save and the model of the command line. Whatever leaves a model asks
/// `mayLeave` first.
class FileCommands : public QObject
{
    Q_OBJECT
public:
    /// @param log  where a user who sees it reads what became of the model
    explicit FileCommands(const QWidget *log) : log_(log) {}

    void Button_Neo_arxeio();
    void Button_Anagnosi_Arxeiou();
    void Button_Apothikefsi_Arxeiou();
    void saveAs();
    /// One of the files that were opened or saved last.
    void openRecent(const std::string &path);
    void sayNoneRecent();
    /// One of the models that come with the program. @param name  of its file
    void openExample(const std::string &name);
    /// What was dropped on the window; one that is not on this computer is an empty path.
    void openDropped(const QStringList &paths);
    /// @return whether the model is that of the journal now
    bool openJournal(const LostJournal &lost);
    /// The first model of this run: an empty one, or that of the command line.
    void start(const std::string &commandLine);

    /// A line in the log where another program has changed the model's file, once for each change.
    void tellForeignChange();

    /// Whether nothing would be lost if the model were left.
    static bool isSaved();
    /// The save question before the model is left.
    /// @return whether the command goes on
    bool mayLeave(bool closing);

signals:
    /// Another model may be there, and all that shows it is to be made anew; also where the user
    /// chose no file to open.
    void modelReplaced();
    /// The model is as its file has it, or is a new one.
    void modelSettled();

private:
    void open(std::string path);
    bool read(std::string &path);
    void settle(const std::string &path);
    bool save(std::string path, bool insists);
    void tellExamplesStay(bool inBox);
    /// @return whether the model is on disk, in its file or in a recovery file
    bool saveBeforeLeaving(bool closing);

    const QWidget *const log_;
    std::optional<std::uint64_t> told_; ///< sum of the change that was told last
};

} // namespace veskora
