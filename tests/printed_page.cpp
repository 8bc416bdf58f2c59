// Lays a report on A4 pages in a PDF file as the program prints it, for the picture in the docs:
//     veskora_printed_page REPORT.txt PAGES.pdf

#include "Ektiposi.h"

#include <QFile>
#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>

int main(int argc, char **argv)
{
    const QGuiApplication fonts(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    QFile report(arguments[1]);
    QPdfWriter paper(arguments[2]);
    paper.setPageSize(QPageSize(QPageSize::A4));
    const bool printed = report.open(QIODevice::ReadOnly | QIODevice::Text)
                         && veskora::printPages(paper, QString::fromUtf8(report.readAll()));
    return printed ? 0 : 1;
}
