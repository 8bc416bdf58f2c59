#pragma once
/// @file
/// The drawing surface: exactly the operations that drawing needs of the canvas `Picture1`.
///
/// Lengths are centimetres, y grows downward, and the surface keeps its picture between repaints.
/// Pen, fill and font stay until they are changed; clearing and resizing leave them. Coordinates
/// are narrowed to Single. An operation with a coordinate that is not finite is left out whole, the
/// move of the current point with it.

#include <cmath>
#include <span>
#include <string>

namespace veskora {

/// A place; canvas coordinates where nothing else is said.
struct Point
{
    double x = 0;
    double y = 0;
};

inline double distance(Point a, Point b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

inline constexpr const char *canvasFontFace = "Arial"; ///< where no other is asked for

/// Of a diagram, at the end of an element.
struct Ordinate
{
    int node;
    Point foot, tip;
};

enum class PenStyle { solid, dotted };

/// A font of its own for text at an angle.
struct RotatedFont
{
    std::string face;
    int height; ///< of the character cell, device units
    int weight; ///< 400 regular, 700 bold
    bool italic = false;
    bool underline = false;
    bool strikeout = false;

    bool operator==(const RotatedFont &) const = default;
};

class Kanvas
{
public:
    virtual ~Kanvas() = default;

    /// The drawable size.
    virtual double width() const = 0;
    virtual double height() const = 0;

    /// The nearest place where a line in the pen in force covers whole device pixels: a symbol that
    /// stands there is crisp as a whole.
    double crisp(double centimetres) const;

    /// Fills all with the background colour; the current point becomes (0, 0).
    void clear();

    void line(double x1, double y1, double x2, double y2);
    void lineRelative(double x1, double y1, double dx, double dy)
    {
        line(x1, y1, x1 + dx, y1 + dy);
    }
    /// From the current point.
    void lineTo(double x, double y) { line(currentX_, currentY_, x, y); }
    void lineToRelative(double dx, double dy) { lineTo(currentX_ + dx, currentY_ + dy); }
    /// The lines that join @p places one after the other, stroked as one where the surface can. A
    /// place that is not finite breaks it in two.
    void polyline(std::span<const Point> places);

    /// One dot as wide as the pen.
    void point(double x, double y);
    /// An outline in the pen, filled while the fill is on; the current point becomes the centre.
    void circle(double x, double y, double radius);
    /// Counter-clockwise from @p start to @p end, radians, 0 along +x and pi/2 up the screen; not
    /// filled; the current point becomes the centre.
    void arc(double x, double y, double radius, double start, double end);

    double currentX() const { return currentX_; }
    double currentY() const { return currentY_; }
    void setCurrentX(double x) { moveTo(x, currentY_); }
    void moveTo(double x, double y);

    /// Text with its top left corner at the current point, in the pen colour. Afterwards x of the
    /// current point is 0 and y one text line lower.
    void print(const std::string &text);
    /// A number with one blank in front, unless it is negative, and one behind.
    void print(float number);
    void print(double number);
    /// Text as `print`, on a ground of its own where the surface can, so that no line crosses it.
    void printOnGround(const std::string &text);

    /// The value of @p ordinate, whose end is the current point or near to it: as `print`, but a
    /// surface may move it along the ordinate, or leave it out where it is written already.
    void printValue(double value, const Ordinate &ordinate);

    /// As `print`: text of the picture as a whole, which stands at no place of the model.
    void printNote(const std::string &text);

    /// Text turned by @p angle, tenths of a degree, counter-clockwise around (x, y), its top left
    /// corner. The current point goes as with `print`.
    void printRotated(const std::string &text, double x, double y, const RotatedFont &font,
                      int angle);

    /// @name Pen, fill and font. A colour is a colour word, red in the low byte.
    /// @{
    virtual void setBackground(double colour) = 0;
    virtual void setPenColour(double colour) = 0;
    virtual void setPenWidth(int devicePixels) = 0;
    virtual void setPenStyle(PenStyle style) = 0;
    virtual void setFillOn(bool on) = 0;
    virtual void setFillColour(double colour) = 0;
    virtual void setFontSize(int points) = 0;
    virtual void setFontBold(bool bold) = 0;
    /// @}

protected:
    virtual double doCrisp(float centimetres) const { return centimetres; }
    virtual void doClear() = 0;
    virtual void doLine(float x1, float y1, float x2, float y2) = 0;
    /// Two places or more, narrowed already.
    virtual void doPolyline(std::span<const Point> places);
    virtual void doPoint(float x, float y) = 0;
    virtual void doCircle(float x, float y, float radius) = 0;
    virtual void doArc(float x, float y, float radius, double start, double end) = 0;
    virtual void doPrint(const std::string &text, float x, float y) = 0;
    virtual void doPrintOnGround(const std::string &text, float x, float y) { doPrint(text, x, y); }
    virtual void doPrintValue(const std::string &text, float x, float y, const Ordinate &ordinate);
    virtual void doPrintNote(const std::string &text, float x, float y) { doPrint(text, x, y); }
    virtual void doPrintRotated(const std::string &text, float x, float y, const RotatedFont &font,
                                int angle) = 0;
    /// From one line of text to the next.
    virtual double lineAdvance() const = 0;

private:
    float currentX_ = 0;
    float currentY_ = 0;
};

/// The canvas in use. A process sets it once, before anything is drawn.
Kanvas &Picture1();
void setPicture1(Kanvas *kanvas);

/// Makes a canvas the one in use until the end of the scope, which gives back the one before it.
class CanvasInUse
{
public:
    explicit CanvasInUse(Kanvas &kanvas);
    ~CanvasInUse();
    CanvasInUse(const CanvasInUse &) = delete;
    CanvasInUse &operator=(const CanvasInUse &) = delete;

private:
    Kanvas *before_;
};

} // namespace veskora
