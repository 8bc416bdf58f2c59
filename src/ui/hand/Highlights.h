#pragma once

#include "CanvasOverlay.h"
#include "CanvasWidget.h"

namespace veskora {

/// What marks the node and the element under the pointer: light objects over the picture.
class Highlights
{
public:
    explicit Highlights(CanvasWidget *canvas);

    /// Marks node @p n, which lies at canvas point (x, y), or for 0 where a node would come.
    void showNode(int n, double x, double y);
    /// Marks element @p e, 0 for none. A marking that `hideElement` put away comes back only with
    /// another element.
    void showElement(int e);
    void hideElement();
    /// Puts both away; what is told next is shown again.
    void hide();

private:
    CanvasOverlay *const shapeNode_;
    CanvasOverlay *const lineElement_;
    CanvasLabel *const labelNode_;
    CanvasLabel *const labelElement_;
    CanvasWidget *const canvas_;
    /// Row numbers, 0 for nothing, -1 for put away.
    int node_ = -1;
    int element_ = -1;
};

} // namespace veskora
