#pragma once
/// @file
/// The drawing surface as a retained image at the screen's device pixels.

#include "Kanvas.h"
#include "ReadyTexts.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QRect>
#include <QSize>

#include <map>
#include <memory>
#include <utility>
#include <vector>

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
    QPen pen() const;
    /// Has the painter draw in the pen in force, its lines ended so.
    void takePen(Qt::PenCapStyle cap);
    void takeFill(const QBrush &brush);
    /// A pen that changes ends its next line flat.
    void changePen();
    void applyFont();
    double device(double centimetres) const;
    /// The nearest place where a line of the pen's width covers whole device pixels.
    double aligned(double centimetres) const;
    QPointF alignedPoint(double x, double y) const;
    int penPixels() const;
    /// Colours whole pixels without the painter, whose way to a single line is long.
    void colour(const QRect &pixels);
    /// A solid line along a row or a column of pixels.
    void drawOnPixels(const QPointF &from, const QPointF &to);
    /// A dotted one; grids have many that are dotted alike.
    void drawDots(const QPointF &from, const QPointF &to);
    struct Dots
    {
        double from, to; ///< along the line
        bool isLevel;
        int width;
        std::vector<int> inked; ///< places along the image
    };
    const Dots &dots(double from, double to, bool isLevel);
    ReadyTexts &rotatedTexts(const RotatedFont &font);
    /// With the beginning of its base line at a place of whole pixels.
    void drawLevel(ReadyTexts &texts, const std::string &text, const QPointF &place);

    QSize size_;
    double scale_;
    double textScale_ = 1;
    QImage image_;
    QRgb *rows_ = nullptr; ///< of the image, without gaps
    std::unique_ptr<QPainter> painter_;

    QColor background_ = Qt::white;
    QColor penColour_ = Qt::black;
    int penWidth_ = 1;
    PenStyle penStyle_ = PenStyle::solid;
    bool fillOn_ = false;
    QColor fillColour_ = Qt::white;
    int fontSize_ = 9;
    bool fontBold_ = false;

    bool isPenTaken_ = false;           ///< by the painter
    Qt::PenCapStyle cap_ = Qt::FlatCap; ///< of the last line; an arc takes it over
    Dots dots_{};

    /// By pixel size and boldness, and the one in force.
    std::map<std::pair<int, bool>, ReadyTexts> texts_;
    ReadyTexts *text_ = nullptr;
    RotatedFont rotatedKey_{};
    std::unique_ptr<ReadyTexts> rotated_;
};

} // namespace veskora
