#pragma once
/// @file
/// Drawing routines. They read the store, draw on `Picture1`, and leave pen, fill and font as their
/// last step set them. All symbol sizes are canvas centimetres and do not follow the zoom.
/// `Ananeosi_Sxediou` and `Sxedio_Grigoro` let no fault out: what cannot be drawn is left out. The
/// routines for one row throw where the row, or one that it refers to, does not exist.

#include <string>

namespace veskora {

/// Paints the picture that `Katastasi_Provolis` names, from scratch.
void Ananeosi_Sxediou();

/// Axes and element lines alone, to keep up with the mouse.
void Sxedio_Grigoro();

void Sxedio_Grid();
void Sxedio_Aksonon();

/// All nodes, all elements, with their symbols and labels.
void Sxedio_Kombon();
void Sxedio_Stoixeion();

/// One node: dot, support symbol, springs, label.
void Sxedio_Kombou(int n);
/// One element: line, hinge marks, labels.
void Sxedio_Stoixeiou(int e);

void Sxedio_Fortiseon_Si(); ///< nodal loads
void Sxedio_Fortiseon_Om(); ///< uniform element loads

/// @name Results, from the tables as they stand
/// @{
void Diagramma_M();
void Diagramma_Q();
void Diagramma_N();
void Sxedio_Paramorfosis(); ///< the deformed model over the undeformed one
/// @}

/// Makes the longest ordinate of the diagram shown 0.2 cm longer or shorter (or the deformed
/// shape) by changing its scale, rounded to 2 decimals; a scale that would not be positive and
/// finite stays.
void enlargeDiagram();
void reduceDiagram();

/// Text at an angle in tenths of a degree, its top left corner at canvas point (x, y).
void DrawRotatedText(const std::string &text, double x, double y, const std::string &fontName,
                     int height, int weight, int angle, bool italic, bool underline,
                     bool strikeout);

} // namespace veskora
