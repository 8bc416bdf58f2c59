#pragma once

#include "Tool.h"

namespace veskora {

struct CanvasObjects;
class UnderPointer;

/// Draws the model: a drag defines an element, and the nodes at its ends where there are none. It
/// is what the left button does while no other tool is taken, in the model view only. A double
/// click steps a support, with Ctrl back.
class DrawingTool : public Tool
{
    Q_OBJECT
public:
    DrawingTool(CanvasObjects &canvas, const UnderPointer &under) : canvas_(canvas), under_(under)
    {}

    bool press(const Point &at) override;
    void move(const Point &at) override;
    void release(const Point &at) override;
    void cancel() override;
    void takeBack() override;
    void doubleClick(const Point &at, bool withCtrl) override;
    QCursor pointer(double scale) const override;

    /// Gives the node under the pointer, if there is one, the support @p code.
    void setSupport(const char *code);

signals:
    void groupWanted(); ///< the user wants to define the main group now

private:
    int defineNode(const Point &at);
    void defineElementTo(const Point &at);
    void offerMainGroup();
    void tellSupport(int n);
    void showRubberBand(const Point &at);
    void hideRubberBand();

    CanvasObjects &canvas_;
    const UnderPointer &under_;
    /// Set by the first press that defines a node in this run; until then no rubber band shows.
    bool Exei_Oristei_Kombos = false;
    /// What stood before the press, and the node that it defined, 0 for none.
    struct
    {
        bool isChanged;
        std::int16_t start;
        std::int16_t node = 0;
    } press_{};
};

} // namespace veskora
