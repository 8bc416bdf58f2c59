#include "Highlights.h"

#include "Colours.h"
#include "ElementLine.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "QtColour.h"
#include "RowMarks.h"
#include "RowQueries.h"
#include "Text.h"

#include <utility>

namespace veskora {

namespace {

constexpr double labelMargin = 0.2; // centimetres, beyond the height of the text

} // namespace

Highlights::Highlights(CanvasWidget *canvas)
    : shapeNode_(new CanvasOverlay(canvas, "Shape_Kombos")),
      lineElement_(new CanvasOverlay(canvas, "Line_Stoixeio")),
      labelNode_(new CanvasLabel(canvas, "Label_Kombos")),
      labelElement_(new CanvasLabel(canvas, "Label_Stoixeio")),
      canvas_(canvas)
{
    lineElement_->setPen(QPen(qtColour(markColour::element), 1));
    setOwnColours(labelNode_, qtColour(markColour::node), Qt::transparent);
    setOwnColours(labelElement_, qtColour(markColour::element), Qt::transparent);
}

void Highlights::showNode(int n, double x, double y)
{
    constexpr double markSide = 0.238;
    constexpr double nodeSide = 0.45;
    const bool onNode = n != 0;
    const double half = (onNode ? nodeSide : markSide) / 2;
    if (std::exchange(node_, n) != n) {
        shapeNode_->setPen(QPen(qtColour(markColour::node), onNode ? 2 : 1));
        shapeNode_->setForm(onNode ? CanvasOverlay::Form::circle
                                   : CanvasOverlay::Form::roundedSquare);
        labelNode_->setText(qtText(numberText(n)));
        labelNode_->setVisible(onNode);
        shapeNode_->show();
    }
    shapeNode_->span(x - half, y - half, x + half, y + half);
    if (onNode)
        labelNode_->place(x - half + 0.32, y - half - 0.32,
                          canvas_->kanvas().textHeight() + labelMargin);
}

void Highlights::showElement(int e)
{
    const bool another = std::exchange(element_, e) != e;
    if (e != 0) { // the same one may lie elsewhere now
        const Point i = toCanvas(nodePlace(nodeOf(e, element::nodeI)));
        const Point j = toCanvas(nodePlace(nodeOf(e, element::nodeJ)));
        lineElement_->span(i.x, i.y, j.x, j.y);
        labelElement_->setText(qtText(numberText(e)));
        labelElement_->place((i.x + j.x) / 2, (i.y + j.y) / 2 - 0.4,
                             canvas_->kanvas().textHeight() + labelMargin);
    }
    if (another) {
        lineElement_->setVisible(e != 0);
        labelElement_->setVisible(e != 0);
    }
}

void Highlights::hideElement()
{
    lineElement_->hide();
    labelElement_->hide();
}

void Highlights::hide()
{
    hideElement();
    shapeNode_->hide();
    labelNode_->hide();
    node_ = element_ = -1;
}

} // namespace veskora
