#include "ReportPicture.h"

#include "DiagramFit.h"
#include "Functions.h"
#include "InkKanvas.h"
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

/// Draws, and keeps out of the log that values are too large to be shown.
/// @return whether there are such
bool drawAndSeeWhetherValuesAreLost()
{
    const auto decimals = decimalsShown();
    roundingReportedFor =
        decimals ? std::optional(RoundedPicture{Katastasi_Provolis, *decimals}) : std::nullopt;
    Ananeosi_Sxediou();
    return roundingReportedFor.has_value();
}

std::string lostText(bool hasTooLarge)
{
    const auto decimals = decimalsShown();
    if (!decimals)
        return {};
    const double power = std::pow(10.0, *decimals);
    std::string text;
    if (hasTooLarge)
        text += ". "
                + Metafrasi(136, "Values beyond this limit are shown as 0; use fewer decimals or "
                                 "larger units:")
                + " " + numberText(std::numeric_limits<std::int32_t>::max() / power);
    if (showsTooFewDecimals())
        text += ". "
                + Metafrasi(1948, "Values below this limit are shown as 0; use more decimals or "
                                  "smaller units:")
                + " " + numberText(0.5 / power);
    return text;
}

/// What stays free around the nodes; centimetres.
struct Margins
{
    double left, top, right, bottom;
};

/// What the picture draws beyond the nodes, and the lines of text above it.
Margins drawnMargins(const Extent &model)
{
    InkKanvas ink(Picture1());
    {
        const CanvasInUse inUse(ink);
        drawAndSeeWhetherValuesAreLost();
    }
    const QRectF covered = ink.finish();
    constexpr double air = 0.15;
    const auto beyond = [](double length) { return std::max(length, 0.0) + air; };
    return {beyond(Kosmos_X(model.xmin) - covered.left()),
            beyond(Kosmos_Y(model.ymax) - covered.top()) + ink.noteBottom(),
            beyond(covered.right() - Kosmos_X(model.xmax)),
            beyond(covered.bottom() - Kosmos_Y(model.ymin))};
}

/// Two digits, no less than @p scale.
double roundedUp(double scale)
{
    const double step = std::pow(10, std::floor(std::log10(scale)) - 1);
    return step * std::ceil(scale / step);
}

/// Puts the model into the middle of what @p margins leave, as large as it can be there.
void placeModel(const Extent &model, const Margins &margins)
{
    constexpr double leastShare = 0.3; // of the picture, whatever stands around the model
    const auto room = [](double whole, double before, double behind) {
        return std::max(whole - before - behind, leastShare * whole);
    };
    const double roomX = room(Picture1().width(), margins.left, margins.right);
    const double roomY = room(Picture1().height(), margins.top, margins.bottom);
    const double width = model.xmax - model.xmin, height = model.ymax - model.ymin;
    const double needed = 100 * std::max(width / roomX, height / roomY);
    if (std::isnormal(static_cast<float>(needed)))
        Klimaka = static_cast<float>(roundedUp(needed));
    moveOrigin(Mikos_Se_Othoni(model.xmin) - margins.left - (roomX - Mikos_Se_Othoni(width)) / 2,
               Anastrofi_Y(Mikos_Se_Othoni(model.ymax)) - margins.top
                   - (roomY - Mikos_Se_Othoni(height)) / 2);
}

/// What stands around the nodes has its size in centimetres: the larger they are drawn, the less of
/// it stands out.
void fillPicture()
{
    constexpr int steps = 3;
    const Extent model = modelExtent();
    for (int i = 0; i < steps; ++i)
        placeModel(model, drawnMargins(model));
}

std::string scaleText(bool hasDiagramScale)
{
    const RegionalNumbers number;
    const std::string texts = Metafrasi(1937, "1 cm is %1 in the model's unit of length|1 cm of "
                                              "the diagram is %1|1 cm of displacement is %1");
    const auto rounded = [&](double value) { return number(static_cast<float>(value)); };
    std::string text = filled(part(texts, 0), {rounded(Klimaka / 100.0)});
    const auto quantity = quantityPerCentimetre();
    if (!hasDiagramScale || !quantity)
        return text;
    const bool isDeformed = Katastasi_Provolis == view::deformed;
    return text + "; " + filled(part(texts, isDeformed ? 2 : 1), {rounded(*quantity)});
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
    fillPicture();
    std::string caption = scaleText(hasDiagramScale);
    if (isDiagramCut())
        caption += ". " + Metafrasi(1938, "The diagram leaves the picture.");
    const bool hasTooLarge = drawAndSeeWhetherValuesAreLost();
    return caption + lostText(hasTooLarge);
}

} // namespace veskora
