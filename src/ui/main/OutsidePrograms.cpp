#include "OutsidePrograms.h"

#include "Desktop.h"
#include "FileSystem.h"
#include "Text.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

namespace veskora {

void startCalculator()
{
    for (const char *program : {"gnome-calculator", "kcalc", "mate-calc", "galculator",
                                "qalculate-gtk", "deepin-calculator", "xcalc"})
        if (QProcess::startDetached(program, {}))
            return;
}

void openWebPage()
{
    openFile(qtText(suppliedFilesFolder(desktop().programFolder()) + "/web/index.html"));
}

void openFile(const QString &path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace veskora
