#include "RowLines.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"

#include <array>

namespace veskora {

namespace {

/// ", Kx= 5, Kz= 7" for the springs that node @p n has.
std::string springsText(int n)
{
    static constexpr std::array<const char *, 3> names = {", Kx= ", ", Ky= ", ", Kz= "};
    std::string text;
    for (int k = 1; k <= 3; ++k)
        if (hasSpring(n, k))
            text += names.at(static_cast<std::size_t>(k - 1)) + numberText(Elatiria(n, k));
    return text;
}

std::string typeText(int e)
{
    if (Stoixeia(e, element::hingeI) == 1)
        return Stoixeia(e, element::hingeJ) == 1
                   ? Metafrasi(1413, "P1 Type: Hinges at both ends i,j")
                   : Metafrasi(1412, "P2' Type: Hinge at end i");
    return Stoixeia(e, element::hingeJ) == 1 ? Metafrasi(1411, "P2' Type: Hinge at end j")
                                             : Metafrasi(1410, "P2 Type");
}

} // namespace

void logNode(int n, bool isNew)
{
    const std::string code = restraintText(n);
    Grammi_Log(
        (isNew ? Metafrasi(612, "New node #") : Metafrasi(613, "* Node #")) + numberText(n) + ", x="
            + numberText(Komboi(n, node::x)) + ", y=" + numberText(Komboi(n, node::y)) + ", "
            + (code.empty() ? Metafrasi(614, "Free") : Metafrasi(607, "Constraints:") + " " + code)
            + springsText(n),
        logColour::navy);
}

void logElement(int e, bool isNew)
{
    // The star makes the caption the beginning of the line: "* Element #".
    Grammi_Log((isNew ? Metafrasi(1415, "New element #") : "* " + Metafrasi(1404, "Element") + " #")
                   + numberText(e) + ", " + Metafrasi(1416, "Node i: #")
                   + numberText(Stoixeia(e, element::nodeI)) + ", " + Metafrasi(1417, "Node j: #")
                   + numberText(Stoixeia(e, element::nodeJ)) + ", "
                   + Metafrasi(1418, "E,A,I Group: #") + numberText(Stoixeia(e, element::group))
                   + ", " + typeText(e),
               logColour::navy);
}

LoadWords elementalLoadWords()
{
    return {Metafrasi(1005, "New load on element #"), Metafrasi(1006, "* Loads on element #"),
            Metafrasi(1007, "Loads deleted on element #")};
}

std::string loadsLine(const LoadWords &words, int row, std::span<const float> loads, bool wasLoaded)
{
    static constexpr std::array<const char *, 3> names = {", Fx= ", ", Fy= ", ", M= "};
    std::string text;
    for (std::size_t i = 0; i < loads.size(); ++i)
        if (loads[i] != 0)
            text += names.at(i) + numberText(loads[i]);
    if (!text.empty())
        return (wasLoaded ? words.changed : words.isNew) + numberText(row) + text;
    return wasLoaded ? words.erased + numberText(row) : "";
}

} // namespace veskora
