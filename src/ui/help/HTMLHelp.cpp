#include "HTMLHelp.h"

#include "Desktop.h"
#include "Functions.h"
#include "HelpViewer.h"
#include "Text.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace veskora {

namespace {

/// Puts the help file and its collection into a folder of the user's and gives the collection
/// there: the search index is written beside it, and the program's folder may be read-only. The
/// folder's name tells one build of the help file from another; copies of others go with time.
QString collectionInDataFolder(const QString &program)
{
    const QFileInfo source(program + "/Veskora_ML.qch");
    if (!source.isFile())
        return {};
    const QDir all(qtText(desktop().dataFolder()) + "/Help");
    const QString stamp =
        QString("%1-%2").arg(source.size()).arg(source.lastModified().toMSecsSinceEpoch());
    // Another running copy of the program may read what is not old.
    constexpr int kept = 30; // days
    for (const QFileInfo &old : all.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (old.fileName() != stamp
            && old.lastModified() < QDateTime::currentDateTime().addDays(-kept))
            QDir(old.filePath()).removeRecursively();
    const QDir own(all.filePath(stamp));
    if (!QDir().mkpath(own.path()))
        return program + "/Veskora_ML.qhc"; // without a place for its index, all but the search
    // The collection comes last: where it stands, the copy is whole.
    for (const QString name : {"/Veskora_ML.qch", "/Veskora_ML.qhc"}) {
        const QString target = own.path() + name;
        if (QFile::exists(target) && QFileInfo(target).size() == QFileInfo(program + name).size())
            continue;
        QFile::remove(target);
        if (!QFile::copy(program + name, target))
            return program + "/Veskora_ML.qhc";
        QFile(target).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    }
    return own.filePath("Veskora_ML.qhc");
}

} // namespace

HTMLHelp::HTMLHelp() = default;

HTMLHelp::~HTMLHelp() = default;

HelpViewer *HTMLHelp::open()
{
    if (viewer_ == nullptr) {
        const QString program = qtText(desktop().programFolder());
        auto viewer = std::make_unique<HelpViewer>(collectionInDataFolder(program));
        if (!viewer->isUsable()) {
            showRefusal(Metafrasi(2170, "The help cannot be shown. Its file is missing or damaged:")
                        + " " + plainText(program) + "/Veskora_ML.qch");
            return nullptr;
        }
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

void HTMLHelp::showTopic(const QString &id)
{
    if (HelpViewer *viewer = open(); viewer != nullptr && !viewer->showTopic(id))
        viewer->showContents();
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
