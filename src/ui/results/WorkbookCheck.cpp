#include "WorkbookCheck.h"

#include "Fault.h"

#include <QXmlStreamReader>

#include <unzip.h>

#include <array>
#include <memory>

namespace veskora {

namespace {

void require(bool isWhole)
{
    if (!isWhole)
        throw Fault("the workbook was not written whole: the disk may be full");
}

/// Of the member that the archive stands at.
QByteArray content(unzFile archive)
{
    QByteArray all;
    std::array<char, 16384> piece;
    require(unzOpenCurrentFile(archive) == UNZ_OK);
    int count = 0;
    while ((count = unzReadCurrentFile(archive, piece.data(), piece.size())) > 0)
        all.append(piece.data(), count);
    require(unzCloseCurrentFile(archive) == UNZ_OK && count == 0); // closing compares the check sum
    return all;
}

struct Cells
{
    QStringList strings; ///< that they share
    QStringList values;  ///< numbers of those
    qsizetype count = 0;
};

/// Each part is a document, in which a loss leaves something open; no two have elements in common
/// that are looked for.
void read(const QByteArray &part, Cells &cells)
{
    QXmlStreamReader xml(part);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        cells.count += xml.name() == u"c";
        if (xml.name() == u"t")
            cells.strings << xml.readElementText();
        else if (xml.name() == u"v")
            cells.values << xml.readElementText();
    }
    require(!xml.hasError());
}

} // namespace

void requireWholeWorkbook(const std::string &path, const QStringList &texts, qsizetype count)
{
    const std::unique_ptr<void, int (*)(unzFile)> archive(unzOpen(path.c_str()), unzClose);
    require(archive != nullptr);
    Cells cells;
    int at = unzGoToFirstFile(archive.get());
    for (; at == UNZ_OK; at = unzGoToNextFile(archive.get()))
        read(content(archive.get()), cells);
    require(at == UNZ_END_OF_LIST_OF_FILE && cells.count == count);
    QStringList found;
    for (const QString &value : cells.values)
        found << cells.strings.value(value.toInt());
    require(found == texts);
}

} // namespace veskora
