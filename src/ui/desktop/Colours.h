#pragma once
/// @file
/// Colours that a widget keeps in every theme.

class QColor;
class QWidget;

namespace veskora {

/// Gives @p widget a text and a ground colour that no theme and no style sheet overrules.
void setOwnColours(QWidget *widget, const QColor &text, const QColor &ground);

} // namespace veskora
