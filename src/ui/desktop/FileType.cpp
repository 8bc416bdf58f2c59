#include "FileType.h"

#include "FileSystem.h"
#include "Text.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

namespace veskora {

namespace {

/// What the desktop knows the program and its files by.
struct Part
{
    const char *place;          ///< in a data folder
    const char *source;         ///< among the resources
    const char *tool = nullptr; ///< that makes the desktop's own tables of it anew
    const char *tables = "";    ///< where they are
};
constexpr Part entry = {"/applications/veskora-ml.desktop", ":/packaging/veskora-ml.desktop.in",
                        "update-desktop-database", "/applications"};
constexpr Part typeParts[] = {
    {"/icons/hicolor/scalable/apps/veskora-ml.svg", ":/icons/Veskora_ML.svg"},
    {"/icons/hicolor/scalable/mimetypes/application-x-veskora-model.svg", ":/icons/vesk_model.svg"},
    {"/mime/packages/veskora-ml.xml", ":/packaging/veskora-ml.xml", "update-mime-database",
     "/mime"},
    entry,
};

/// A path as an argument of a desktop entry's Exec line: in quotes, with the characters that mean
/// something there escaped, once for the quotes and once for the file.
QByteArray quotedArgument(const QString &path)
{
    QString text = path;
    for (const char *special : {"\\", "\"", "`", "$"})
        text.replace(special, QString("\\") + special);
    text.replace("\\", "\\\\").replace("%", "%%");
    return '"' + text.toUtf8() + '"';
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What is there already is left alone: each start comes here, and the disk is slow.
/// @return whether the file was changed
bool write(const QString &path, const QByteArray &content)
{
    if (contentOf(path) == content)
        return false;
    QDir().mkpath(QFileInfo(path).path());
    return tryWriteWholeFile(plainText(path), content.toStdString());
}

/// The first word of the line Exec, without the quotes.
QString programOf(const QString &desktopEntry)
{
    static const QRegularExpression exec("^Exec=(.*)$", QRegularExpression::MultilineOption);
    return QProcess::splitCommand(exec.match(desktopEntry).captured(1)).value(0);
}

/// What starts @p program: where it came as a folder, the launcher of its name above its own
/// folder, without which it has no fonts on a system that has none.
QString startOf(const QString &program)
{
    const QFileInfo own(program);
    const QFileInfo launcher(QDir::cleanPath(own.dir().filePath("../" + own.fileName())));
    return launcher.isFile() && launcher.isExecutable() ? launcher.filePath() : program;
}

/// Whether the program is installed for all users, so that the desktop knows it already.
bool isInstalled(const QString &own)
{
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    return std::ranges::any_of(folders, [&own](const QString &folder) {
        return folder != own
               && std::ranges::all_of(
                   typeParts,
                   [&folder](const Part &part) { return QFile::exists(folder + part.place); })
               && !QStandardPaths::findExecutable(programOf(contentOf(folder + entry.place)))
                       .isEmpty();
    });
}

/// Whether the program wrote @p found, this version or an earlier one that knew fewer lines, and no
/// user who wants another one.
bool isOurEntry(const QByteArray &found)
{
    static const QRegularExpression ourExec(R"(^Exec="/(?:[^"\\]|\\.)*" %f$)");
    const auto isExec = [](const QByteArray &line) { return ourExec.match(line).hasMatch(); };
    const QList<QByteArray> ours = contentOf(entry.source).split('\n');
    const QList<QByteArray> lines = found.split('\n');
    return std::ranges::any_of(lines, isExec)
           && std::ranges::all_of(
               lines, [&](const QByteArray &line) { return ours.contains(line) || isExec(line); });
}

} // namespace

void registerFileType(const QString &program)
{
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const bool installed = isInstalled(own);
    // Copies of ours would stand before what is installed, and start what may be gone by now.
    if (installed && !isOurEntry(contentOf(own + entry.place)))
        return;
    for (const Part &part : typeParts) {
        const QString path = own + part.place;
        const QByteArray content =
            contentOf(part.source).replace("@VESKORA_EXEC@", quotedArgument(startOf(program)));
        const bool changed = installed ? QFile::remove(path) : write(path, content);
        if (changed && part.tool != nullptr)
            QProcess::startDetached(part.tool, {own + part.tables});
    }
}

} // namespace veskora
