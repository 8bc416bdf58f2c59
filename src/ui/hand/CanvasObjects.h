#pragma once
/// @file
/// The canvas and all that lies on it.

#include "CanvasOverlay.h"
#include "CanvasWidget.h"
#include "Highlights.h"

#include <QPushButton>

namespace veskora {

/// The instant message at the top of the canvas: it goes after five seconds.
class InstantMessage : public CanvasLabel
{
    Q_OBJECT
public:
    InstantMessage(QWidget *canvas, const QString &name);
    void tell(const QString &text);
};

struct CanvasObjects
{
    explicit CanvasObjects(CanvasWidget *picture);

    /// Gives the ground and the objects the colours of the settings.
    void applyColours();
    /// Puts what has its place at the upper edge there.
    void arrange();
    /// Shows the view while a drag moves it.
    void showSketch();

    CanvasWidget *const Picture1;
    Highlights highlights;
    CanvasOverlay *const Line1;   ///< the rubber band
    CanvasOverlay *const Shape1;  ///< the zoom window's frame
    CanvasLabel *const Label2;    ///< coordinates beside the rubber band
    InstantMessage *const Label1; ///< above the others
    QPushButton *const Command1;  ///< "+", enlarges the diagram
    QPushButton *const Command2;  ///< "-"
};

} // namespace veskora
