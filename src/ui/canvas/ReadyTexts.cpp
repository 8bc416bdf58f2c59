#include "ReadyTexts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace veskora {

namespace {

/// More than a picture of the largest model has; a table that is full begins anew.
constexpr std::size_t mostLevel = 4096, mostTurned = 2048;

QList<QGlyphRun> laidOut(const QString &text, const QFont &font)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    QList<QGlyphRun> runs = layout.glyphRuns();
    for (QGlyphRun &run : runs) {
        QList<QPointF> places = run.positions();
        for (QPointF &place : places)
            place.ry() -= line.ascent();
        run.setPositions(places);
    }
    return runs;
}

/// Puts what @p make gives into a full table only after emptying it.
template <typename Table, typename Make>
const auto &kept(Table &table, std::size_t most, const std::string &key, Make make)
{
    if (const auto found = table.find(key); found != table.end())
        return found->second;
    if (table.size() >= most)
        table.clear();
    return table.emplace(key, make()).first->second;
}

} // namespace

ReadyTexts::ReadyTexts(const QFont &font) : font_(font)
{
    const QFontMetricsF metrics(font);
    ascent_ = metrics.ascent();
    lineHeight_ = metrics.ascent() + metrics.descent();
}

const QList<QGlyphRun> &ReadyTexts::level(const std::string &text)
{
    return kept(level_, mostLevel, text,
                [&] { return laidOut(QString::fromStdString(text), font_); });
}

const QImage &ReadyTexts::quarterTurned(const std::string &text, int degrees, const QColor &colour)
{
    const std::string key =
        std::to_string(degrees) + "," + std::to_string(colour.rgb()) + "," + text;
    return kept(turned_, mostTurned, key,
                [&] { return turnedImage(QString::fromStdString(text), degrees, colour); });
}

QImage ReadyTexts::turnedImage(const QString &text, int degrees, const QColor &colour) const
{
    const QFontMetricsF metrics(font_);
    QImage level(static_cast<int>(std::ceil(metrics.horizontalAdvance(text))),
                 static_cast<int>(std::ceil(metrics.height())),
                 QImage::Format_ARGB32_Premultiplied);
    level.fill(Qt::transparent);
    QPainter painter(&level);
    painter.setFont(font_);
    painter.setPen(colour);
    painter.drawText(QPointF(0, std::round(ascent_)), text);
    painter.end();
    QTransform turn;
    turn.rotate(degrees);
    return level.transformed(turn);
}

} // namespace veskora
