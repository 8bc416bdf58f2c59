#include "ReportPicture.h"

#include "DiagramFit.h"
#include "Functions.h"
#include "Kanvas.h"
#include "KeptView.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ResultCells.h"
#include "Sentences.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veskora {

namespace {

std::optional<std::int16_t> decimalsShown()
{
    switch (Katastasi_Provolis) {
    case view::M:
        return dekadika_M;
    case view::Q:
        return dekadika_Q;
    case view::N:
        return dekadika_N;
    default:
        return std::nullopt;
    }
}

/// Draws, and keeps out of the log that values are too large to be shown.
/// @return that for the caption; empty where all are shown
std::string drawAndTellOfLostValues()
{
    const std::optional<std::int16_t> decimals = decimalsShown();
    roundingReportedFor.reset();
    if (decimals)
        roundingReportedFor = {Katastasi_Provolis, *decimals};
    Ananeosi_Sxediou();
    if (!roundingReportedFor)
        return {};
    const double limit = std::numeric_limits<std::int32_t>::max() / std::pow(10.0, *decimals);
    return Metafrasi(136, "Values beyond this limit are shown as 0; use fewer decimals or larger "
                          "units:")
           + " " + numberText(limit);
}

/// Leaves the scale of the view two digits, no finer than it is; the middle stays.
void roundScale()
{
    const double step = std::pow(10, std::floor(std::log10(Klimaka)) - 1);
    const double rounded = step * std::ceil(Klimaka / step);
    zoomAbout(Picture1().width() / 2, Picture1().height() / 2, Klimaka / rounded);
}

std::string scaleText(bool hasDiagramScale)
{
    const RegionalNumbers number;
    const std::string texts =
        Metafrasi(1937, "Scale 1:%1|1 cm of the diagram is %1|1 cm of displacement is %1");
    std::string text = filled(part(texts, 0), {number(Klimaka)});
    const auto quantity = quantityPerCentimetre();
    if (!hasDiagramScale || !quantity)
        return text;
    const bool isDeformed = Katastasi_Provolis == view::deformed;
    return text + "; "
           + filled(part(texts, isDeformed ? 2 : 1), {number(static_cast<float>(*quantity))});
}

} // namespace

std::string drawReportPicture(std::int16_t shown, Kanvas &kanvas)
{
    constexpr double white = 0xFFFFFF;
    const KeptView kept;
    const CanvasInUse inUse(kanvas);
    Katastasi_Provolis = shown;
    nai_grid = false;
    nai_times_M = nai_times_Q = nai_times_N = true;
    xroma_background = white;
    kanvas.setBackground(white);
    constexpr double finest = 0.001; // small models too are to fill their place
    const bool hasDiagramScale = fitPicture(1, finest);
    roundScale();
    std::string caption = scaleText(hasDiagramScale);
    if (isDiagramCut())
        caption += ". " + Metafrasi(1938, "The diagram leaves the picture.");
    if (const std::string lost = drawAndTellOfLostValues(); !lost.empty())
        caption += ". " + lost;
    return caption;
}

ModelSize modelSize()
{
    double left = Komboi(1, node::x), right = left, bottom = Komboi(1, node::y), top = bottom;
    for (int n = 2; n <= Arithmos_Kombon; ++n) {
        left = std::min<double>(left, Komboi(n, node::x));
        right = std::max<double>(right, Komboi(n, node::x));
        bottom = std::min<double>(bottom, Komboi(n, node::y));
        top = std::max<double>(top, Komboi(n, node::y));
    }
    return {right - left, top - bottom};
}

} // namespace veskora
