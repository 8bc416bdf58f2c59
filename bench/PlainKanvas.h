#pragma once
/// @file
/// The drawing surface as an image, each primitive painted for itself by the painter's plainest
/// operation: what `ImageKanvas` is measured against, and must equal pixel by pixel.

#include "Kanvas.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPen>
#include <QSize>

#include <memory>
#include <optional>

namespace veskora {

class PlainKanvas : public Kanvas
{
public:
    /// @param size   logical pixels
    /// @param scale  device pixels of one logical pixel
    explicit PlainKanvas(QSize size, double scale = 1);
    ~PlainKanvas() override;

    const QImage &image() const { return image_; }

    /// Makes all texts @p factor times as large as they are asked for; lines and symbols stay.
    void setTextScale(double factor);

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
    double doCrisp(float centimetres) const override;
    void doClear() override;
    void doLine(float x1, float y1, float x2, float y2) override;
    void doPolyline(std::span<const Point> places) override;
    void doPoint(float x, float y) override;
    void doCircle(float x, float y, float radius) override;
    void doArc(float x, float y, float radius, double start, double end) override;
    void doPrint(const std::string &text, float x, float y) override;
    void doPrintRotated(const std::string &text, float x, float y, const RotatedFont &font,
                        int angle) override;
    double lineAdvance() const override;

    void open();
    void applyPen();
    void setCap(Qt::PenCapStyle cap);
    struct ArcAngles
    {
        int start, span;
    };
    static ArcAngles arcAngles(double start, double end);
    struct Stroke
    {
        QLineF line;
        bool onPixels;
    };
    /// Of a line that comes near enough to be painted.
    std::optional<Stroke> strokeOf(float x1, float y1, float x2, float y2) const;
    void applyFont();
    double device(double centimetres) const;
    /// The nearest place where a line of the pen's width covers whole device pixels.
    double aligned(double centimetres) const;
    QPointF alignedPoint(double x, double y) const;
    int penPixels() const;
    const QFont &rotatedFont(const RotatedFont &font);
    /// At the painter's origin.
    void printQuarterTurned(const QString &text, int degrees);

    QSize size_;
    double scale_;
    double textScale_ = 1;
    QImage image_;
    std::unique_ptr<QPainter> painter_;

    QColor background_ = Qt::white;
    QColor penColour_ = Qt::black;
    int penWidth_ = 1;
    PenStyle penStyle_ = PenStyle::solid;
    bool fillOn_ = false;
    QColor fillColour_ = Qt::white;
    int fontSize_ = 9;
    bool fontBold_ = false;
    QFont font_;
    double ascent_ = 0;     ///< of the font, device pixels
    double lineHeight_ = 0; ///< of the font, device pixels
    RotatedFont rotatedKey_{};
    QFont rotated_;
    double rotatedAscent_ = 0;
};

} // namespace veskora
