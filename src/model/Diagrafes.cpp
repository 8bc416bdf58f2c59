#include "Diagrafes.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"

namespace veskora {

std::string deletionText(const DeletionWords &words, int row, int last)
{
    std::string text = words.deleted + numberText(row) + ".";
    if (row < last)
        text += " " + words.renumbered + numberText(row + 1);
    if (row < last - 1)
        text += " " + words.to + " " + numberText(last);
    return row < last ? text + "." : text;
}

void Diagrafi_Kombou(std::int16_t n)
{
    const int last = Arithmos_Kombon;
    Komboi.removeRow(n, last);
    Elatiria.removeRow(n, last);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (const int end : {element::nodeI, element::nodeJ})
            if (Stoixeia(e, end) > n)
                Stoixeia(e, end) -= 1;
    Grammi_Log(deletionText({Metafrasi(620, "Node deleted: #"),
                             Metafrasi(621, "Nodes renumbered: #"), Metafrasi(622, "to #")},
                            n, last),
               logColour::green);
    --Arithmos_Kombon;
    Allagi_Montelou = true;
}

void Diagrafi_Stoixeiou(std::int16_t e)
{
    const int last = Arithmos_Stoixeion;
    Stoixeia.removeRow(e, last, element::used);
    Grammi_Log(deletionText({Metafrasi(1425, "Element deleted: #"),
                             Metafrasi(1426, "Elements renumbered: #"), Metafrasi(1427, "to #")},
                            e, last),
               logColour::green);
    --Arithmos_Stoixeion;
    Allagi_Montelou = true;
}

} // namespace veskora
