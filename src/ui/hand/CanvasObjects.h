#pragma once
/// @file
/// The canvas and all that lies on it.

#include "CanvasOverlay.h"
#include "CanvasWidget.h"
#include "Highlights.h"

#include <QPushButton>

namespace veskora {

/// A text that goes after a time.
class PassingLabel : public CanvasLabel
{
    Q_OBJECT
public:
    /// @param timer  name of what ends it after @p shown ms
    PassingLabel(QWidget *canvas, const QString &name, const QString &timer, int shown);
    void tell(const QString &text);
};

/// The instant message at the top of the canvas: it goes after five seconds.
class InstantMessage : public PassingLabel
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
    /// Marks element @p e in every view until another one is chosen; 0 for none.
    void choose(int e);
    /// Puts the mark where the element lies now.
    void placeChosen();
    /// Says in an instant message, and in red in the log, why nothing comes of a command.
    void tellWhyNot(const std::string &text) const;

    CanvasWidget *const Picture1;
    Highlights highlights;
    CanvasOverlay *const Line1;      ///< the rubber band
    CanvasOverlay *const Shape1;     ///< the zoom window's frame
    CanvasOverlay *const chosen;     ///< along the element that a window shows
    CanvasLabel *const Label2;       ///< coordinates beside the rubber band
    PassingLabel *const supportCode; ///< "xxo" beside the pointer that has changed a support
    InstantMessage *const Label1;    ///< above the others
    QPushButton *const Command1;     ///< "+", enlarges the diagram
    QPushButton *const Command2;     ///< "-"

private:
    int chosenElement_ = 0;
};

} // namespace veskora
