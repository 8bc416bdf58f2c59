#pragma once
/// @file
/// The drawing surface as an SVG file.

#include "VectorKanvas.h"

#include <QByteArray>
#include <QXmlStreamWriter>

#include <map>
#include <set>
#include <utility>

namespace veskora {

/// Writes an element for each primitive, in pixels of which 96 are an inch; the whole has its size
/// in centimetres. Texts are texts, and the file has the glyphs that they need. Halos are outlines
/// of glyphs under them: not every reader knows a text whose stroke lies under its fill. The same
/// drawing gives the same bytes.
class SvgKanvas : public VectorKanvas
{
public:
    /// @param size  pixels
    SvgKanvas(QSizeF size, const QString &title);

    /// Once, after all drawing: the content of the file.
    QByteArray finish();

protected:
    void paintGround(const QColor &colour) override;
    void paintLine(const QPointF &from, const QPointF &to, const Stroke &stroke) override;
    void paintPolyline(const QPolygonF &places, const Stroke &stroke) override;
    void paintDisc(const QPointF &centre, double radius, const QColor &colour) override;
    void paintCircle(const QPointF &centre, double radius, const Stroke &stroke,
                     const QColor &fill) override;
    void paintArc(const QPointF &centre, double radius, double start, double span,
                  const Stroke &stroke) override;
    void paintHalo(const PlacedText &text, const Stroke &stroke) override;
    void paintText(const PlacedText &text) override;

private:
    void attribute(const char *name, double value);
    void attribute(const char *name, const QString &value);
    void attribute(const char *name, const QColor &colour);
    void writeStroke(const Stroke &stroke);
    void writeCircle(const QPointF &centre, double radius);
    /// @return the name of the outline of one character, written at its first use
    QString outline(const QFont &font, const QString &character);
    void writeFonts();

    QByteArray content_;
    QXmlStreamWriter file_;
    std::map<std::pair<QFont, QString>, QString> outlines_;
    std::map<QFont, std::set<char32_t>> characters_; ///< that texts have in each face
};

} // namespace veskora
