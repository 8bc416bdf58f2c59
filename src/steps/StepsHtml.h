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

/// The SVG file of a picture of the kind `pattern`.
std::string patternSvg(const Picture &pattern);

} // namespace veskora::steps
