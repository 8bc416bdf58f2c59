#pragma once
/// @file
/// The command line of the batch runner.

#include "AlongElement.h"
#include "Steps.h"

#include <optional>
#include <string>
#include <vector>

namespace veskora {

/// What a run is to do.
struct Order
{
    bool print = false;
    bool check = false;
    bool csv = false;
    bool values = false;
    bool regional = false;
    bool pngPictures = false;
    bool svgPictures = false;
    bool pdfPictures = false;
    bool pdf = false;
    bool steps = false;
    bool fit = false;
    bool strict = false;
    bool help = false;
    bool version = false;
    std::string folder;     ///< empty: the working directory
    std::string summary;    ///< file of the summary, "-" for the standard output, empty for none
    int jobs = 1;           ///< processes that models are run in
    int parts = usualParts; ///< equal parts of an element for its values
    int width = 1280;       ///< of a picture, pixels
    int height = 800;
    double labelScale = 1;
    std::optional<std::string> paper, title, author; ///< of the calculation report
    steps::Choice shownSteps;
    bool shapesSteps = false; ///< an option has asked for others than usual
    std::vector<std::string> models;
    std::string complaint; ///< not empty: wrong usage

    bool wantsPictures() const { return pngPictures || svgPictures || pdfPictures; }
    /// What only a toolkit makes.
    bool wantsDrawings() const { return wantsPictures() || pdf || steps; }
};

Order parse(const std::vector<std::string> &arguments);

extern const char *const usage;

} // namespace veskora
