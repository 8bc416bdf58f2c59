#include "UnderPointer.h"

#include "ElementLine.h"
#include "Highlights.h"
#include "HitTest.h"
#include "Metablites.h"
#include "Sketching.h"

namespace veskora {

bool UnderPointer::Pano_Se_Kombo() const
{
    return Kombos_Deikti >= 1 && Kombos_Deikti <= Arithmos_Kombon;
}

bool UnderPointer::Pano_Se_Stoixeio() const
{
    return Stoixeio_Deikti >= 1 && Stoixeio_Deikti <= Arithmos_Stoixeion;
}

void UnderPointer::look(const Point &at, bool isDragging, bool isToolOn)
{
    Teleftaio_X = static_cast<float>(at.x);
    Teleftaio_Y = static_cast<float>(at.y);
    Kombos_Deikti = nodeUnderPointer(at.x, at.y);
    if (!isDragging)
        Stoixeio_Deikti = elementUnderPointer(at.x, at.y);
    if (isToolOn)
        return marks_.hide();
    const Point mark = toCanvas(nodePlaceFor(at));
    marks_.showNode(Kombos_Deikti, mark.x, mark.y);
    if (!isDragging)
        marks_.showElement(Stoixeio_Deikti);
}

void UnderPointer::forget()
{
    Kombos_Deikti = Stoixeio_Deikti = 0;
    marks_.hide();
}

} // namespace veskora
