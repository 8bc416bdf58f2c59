#pragma once
/// @file
/// The drawing surface as a retained image at the screen's device pixels.

#include "Kanvas.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QSize>

#include <memory>

namespace veskora {

/// Writes @p image in the format named; what stood at @p path stays when that fails.
/// @return whether it was written
bool writeImage(const QImage &image, const QString &path, const char *format);

class ImageKanvas : public Kanvas
{
public:
    /// @param size   logical pixels
    /// @param scale  device pixels of one logical pixel
    explicit ImageKanvas(QSize size, double scale = 1);
    ~ImageKanvas() override;

    /// A new, cleared image; pen, fill and font stay.
    void resize(QSize size, double scale);

    QSize size() const { return size_; }
    double scale() const { return scale_; }
    const QImage &image() const { return image_; }

    /// Makes all texts @p factor times as large as they are asked for; lines and symbols stay.
    void setTextScale(double factor);

    /// Height of one line of text in the font in force, centimetres.
    double textHeight() const { return lineAdvance(); }

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

private:
    void open();
    void applyPen();
    void setCap(Qt::PenCapStyle cap);
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
