#include "Pictures.h"

#include "DiagramFit.h"
#include "ImageKanvas.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "VectorKanvas.h"
#include "VectorPicture.h"
#include "Zoom.h"

#include <QBuffer>

#include <filesystem>

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

/// Draws the view chosen on the canvas in use.
/// @return what is to be noted
std::string draw(const Order &order)
{
    std::string note;
    if (order.fit)
        note = fitPicture(order.labelScale) ? scaleShown() : "";
    else
        Zoom_Best_Fit();
    if (isDiagramCut())
        note = order.fit ? "the diagram leaves the picture"
                         : "the diagram leaves the picture; --fit chooses a scale that holds it";
    Ananeosi_Sxediou();
    return note;
}

Made bitmap(const Order &order)
{
    ImageKanvas kanvas(QSize(order.width, order.height));
    kanvas.setTextScale(order.labelScale);
    kanvas.setBackground(xroma_background);
    const CanvasInUse inUse(kanvas);
    Made made;
    made.note = draw(order);
    QByteArray content;
    QBuffer buffer(&content);
    if (!buffer.open(QIODevice::WriteOnly) || !kanvas.image().save(&buffer, "png"))
        made.failure = "the picture could not be made";
    made.content = content.toStdString();
    return made;
}

Made vectors(VectorForm form, const Order &order)
{
    Made made;
    const std::string title = std::filesystem::path(Onoma_Arxeiou).stem().string();
    made.content = vectorPicture(form, QSizeF(order.width, order.height),
                                 QString::fromStdString(title), [&](VectorKanvas &kanvas) {
                                     kanvas.setTextScale(order.labelScale);
                                     kanvas.setBackground(xroma_background);
                                     made.note = draw(order);
                                 });
    return made;
}

} // namespace

Made drawPicture(std::int16_t shown, PictureForm form, const Order &order)
{
    Katastasi_Provolis = shown;
    switch (form) {
    case PictureForm::svg:
        return vectors(VectorForm::svg, order);
    case PictureForm::pdf:
        return vectors(VectorForm::pdf, order);
    default:
        return bitmap(order);
    }
}

} // namespace veskora
