#include "FileType.h"

#include "FileSystem.h"
#include "Functions.h"
#include "Text.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace veskora {

namespace {

constexpr const char *mimeType = "application/x-veskora-model";
constexpr const char *mimeIcon = "application-x-veskora-model";
constexpr const char *entryName = "veskora-ml";

QByteArray mimePackage()
{
    return QByteArray(R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="%1">
    <comment>Veskora Input File</comment>
    <sub-class-of type="text/plain"/>
    <generic-icon name="%2"/>
    <magic priority="60">
      <match type="string" offset="0" value="***********************************">
        <match type="string" offset="37" value="*        VESK! Input file"/>
      </match>
    </magic>
    <glob pattern="*%3"/>
  </mime-type>
</mime-info>
)")
        .replace("%1", mimeType)
        .replace("%2", mimeIcon)
        .replace("%3", modelExtension);
}

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

QByteArray desktopEntry(const QString &program)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Kalvorn Veskora ML\n"
           "GenericName=Plane Frame Analysis\n"
           "Comment=Linear static analysis of plane frames\n"
           "Exec="
           + quotedArgument(program) + " %f\nIcon=" + entryName
           + "\nTerminal=false\nCategories=Education;Science;Engineering;\nMimeType=" + mimeType
           + ";\n";
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// @return whether the file was changed
bool write(const QString &path, const QByteArray &content)
{
    const bool same = contentOf(path) == content;
    QDir().mkpath(QFileInfo(path).path());
    return tryWriteWholeFile(plainText(path), content.toStdString()) && !same;
}

} // namespace

void registerFileType(const QString &program)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString icons = data + "/icons/hicolor/scalable/";
    write(icons + "apps/" + entryName + ".svg", contentOf(":/icons/Veskora_ML.svg"));
    write(icons + "mimetypes/" + mimeIcon + ".svg", contentOf(":/icons/vesk_model.svg"));
    // The desktop keeps tables of its own made from these; they are made anew when ours changed.
    if (write(data + "/mime/packages/" + entryName + ".xml", mimePackage()))
        QProcess::startDetached("update-mime-database", {data + "/mime"});
    if (write(data + "/applications/" + entryName + ".desktop", desktopEntry(program)))
        QProcess::startDetached("update-desktop-database", {data + "/applications"});
}

} // namespace veskora
