#include "SvgKanvas.h"

#include "FontSubset.h"
#include "Units.h"

#include <QFontMetricsF>
#include <QRawFont>
#include <QStringList>

#include <cmath>
#include <numbers>

namespace veskora {

namespace {

/// As short as it can be, and with a point whatever the locale.
QString number(double value, int decimals = 3)
{
    QString text = QString::number(value, 'f', decimals);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text.isEmpty() || text == "-0" || text == "-" ? "0" : text;
}

QString pair(const QPointF &place)
{
    return number(place.x()) + "," + number(place.y());
}

QString matrix(const QTransform &way)
{
    constexpr int fine = 7; // an em has a thousand of the pixels that this makes small
    return "matrix(" + number(way.m11(), fine) + " " + number(way.m12(), fine) + " "
           + number(way.m21(), fine) + " " + number(way.m22(), fine) + " " + number(way.dx()) + " "
           + number(way.dy()) + ")";
}

/// Cut, not rounded: a reader that shows whole pixels is to have no empty one at the edge.
QString centimetres(double length)
{
    constexpr double fine = 1e4;
    return number(std::floor(length * fine) / fine, 4) + "cm";
}

/// In whole pixels.
QString pathData(const QPainterPath &path)
{
    QString data;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element at = path.elementAt(i);
        if (at.type == QPainterPath::MoveToElement)
            data += "M";
        else if (at.type == QPainterPath::LineToElement)
            data += "L";
        else
            data += at.type == QPainterPath::CurveToElement ? "C" : " ";
        data += number(at.x, 0) + " " + number(at.y, 0);
    }
    return data;
}

bool isBold(const QFont &font)
{
    return font.weight() >= QFont::DemiBold;
}

/// What texts in @p font and in others that show the same glyphs are written with.
QFont faceOf(QFont font)
{
    font.setWeight(isBold(font) ? QFont::Bold : QFont::Normal);
    font.setUnderline(false);
    font.setStrikeOut(false);
    return font;
}

/// The family that @p font is really of, and others of its widths.
QString families(const QFont &font)
{
    QStringList names = {QRawFont::fromFont(font).familyName(), "Arial", "Liberation Sans",
                         "Helvetica"};
    names.removeDuplicates();
    return "'" + names.join("', '") + "', sans-serif";
}

} // namespace

SvgKanvas::SvgKanvas(QSizeF size, const QString &title) : VectorKanvas(size), file_(&content_)
{
    file_.setAutoFormatting(true);
    file_.setAutoFormattingIndent(1);
    file_.writeStartDocument();
    file_.writeStartElement("svg");
    file_.writeDefaultNamespace("http://www.w3.org/2000/svg");
    file_.writeNamespace("http://www.w3.org/1999/xlink", "xlink");
    attribute("width", centimetres(width()));
    attribute("height", centimetres(height()));
    attribute("viewBox", "0 0 " + number(size.width()) + " " + number(size.height()));
    attribute("fill", QString("none"));
    attribute("stroke-linecap", QString("round"));
    attribute("stroke-linejoin", QString("round"));
    file_.writeTextElement("title", title);
}

QByteArray SvgKanvas::finish()
{
    paintTexts();
    writeFonts();
    file_.writeEndDocument();
    return content_;
}

void SvgKanvas::attribute(const char *name, double value)
{
    attribute(name, number(value));
}

void SvgKanvas::attribute(const char *name, const QString &value)
{
    file_.writeAttribute(QString::fromLatin1(name), value);
}

void SvgKanvas::attribute(const char *name, const QColor &colour)
{
    attribute(name, colour.name());
}

void SvgKanvas::writeStroke(const Stroke &stroke)
{
    attribute("stroke", stroke.colour);
    attribute("stroke-width", stroke.width);
    if (stroke.isDotted) {
        attribute("stroke-dasharray", number(stroke.width) + " " + number(2 * stroke.width));
        attribute("stroke-linecap", QString("butt"));
    }
}

// ------------------------------------------------------------------------------------- primitives

void SvgKanvas::paintGround(const QColor &colour)
{
    file_.writeEmptyElement("rect");
    attribute("width", size().width());
    attribute("height", size().height());
    attribute("fill", colour);
}

void SvgKanvas::paintLine(const QPointF &from, const QPointF &to, const Stroke &stroke)
{
    file_.writeEmptyElement("line");
    attribute("x1", from.x());
    attribute("y1", from.y());
    attribute("x2", to.x());
    attribute("y2", to.y());
    writeStroke(stroke);
}

void SvgKanvas::paintPolyline(const QPolygonF &places, const Stroke &stroke)
{
    QStringList points;
    for (const QPointF &place : places)
        points << pair(place);
    file_.writeEmptyElement("polyline");
    attribute("points", points.join(' '));
    writeStroke(stroke);
}

void SvgKanvas::writeCircle(const QPointF &centre, double radius)
{
    file_.writeEmptyElement("circle");
    attribute("cx", centre.x());
    attribute("cy", centre.y());
    attribute("r", radius);
}

void SvgKanvas::paintDisc(const QPointF &centre, double radius, const QColor &colour)
{
    writeCircle(centre, radius);
    attribute("fill", colour);
}

void SvgKanvas::paintCircle(const QPointF &centre, double radius, const Stroke &stroke,
                            const QColor &fill)
{
    writeCircle(centre, radius);
    writeStroke(stroke);
    if (fill.isValid())
        attribute("fill", fill);
}

void SvgKanvas::paintArc(const QPointF &centre, double radius, double start, double span,
                         const Stroke &stroke)
{
    constexpr double half = std::numbers::pi;
    const auto at = [&](double angle) {
        return centre + radius * QPointF(std::cos(angle), -std::sin(angle));
    };
    const QPointF end = at(start + span);
    if (pair(end) == pair(at(start)) && span > half)
        return paintCircle(centre, radius, stroke, {}); // an arc needs two places
    file_.writeEmptyElement("path");
    attribute("d", "M" + pair(at(start)) + " A" + number(radius) + "," + number(radius) + " 0 "
                       + (span > half ? "1" : "0") + " 0 " + pair(end));
    writeStroke(stroke);
}

// ------------------------------------------------------------------------------------------ texts

QString SvgKanvas::outline(const QFont &font, const QString &character)
{
    QString &name = outlines_[{font, character}];
    if (!name.isEmpty())
        return name;
    name = "c" + QString::number(outlines_.size());
    QPainterPath path;
    path.addText(0, 0, font, character);
    file_.writeStartElement("defs");
    file_.writeEmptyElement("path");
    attribute("id", name);
    attribute("d", pathData(path));
    file_.writeEndElement();
    return name;
}

void SvgKanvas::paintHalo(const PlacedText &text, const Stroke &stroke)
{
    const QFontMetricsF metrics(text.font);
    file_.writeStartElement("g");
    attribute("transform", matrix(text.place()));
    attribute("stroke", stroke.colour);
    attribute("stroke-width", stroke.width * em / text.size);
    for (qsizetype i = 0; i < text.text.size(); ++i) {
        const qsizetype units = text.text[i].isHighSurrogate() ? 2 : 1;
        const QString name = outline(faceOf(text.font), text.text.mid(i, units));
        file_.writeEmptyElement("use");
        attribute("xlink:href", "#" + name);
        attribute("x", metrics.horizontalAdvance(text.text.left(i)));
        i += units - 1;
    }
    if (!text.patch.isEmpty()) {
        file_.writeEmptyElement("rect");
        attribute("x", text.patch.x());
        attribute("y", text.patch.y());
        attribute("width", text.patch.width());
        attribute("height", text.patch.height());
        attribute("fill", stroke.colour);
        attribute("stroke", QString("none"));
    }
    file_.writeEndElement();
}

void SvgKanvas::paintText(const PlacedText &text)
{
    for (const char32_t character : text.text.toStdU32String())
        characters_[faceOf(text.font)].insert(character);
    file_.writeStartElement("text");
    attribute("x", text.corner.x());
    attribute("y", text.corner.y() + text.ascent);
    if (text.turn != 0)
        attribute("transform", "rotate(" + number(-text.turn) + " " + number(text.corner.x()) + " "
                                   + number(text.corner.y()) + ")");
    attribute("font-family", families(text.font));
    attribute("font-size", text.size);
    if (isBold(text.font))
        attribute("font-weight", QString("bold"));
    if (text.font.italic())
        attribute("font-style", QString("italic"));
    if (text.font.underline() || text.font.strikeOut())
        attribute("text-decoration", QString(text.font.underline() ? "underline" : "line-through"));
    attribute("fill", text.colour);
    file_.writeCharacters(text.text);
    file_.writeEndElement();
}

void SvgKanvas::writeFonts()
{
    file_.writeStartElement("style");
    for (const auto &[font, characters] : characters_) {
        const QRawFont raw = QRawFont::fromFont(font);
        const QByteArray part = fontSubset(raw, characters);
        if (!part.isEmpty())
            file_.writeCharacters("@font-face{font-family:'" + raw.familyName()
                                  + "';font-weight:" + (isBold(font) ? "bold" : "normal")
                                  + ";font-style:" + (font.italic() ? "italic" : "normal")
                                  + ";src:url(data:font/ttf;base64,"
                                  + QString::fromLatin1(part.toBase64()) + ")}\n");
    }
    file_.writeEndElement();
}

} // namespace veskora
