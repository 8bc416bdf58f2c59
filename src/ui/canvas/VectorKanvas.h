#pragma once
/// @file
/// What the drawing surfaces have in common on which lines and texts stay such and nothing becomes
/// pixels.

#include "LabelLayout.h"

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>
#include <QSizeF>
#include <QString>
#include <QTransform>

#include <optional>
#include <vector>

namespace veskora {

/// Keeps pen, fill and font, and makes of each primitive one that can be painted, in pixels of
/// which 96 are an inch. Texts wait until the end: then the values of a diagram are laid out so
/// that each can be read, and no line lies over a text; the halos come first, as none is to nibble
/// at a text.
class VectorKanvas : public Kanvas
{
public:
    /// Makes all texts @p factor times as large as they are asked for; lines and symbols stay.
    void setTextScale(double factor) { textScale_ = factor; }

    /// From here on for a printer: no ground, texts no smaller than six points, thin lines, colours
    /// dark enough to be read on white.
    void setForPrint() { isForPrint_ = true; }

    /// What becomes of values that find no free place; at first they stay.
    void setCrowded(Crowded crowded) { crowded_ = crowded; }

    /// How many values were left out so when the texts were put down.
    int valuesWithoutRoom() const { return valuesWithoutRoom_; }

    double width() const override;
    double height() const override;
    void setBackground(double colour) override;
    void setPenColour(double colour) override;
    void setPenWidth(int devicePixels) override;
    void setPenStyle(PenStyle style) override;
    void setFillOn(bool on) override;
    void setFillColour(double colour) override;
    void setFontSize(int points) override;
    void setFontBold(bool bold) override;

protected:
    struct Stroke
    {
        QColor colour;
        double width;
        bool isDotted; ///< one width long, two apart
    };

    /// Pixels of the em in which fonts are made: so large that their metrics are not rounded.
    static constexpr int em = 1000;

    struct PlacedText
    {
        QString text = {};
        QFont font;        ///< of the size `em`
        double size;       ///< of its em, pixels
        QPointF corner;    ///< top left, around which it is turned
        double turn = 0;   ///< counter-clockwise, degrees
        double ascent = 0; ///< from the corner to the base line, before it is turned
        QColor colour = {};
        bool hasHalo = false; ///< what stands at a node has none: it would hide its symbols
        std::optional<Ordinate> ordinate = {}; ///< of a value; pixels
        QRectF patch = {}; ///< filled by the halo, in the font's pixels: a crumb of a line between
                           ///< two digits would be a point

        /// From the font's own pixels, at the beginning of the base line, to those of the picture.
        QTransform place() const;
        /// What the halo is of. A line of the diagram that ended right before a value would make it
        /// negative: where it has no sign, the place of one is kept free too.
        PlacedText underHalo() const;
        /// What it covers with its halo and the place of a sign; one that leans is cut into
        /// several.
        std::vector<LabelBox> boxes() const;
    };

    /// @param size  of the picture, pixels
    explicit VectorKanvas(QSizeF size) : size_(size) {}

    QSizeF size() const { return size_; }
    QColor ground() const;
    /// All halos and texts; to be called once, at the end.
    void paintTexts();

    virtual void paintGround(const QColor &colour) = 0;
    virtual void paintLine(const QPointF &from, const QPointF &to, const Stroke &stroke) = 0;
    virtual void paintPolyline(const QPolygonF &places, const Stroke &stroke) = 0;
    virtual void paintDisc(const QPointF &centre, double radius, const QColor &colour) = 0;
    /// @param fill  invalid: none
    virtual void paintCircle(const QPointF &centre, double radius, const Stroke &stroke,
                             const QColor &fill) = 0;
    /// Counter-clockwise over @p span, at most a whole turn; radians.
    virtual void paintArc(const QPointF &centre, double radius, double start, double span,
                          const Stroke &stroke) = 0;
    virtual void paintHalo(const PlacedText &text, const Stroke &stroke) = 0;
    virtual void paintText(const PlacedText &text) = 0;

    void doClear() override;
    void doLine(float x1, float y1, float x2, float y2) override;
    void doPolyline(std::span<const Point> places) override;
    void doPoint(float x, float y) override;
    void doCircle(float x, float y, float radius) override;
    void doArc(float x, float y, float radius, double start, double end) override;
    void doPrint(const std::string &text, float x, float y) override;
    void doPrintRotated(const std::string &text, float x, float y, const RotatedFont &font,
                        int angle) override;
    void doPrintOnGround(const std::string &text, float x, float y) override;
    void doPrintValue(const std::string &text, float x, float y, const Ordinate &ordinate) override;
    double lineAdvance() const override;

private:
    Stroke stroke() const;
    QColor onPaper(const QColor &colour) const;
    QFont font() const;
    double fontSize() const;
    void place(const std::string &text, PlacedText placed);
    void layOutValues();
    bool isSeen(const PlacedText &text) const;

    QSizeF size_;
    double textScale_ = 1;
    bool isForPrint_ = false;
    Crowded crowded_ = Crowded::stay;
    QColor background_ = Qt::white;
    QColor penColour_ = Qt::black;
    int penWidth_ = 1;
    PenStyle penStyle_ = PenStyle::solid;
    bool fillOn_ = false;
    QColor fillColour_ = Qt::white;
    int fontSize_ = 9;
    bool fontBold_ = false;
    std::vector<PlacedText> texts_;
    int valuesWithoutRoom_ = 0;
};

} // namespace veskora
