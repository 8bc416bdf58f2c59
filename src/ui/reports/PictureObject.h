#pragma once
/// @file
/// Pictures of vectors within a text of the toolkit.

#include "StepsFile.h"

#include <QObject>
#include <QTextObjectInterface>

#include <vector>

class QTextCharFormat;

namespace veskora {

/// Lets a text hold pictures that are painted at the pixels of whatever it is painted on, no wider
/// than the text.
class PictureObject : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
public:
    /// Belongs to @p document.
    PictureObject(QTextDocument *document, const std::vector<DrawnPicture> &pictures);

    /// Of the character that stands for the picture at place @p index.
    static QTextCharFormat format(int index);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &place, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    const DrawnPicture &pictureOf(const QTextFormat &format) const;

    std::vector<DrawnPicture> pictures_;
};

} // namespace veskora
