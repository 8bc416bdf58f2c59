#pragma once
/// @file
/// The steps of the analysis with their drawings.

#include "Steps.h"

#include <QPicture>
#include <QSizeF>

#include <string>

namespace veskora {

/// The picture as the content of an SVG file; @p picture belongs to the model in the store.
std::string stepPictureSvg(const steps::Picture &picture);

/// A picture as it was drawn, whatever becomes of the model.
struct DrawnPicture
{
    QSizeF size; ///< pixels of which 96 are an inch
    QPicture drawing = QPicture();
};
DrawnPicture drawnStepPicture(const steps::Picture &picture);

/// The HTML file that holds @p document, made of the model in the store.
std::string stepsFile(const steps::Document &document);

} // namespace veskora
