#include "PictureObject.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextCharFormat>
#include <QTextDocument>

namespace veskora {

namespace {

constexpr int pictureObject = QTextFormat::UserObject + 1;
constexpr int pictureIndex = QTextFormat::UserProperty + 2;

} // namespace

PictureObject::PictureObject(QTextDocument *document, const std::vector<DrawnPicture> &pictures)
    : QObject(document), pictures_(pictures)
{
    document->documentLayout()->registerHandler(pictureObject, this);
}

QTextCharFormat PictureObject::format(int index)
{
    QTextCharFormat format;
    format.setObjectType(pictureObject);
    format.setProperty(pictureIndex, index);
    return format;
}

QSizeF PictureObject::intrinsicSize(QTextDocument *document, int, const QTextFormat &format)
{
    const QPaintDevice *device = document->documentLayout()->paintDevice();
    const QSizeF size = pictureOf(format).size * (device->logicalDpiX() / 96.0);
    const double room = document->textWidth() - 2 * document->documentMargin();
    return room > 0 && room < size.width() ? size * (room / size.width()) : size;
}

void PictureObject::drawObject(QPainter *painter, const QRectF &place, QTextDocument *, int,
                               const QTextFormat &format)
{
    if (painter->hasClipping() && !painter->clipBoundingRect().intersects(place))
        return; // of another page, where a search in the file would find its texts too
    const DrawnPicture &picture = pictureOf(format);
    // Playing scales by the resolutions of both.
    const double played =
        static_cast<double>(painter->device()->logicalDpiX()) / picture.drawing.logicalDpiX();
    const double scale = place.width() / picture.size.width() / played;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(place.topLeft());
    painter->scale(scale, scale);
    painter->drawPicture(0, 0, picture.drawing);
    painter->restore();
}

const DrawnPicture &PictureObject::pictureOf(const QTextFormat &format) const
{
    return pictures_[static_cast<std::size_t>(format.intProperty(pictureIndex))];
}

} // namespace veskora

#include "moc_PictureObject.cpp"
