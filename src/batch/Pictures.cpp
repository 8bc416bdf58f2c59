#include "Pictures.h"

#include "DiagramFit.h"
#include "ImageKanvas.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <QBuffer>

namespace veskora {

namespace {

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
        made.note = fitPicture(order.labelScale) ? scaleShown() : "";
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
