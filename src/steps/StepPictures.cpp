#include "FreedomArrows.h"
#include "Kanvas.h"
#include "KeptView.h"
#include "Settings.h"
#include "Steps.h"
#include "Sxediastika.h"
#include "Zoom.h"

namespace veskora::steps {

void drawStepPicture(const Picture &picture)
{
    Picture1().clear();
    if (picture.kind == Picture::Kind::element)
        return drawEndForces(picture.c, picture.s, picture.endForces);
    constexpr double white = 0xFFFFFF;
    const KeptView kept;
    nai_stoixeia = nai_arithmisi_stoixeion = nai_eleftheroseis = true;
    nai_komboi = nai_arithmisi_kombon = nai_desmefseis = nai_graf_stir = nai_springs = true;
    nai_sint_kombon = nai_omades = nai_miki = false;
    xroma_background = white;
    Picture1().setBackground(white);
    constexpr double margin = 1.8; // for the arrows of nodes at the edge
    fitModelAnyhow(margin);
    Picture1().setFontSize(7);
    Sxedio_Stoixeion();
    Sxedio_Kombon();
    drawFreedoms(picture.numbers, picture.free);
}

} // namespace veskora::steps
