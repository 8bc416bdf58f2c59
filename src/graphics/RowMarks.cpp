#include "RowMarks.h"

#include "ElementLine.h"
#include "Kanvas.h"
#include "skip.h"

namespace veskora {

void markRows(std::span<const int> nodes, std::span<const int> elements)
{
    constexpr double radius = 0.225;
    Kanvas &kanvas = Picture1();
    kanvas.setFillOn(false);
    kanvas.setPenColour(markColour::element);
    kanvas.setPenWidth(3);
    for (const int e : elements)
        skipFaults([&, e] {
            const ElementLine line = elementLine(e);
            const Point i = toCanvas(line.i);
            const Point j = toCanvas(line.j);
            kanvas.line(i.x, i.y, j.x, j.y);
        });
    kanvas.setPenColour(markColour::node);
    kanvas.setPenWidth(2);
    for (const int n : nodes)
        skipFaults([&, n] {
            const Point at = toCanvas(nodePlace(n));
            kanvas.circle(at.x, at.y, radius);
        });
    kanvas.setPenWidth(1);
    kanvas.setFillOn(true);
}

} // namespace veskora
