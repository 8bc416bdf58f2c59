#include "QtDrawings.h"

#include "CalculationReport.h"
#include "Metablites.h"
#include "Pictures.h"
#include "RowQueries.h"
#include "Sentences.h"
#include "StepsFile.h"

#include <algorithm>
#include <array>

namespace veskora {

namespace {

Made stepsOf(const Order &order)
{
    const auto isAsked = [&](int e) {
        return std::ranges::count(order.shownSteps.elements, e) > 0;
    };
    std::vector<int> missing = rowsWhere(maxElements, isAsked);
    const std::size_t asked = missing.size();
    std::erase_if(missing, [](int e) { return e <= Arithmos_Stoixeion; });
    if (missing.empty())
        return {stepsFile(steps::stepsOfAnalysis(order.shownSteps)), {}, {}};
    const std::string note =
        "the model has no " + forRows("element |elements ", missing.size()) + rowList(missing);
    if (missing.size() == asked)
        return {{}, {}, note + ", none of those to show"};
    return {stepsFile(steps::stepsOfAnalysis(order.shownSteps)), note, {}};
}

template <std::int16_t shown, PictureForm form>
Made picture(const Order &order)
{
    return drawPicture(shown, form, order);
}

Made calculation(const Order &order)
{
    const Paper usual = usualPaper(QLocale::system().territory());
    const CalculationOptions options = {
        .title = order.title.value_or(""),
        .author = order.author.value_or(""),
        .paper = order.paper ? (*order.paper == "A4" ? Paper::A4 : Paper::letter) : usual,
        .withCheck = order.check};
    return {
        pdfOf(calculationDocument(options), options.paper, [](int, int) { return true; }), {}, {}};
}

constexpr auto outputs = std::to_array<Output>({
    {"_steps.html", &Order::steps, false, false, stepsOf},
    {"_model.png", &Order::pngPictures, false, false, picture<view::model, PictureForm::png>},
    {"_M.png", &Order::pngPictures, true, false, picture<view::M, PictureForm::png>},
    {"_Q.png", &Order::pngPictures, true, false, picture<view::Q, PictureForm::png>},
    {"_N.png", &Order::pngPictures, true, false, picture<view::N, PictureForm::png>},
    {"_D.png", &Order::pngPictures, true, false, picture<view::deformed, PictureForm::png>},
    {"_model.svg", &Order::svgPictures, false, false, picture<view::model, PictureForm::svg>},
    {"_M.svg", &Order::svgPictures, true, false, picture<view::M, PictureForm::svg>},
    {"_Q.svg", &Order::svgPictures, true, false, picture<view::Q, PictureForm::svg>},
    {"_N.svg", &Order::svgPictures, true, false, picture<view::N, PictureForm::svg>},
    {"_D.svg", &Order::svgPictures, true, false, picture<view::deformed, PictureForm::svg>},
    {"_model.pdf", &Order::pdfPictures, false, false, picture<view::model, PictureForm::pdf>},
    {"_M.pdf", &Order::pdfPictures, true, false, picture<view::M, PictureForm::pdf>},
    {"_Q.pdf", &Order::pdfPictures, true, false, picture<view::Q, PictureForm::pdf>},
    {"_N.pdf", &Order::pdfPictures, true, false, picture<view::N, PictureForm::pdf>},
    {"_D.pdf", &Order::pdfPictures, true, false, picture<view::deformed, PictureForm::pdf>},
    {"_report.pdf", &Order::pdf, false, false, calculation},
});

} // namespace

Drawings qtDrawings()
{
    return {.outputs = outputs, .toolkit = std::string("Qt ") + qVersion()};
}

} // namespace veskora
