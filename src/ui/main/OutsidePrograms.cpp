#include "OutsidePrograms.h"

#include <QApplication>
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
    QDesktopServices::openUrl(
        QUrl::fromLocalFile(QApplication::applicationDirPath() + "/web/index.html"));
}

void openFile(const QString &path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace veskora
