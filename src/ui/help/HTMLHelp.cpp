#include "HTMLHelp.h"

#include "Desktop.h"
#include "FileSystem.h"
#include "Functions.h"
#include "HelpViewer.h"
#include "Text.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace veskora {

namespace {

/// Copies that other builds of the program have made go with time.
void removeOldCopies(const QDir &copies, const QString &current)
{
    constexpr int kept = 30; // days: another running copy of the program may read what is not old
    const QDateTime oldest = QDateTime::currentDateTime().addDays(-kept);
    for (const QFileInfo &copy : copies.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (copy.fileName() != current && copy.lastModified() < oldest)
            QDir(copy.filePath()).removeRecursively();
}

/// @return whether both files of the help stand whole in @p folder, which is made for them
bool copyHelp(const QString &program, const QString &folder)
{
    const Turn turn(plainText(folder) + "/turn"); // another copy of the program may be about it
    // The collection comes last: where it stands, the copy is whole.
    for (const QString name : {"/Veskora_ML.qch", "/Veskora_ML.qhc"}) {
        const QString target = folder + name;
        if (QFile::exists(target) && QFileInfo(target).size() == QFileInfo(program + name).size())
            continue;
        QFile::remove(target);
        if (!QFile::copy(program + name, target))
            return false;
        QFile(target).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    }
    return true;
}

/// Gives the help collection to open, empty where the program has no help file. It is a copy in a
/// folder of the user's: the search index is written beside it, and the program's folder may be
/// read-only. The copy's folder has a name that tells one content of the help file from another:
/// its time may be that of the version.
QString provideCollection(const QString &program)
{
    const auto sum = sumOfFile(plainText(program + "/Veskora_ML.qch"));
    if (!sum)
        return {};
    const QDir copies(qtText(desktop().dataFolder()) + "/Help");
    const QString stamp = QString::number(*sum, 16);
    removeOldCopies(copies, stamp);
    const QString own = copies.filePath(stamp);
    // Without a place for its index it has all but the search.
    return (copyHelp(program, own) ? own : program) + "/Veskora_ML.qhc";
}

} // namespace

HTMLHelp::HTMLHelp(std::function<void(const QString &name)> openExample)
    : openExample_(std::move(openExample))
{}

HTMLHelp::~HTMLHelp() = default;

HelpViewer *HTMLHelp::open()
{
    if (viewer_ == nullptr) {
        const QString folder = qtText(suppliedFilesFolder(desktop().programFolder()));
        auto viewer = std::make_unique<HelpViewer>(provideCollection(folder));
        if (!viewer->isUsable()) {
            showRefusal(Metafrasi(2170, "The help cannot be shown. Its file is missing or damaged:")
                        + " " + plainText(folder) + "/Veskora_ML.qch");
            return nullptr;
        }
        QObject::connect(viewer.get(), &HelpViewer::exampleWanted, viewer.get(), openExample_,
                         Qt::QueuedConnection);
        viewer_ = std::move(viewer);
    }
    viewer_->bringUp();
    return viewer_.get();
}

void HTMLHelp::showContents()
{
    if (HelpViewer *viewer = open())
        viewer->showContents();
}

void HTMLHelp::showIndex()
{
    if (HelpViewer *viewer = open())
        viewer->showIndex();
}

void HTMLHelp::showSearch()
{
    if (HelpViewer *viewer = open())
        viewer->showSearch();
}

void HTMLHelp::showTopicOf(const QWidget *front)
{
    HelpViewer *viewer = open();
    if (viewer == nullptr)
        return;
    for (const QWidget *window = front; window != nullptr; window = window->parentWidget())
        for (const QString &id :
             {window->objectName(), QString::fromLatin1(window->metaObject()->className())})
            if (viewer->showTopic(id))
                return;
    viewer->showContents();
}

void HTMLHelp::close()
{
    viewer_.reset();
}

} // namespace veskora
