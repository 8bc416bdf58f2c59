#include "Diagrafes.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"

namespace veskora {

namespace {

struct Words
{
    std::string deleted, renumbered, to;
};

/// "Node deleted: #3. Nodes renumbered: #4 to # 9." for row 3 of 9.
std::string deletionText(const Words &words, int row, int last)
{
    std::string text = words.deleted + numberText(row) + ".";
    if (row < last)
        text += " " + words.renumbered + numberText(row + 1);
    if (row < last - 1)
        text += " " + words.to + " " + numberText(last);
    return row < last ? text + "." : text;
}

} // namespace

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
    Stoixeia.removeRow(e, last);
    Grammi_Log(deletionText({Metafrasi(1425, "Element deleted: #"),
                             Metafrasi(1426, "Elements renumbered: #"), Metafrasi(1427, "to #")},
                            e, last),
               logColour::green);
    --Arithmos_Stoixeion;
    Allagi_Montelou = true;
}

} // namespace veskora
