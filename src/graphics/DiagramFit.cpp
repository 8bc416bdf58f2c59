#include "DiagramFit.h"

#include "element.h"
#include "Functions_Bres_Megista.h"
#include "Kanvas.h"
#include "Reach.h"
#include "Zoom.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace veskora {

namespace {

/// Less than this share of what goes with it is rounding, and no diagram.
constexpr double negligible = 1e-9;

/// Centimetres.
double longestReach()
{
    double longest = 0;
    for (const auto &[foot, tip] : diagramReaches())
        longest = std::max(longest, distance(foot, tip));
    return longest;
}

/// The longest element, world units.
double longestElement()
{
    double longest = 0;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        longest = std::max(longest, elementGeometry(e).length);
    return longest;
}

/// What @p greatest of the picture shown is to be held against.
double reference(double greatest)
{
    const double force = std::max(Bres_Max_Abs_N(), Bres_Max_Abs_Q());
    const double length = longestElement();
    switch (Katastasi_Provolis) {
    case view::M:
        return force * length;
    case view::deformed:
        return greatest;
    default:
        return std::max(force, Bres_Max_Abs_M() / length);
    }
}

/// The smallest of 1, 2 and 5 times a power of ten that is no less than @p value.
double roundedUp(double value)
{
    constexpr double tolerance = 1 - 1e-7; // of a Single that is round already
    const double power = std::pow(10, std::floor(std::log10(value)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= tolerance * value)
            return step * power;
    return 10 * power;
}

} // namespace

bool fitDiagramScale(double longest, const EdgeRoom &room)
{
    const auto shown = shownScale();
    if (!shown)
        return false;
    const double greatest = longestReach() * shown->setting;
    const double finest = roundedUp(greatest / longest);
    if (greatest < negligible * reference(greatest) || !std::isnormal(static_cast<float>(finest)))
        return false;
    constexpr double coarsest = 100;
    double scale = finest;
    while (scale <= coarsest * finest) {
        shown->setting = static_cast<float>(scale);
        if (!isDiagramCut(room))
            return true;
        scale = roundedUp(1.5 * scale);
    }
    shown->setting = static_cast<float>(finest); // what leaves the canvas is to be read at least
    return true;
}

namespace {

/// Shares of the shorter side of the picture.
constexpr double longestOrdinate = 0.15;
constexpr double widestMargin = 0.3;

/// For a value printed to the right of its place and below it.
EdgeRoom roomForValues(double labelScale)
{
    constexpr double edge = 0.2, width = 1.5, height = 0.4;
    return {edge, edge, width * labelScale, height * labelScale};
}

} // namespace

bool fitPicture(double labelScale, double finest)
{
    const EdgeRoom room = roomForValues(labelScale);
    const double shorter = std::min(Picture1().width(), Picture1().height());
    const double longest = longestOrdinate * shorter;
    fitModel(std::min(room.right + 0.75 * longest, widestMargin * shorter), finest);
    return fitDiagramScale(longest, room);
}

namespace {

std::vector<double> atEnds(const StressResultant &resultant)
{
    std::vector<double> values;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        values.insert(values.end(), {resultant.atI(e), resultant.atJ(e)});
    return values;
}

std::vector<double> valuesShown()
{
    switch (Katastasi_Provolis) {
    case view::M:
        return atEnds(resultantM);
    case view::Q:
        return atEnds(resultantQ);
    case view::N:
        return atEnds(resultantN);
    default:
        return {Bres_Max_U(), Bres_Max_Abs_Ux(), Bres_Max_Abs_Uy()};
    }
}

} // namespace

std::optional<std::int16_t> decimalsShown()
{
    const auto shown = shownScale();
    return shown ? std::optional(shown->decimals) : std::nullopt;
}

bool showsTooFewDecimals()
{
    const auto shown = shownScale();
    if (!shown)
        return false;
    const double greatest = shown->greatest();
    const double rounding = negligible * reference(greatest);
    const std::vector<double> values = valuesShown();
    return std::any_of(values.begin(), values.end(), [&](double value) {
        const bool isShownAs0 = std::abs(value) < 0.5 * std::pow(10, -shown->decimals);
        return std::abs(value) > rounding && isShownAs0;
    });
}

std::optional<double> quantityPerCentimetre()
{
    const auto shown = shownScale();
    return shown ? std::optional(shown->setting / shown->divisor) : std::nullopt;
}

} // namespace veskora
