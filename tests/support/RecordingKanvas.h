#pragma once
/// @file
/// A canvas that remembers what was drawn on it, primitive by primitive.

#include "Kanvas.h"
#include "ScriptedDesktop.h"

#include <optional>
#include <string>
#include <vector>

namespace veskora {

/// The state of pen, fill and font.
struct Pen
{
    double colour = 0;
    int width = 1;
    PenStyle style = PenStyle::solid;
    bool fillOn = false;
    double fillColour = 0;
    int fontSize = 7;
    bool bold = false;
};

struct Primitive
{
    enum class Kind { line, point, circle, arc, text, turnedText };
    Kind kind;
    Pen pen; ///< when it was drawn
    double x = 0, y = 0;
    double x2 = 0, y2 = 0; ///< end of a line
    double radius = 0, start = 0, end = 0;
    std::string text = {};
    RotatedFont font = {};
    int angle = 0;
    std::optional<Ordinate> ordinate = {}; ///< that the text is the value of
};

class RecordingKanvas : public Kanvas
{
public:
    double w = 20;
    double h = 20;
    Pen pen;
    double background = 0;
    std::vector<Primitive> drawn; ///< since the last clear; empty texts are no part of it

    /// The lines in one pen colour, in their order.
    std::vector<Primitive> linesOf(double colour) const;

    /// The drawing as text, one primitive a line, lengths with four decimals at most:
    ///
    ///     line X Y DX DY              circle X Y RADIUS [fill COLOUR]
    ///     point X Y                   arc X Y RADIUS START END
    ///     text X Y 'WORDS' [node N FOOT_X FOOT_Y TIP_X TIP_Y]     those of an ordinate's value
    ///     turned X Y ANGLE 'WORDS' FACE HEIGHT WEIGHT
    ///     pen COLOUR WIDTH FONTSIZE [bold] [dotted]
    ///     left COLOUR WIDTH FONTSIZE [fill COLOUR]
    ///
    /// Pens stand where they change, and at the end the one that is left.
    std::string text() const;

    double width() const override { return w; }
    double height() const override { return h; }
    void setBackground(double colour) override { background = colour; }
    void setPenColour(double colour) override { pen.colour = colour; }
    void setPenWidth(int devicePixels) override { pen.width = devicePixels; }
    void setPenStyle(PenStyle style) override { pen.style = style; }
    void setFillOn(bool on) override { pen.fillOn = on; }
    void setFillColour(double colour) override { pen.fillColour = colour; }
    void setFontSize(int points) override { pen.fontSize = points; }
    void setFontBold(bool bold) override { pen.bold = bold; }

protected:
    void doClear() override { drawn.clear(); }
    void doLine(float x1, float y1, float x2, float y2) override;
    void doPoint(float x, float y) override;
    void doCircle(float x, float y, float radius) override;
    void doArc(float x, float y, float radius, double start, double end) override;
    void doPrint(const std::string &text, float x, float y) override;
    void doPrintValue(const std::string &text, float x, float y, const Ordinate &ordinate) override;
    void doPrintRotated(const std::string &text, float x, float y, const RotatedFont &font,
                        int angle) override;
    double lineAdvance() const override { return 0.04 * pen.fontSize; }

private:
    Primitive &add(Primitive::Kind kind, float x, float y);
};

/// A line of such a text, without its end: @p text and the numbers.
std::string record(std::string text, std::initializer_list<double> numbers);

/// A fresh store, a scripted desktop and a recording canvas.
class DrawingTest : public StoreTest
{
protected:
    DrawingTest() { setPicture1(&kanvas); }
    ~DrawingTest() override { setPicture1(nullptr); }

    /// Puts the world's origin at a point of the canvas.
    void originAt(double x, double y, float scale = 100);

    RecordingKanvas kanvas;
};

} // namespace veskora
