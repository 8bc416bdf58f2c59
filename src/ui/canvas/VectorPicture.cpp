#include "VectorPicture.h"

#include "PaperKanvas.h"
#include "SvgKanvas.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>

#include <algorithm>

namespace veskora {

namespace {

using Draw = std::function<void(VectorKanvas &)>;

QByteArray svg(QSizeF size, const QString &title, const Draw &draw)
{
    SvgKanvas kanvas(size, title);
    const CanvasInUse inUse(kanvas);
    draw(kanvas);
    return kanvas.finish();
}

QByteArray pdf(QSizeF size, const QString &title, const Draw &draw)
{
    constexpr double pointsPerPixel = 72.0 / 96;
    constexpr int resolution = 1200;
    const QPageSize page((size * pointsPerPixel).toSize(), QString(), QPageSize::ExactMatch);
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setResolution(resolution);
    writer.setPageSize(page);
    writer.setPageMargins({});
    QPainter painter(&writer);
    // The page has whole points, and all of it is painted.
    PaperKanvas kanvas(painter, page.rectPixels(resolution), resolution / 2.54);
    const CanvasInUse inUse(kanvas);
    draw(kanvas);
    kanvas.finish();
    painter.end();
    return content;
}

} // namespace

std::string vectorPicture(VectorForm form, QSizeF size, const QString &title, const Draw &draw)
{
    QString printable = title; // a file's name may have characters that no XML file may
    printable.removeIf([](QChar c) { return c.unicode() < ' '; });
    return (form == VectorForm::svg ? svg : pdf)(size, printable, draw).toStdString();
}

} // namespace veskora
