#pragma once
/// @file
/// Texts laid out for painting, kept from one picture to the next.

#include <QFont>
#include <QGlyphRun>
#include <QImage>
#include <QList>

#include <string>
#include <unordered_map>

namespace veskora {

/// The texts of one font. Most texts of a picture stand in the picture before it too, and laying a
/// text out takes longer than painting its glyphs. To be used by the thread that paints.
class ReadyTexts
{
public:
    explicit ReadyTexts(const QFont &font);

    const QFont &font() const { return font_; }
    double ascent() const { return ascent_; }         ///< pixels
    double lineHeight() const { return lineHeight_; } ///< of ascent and descent, pixels

    /// The glyphs of @p text, from the beginning of its base line. Valid until the next call.
    const QList<QGlyphRun> &level(const std::string &text);

    /// The pixels of @p text on nothing, turned clockwise by @p degrees, a multiple of 90. Glyphs
    /// that are turned themselves are not put on whole pixels. Valid until the next call.
    const QImage &quarterTurned(const std::string &text, int degrees, const QColor &colour);

private:
    QImage turnedImage(const QString &text, int degrees, const QColor &colour) const;

    QFont font_;
    double ascent_, lineHeight_;
    std::unordered_map<std::string, QList<QGlyphRun>> level_;
    std::unordered_map<std::string, QImage> turned_; ///< by text, angle and colour
};

} // namespace veskora
