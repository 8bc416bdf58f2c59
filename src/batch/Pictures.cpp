#include "Pictures.h"

#include "DiagramFit.h"
#include "ImageKanvas.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <QBuffer>

#include <algorithm>

namespace veskora {

namespace {

/// Shares of the shorter side of the picture.
constexpr double longestOrdinate = 0.15;
constexpr double widestMargin = 0.3;

/// Takes the canvas away again on every way out.
struct CanvasInUse
{
    explicit CanvasInUse(Kanvas &kanvas) { setPicture1(&kanvas); }
    ~CanvasInUse() { setPicture1(nullptr); }
    CanvasInUse(const CanvasInUse &) = delete;
    CanvasInUse &operator=(const CanvasInUse &) = delete;
};

/// For a value printed to the right of its place and below it.
EdgeRoom roomForValues(double labelScale)
{
    constexpr double edge = 0.2, width = 1.5, height = 0.4;
    return {edge, edge, width * labelScale, height * labelScale};
}

std::string scaleShown()
{
    switch (Katastasi_Provolis) {
    case view::M:
        return "one centimetre is " + numberText(Ena_cm_posa_KNm_M);
    case view::Q:
        return "one centimetre is " + numberText(Ena_cm_posa_KN_Q);
    case view::N:
        return "one centimetre is " + numberText(Ena_cm_posa_KN_N);
    default:
        return "displacements are drawn " + numberText(1000 / Ena_cm_posa_m_epi_1000)
               + " times as large";
    }
}

/// Brings model and diagram into the picture.
/// @return the scale that was chosen, empty where none was
std::string fitPicture(double labelScale)
{
    const EdgeRoom room = roomForValues(labelScale);
    const double shorter = std::min(Picture1().width(), Picture1().height());
    const double longest = longestOrdinate * shorter;
    fitModel(std::min(room.right + 0.75 * longest, widestMargin * shorter));
    return fitDiagramScale(longest, room) ? scaleShown() : "";
}

} // namespace

Made drawPicture(std::int16_t shown, const Order &order)
{
    ImageKanvas kanvas(QSize(order.width, order.height));
    kanvas.setTextScale(order.labelScale);
    kanvas.setBackground(xroma_background);
    const CanvasInUse inUse(kanvas);
    Katastasi_Provolis = shown;
    Made made;
    if (order.fit)
        made.note = fitPicture(order.labelScale);
    else
        Zoom_Best_Fit();
    if (isDiagramCut())
        made.note = order.fit
                        ? "the diagram leaves the picture"
                        : "the diagram leaves the picture; --fit chooses a scale that holds it";
    Ananeosi_Sxediou();

    QByteArray content;
    QBuffer buffer(&content);
    if (!buffer.open(QIODevice::WriteOnly) || !kanvas.image().save(&buffer, "png"))
        made.failure = "the picture could not be made";
    made.content = content.toStdString();
    return made;
}

} // namespace veskora
