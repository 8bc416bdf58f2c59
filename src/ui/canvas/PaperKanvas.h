#pragma once
/// @file
/// The drawing surface as a part of a sheet of paper: lines and texts stay such, nothing becomes
/// pixels.

#include "Kanvas.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>

namespace veskora {

/// Draws through a painter that somebody else has begun, as on a page of a PDF file. Texts lie over
/// everything else, so they come last, by `finish`.
class PaperKanvas : public Kanvas
{
public:
    /// @param area  of the painter's surface, in its units; what leaves it is cut off
    /// @param unitsPerCentimetre  of that surface
    PaperKanvas(QPainter &painter, const QRectF &area, double unitsPerCentimetre);

    /// Once, after all drawing.
    void finish();

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
    QPointF place(double x, double y) const;
    void applyPen();
    QFont font() const;

    QPainter &painter_;
    QRectF area_;
    double units_; ///< of the painter's surface in a centimetre
    QColor background_ = Qt::white;
    QColor penColour_ = Qt::black;
    int penWidth_ = 1;
    PenStyle penStyle_ = PenStyle::solid;
    bool fillOn_ = false;
    QColor fillColour_ = Qt::white;
    int fontSize_ = 9;
    bool fontBold_ = false;
};

} // namespace veskora
