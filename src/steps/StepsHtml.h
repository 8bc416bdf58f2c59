#pragma once
/// @file
/// The steps of the analysis as one HTML file that needs nothing else: well-formed XML in UTF-8.

#include "Steps.h"

#include <functional>
#include <string>

namespace veskora::steps {

/// Makes the SVG file of a picture.
using DrawSvg = std::function<std::string(const Picture &picture)>;

std::string stepsHtml(const Document &document, const DrawSvg &draw);

/// The side of a picture of the kind `pattern`, in pixels of which 96 are an inch.
int patternPixels(const Picture &pattern);
/// The SVG file of such a picture.
std::string patternSvg(const Picture &pattern);

} // namespace veskora::steps
