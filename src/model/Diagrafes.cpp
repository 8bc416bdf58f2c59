#include "Diagrafes.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"

namespace veskora {

namespace {

/// The beginnings of a deletion's sentences, in the user's language.
struct Words
{
    std::string deleted, renumbered, to;
};

/// "Node deleted: #3. Nodes renumbered: #4 to # 9." when row @p row of @p last was deleted.
void logDeletion(const Words &words, int row, int last)
{
    std::string text = words.deleted + numberText(row) + ".";
    if (row < last)
        text += " " + words.renumbered + numberText(row + 1);
    if (row < last - 1)
        text += " " + words.to + " " + numberText(last);
    Grammi_Log(row < last ? text + "." : text, logColour::green);
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
    logDeletion({Metafrasi(620, "Node deleted: #"), Metafrasi(621, "Nodes renumbered: #"),
                 Metafrasi(622, "to #")},
                n, last);
    --Arithmos_Kombon;
    Allagi_Montelou = true;
}

void Diagrafi_Stoixeiou(std::int16_t e)
{
    const int last = Arithmos_Stoixeion;
    Stoixeia.removeRow(e, last, element::used);
    logDeletion({Metafrasi(1425, "Element deleted: #"), Metafrasi(1426, "Elements renumbered: #"),
                 Metafrasi(1427, "to #")},
                e, last);
    --Arithmos_Stoixeion;
    Allagi_Montelou = true;
}

void deleteGroup(int g)
{
    const int last = Arithmos_Omadon;
    Omades.removeRow(g, last);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (Stoixeia(e, element::group) > static_cast<float>(g))
            Stoixeia(e, element::group) -= 1;
    logDeletion({Metafrasi(913, "Group deleted: #"), Metafrasi(914, "Groups renumbered: #"),
                 Metafrasi(915, "to #")},
                g, last);
    if (drawnGroup == g)
        drawnGroup = 1;
    else if (drawnGroup > g)
        --drawnGroup;
    --Arithmos_Omadon;
    Allagi_Montelou = true;
}

} // namespace veskora
