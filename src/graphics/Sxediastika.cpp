// The picture as a whole: order of the layers, grid, axes, quick sketch.

#include "Sxediastika.h"

#include "ElementLine.h"
#include "Functions.h"
#include "Kanvas.h"
#include "Metablites.h"
#include "Settings.h"
#include "skip.h"
#include "SymbolPen.h"

#include <cmath>

namespace veskora {

namespace {

/// Below this step, canvas cm, the grid would be a grey field.
constexpr double densestGrid = 0.1;

double gridStep(double scale)
{
    return kannab * 100.0 / scale;
}

/// Says once that the grid is too dense: when the view before this one still showed it. It comes
/// again only after the grid was shown or the history moved.
void reportDenseGrid(double step)
{
    if (step >= densestGrid || gridPosition != Thesi_Istorikou)
        denseGridReported = false;
    gridPosition = Thesi_Istorikou;
    const int before = Thesi_Istorikou - 1;
    const double stepBefore = before < 0 ? step : gridStep(Istoriko_Zoom(before, 1));
    if (nai_grid && step < densestGrid && stepBefore >= densestGrid && !denseGridReported) {
        denseGridReported = true;
        Grammi_Log(Metafrasi(154, "Grid too dense to display."), logColour::black);
    }
}

void drawGridLines(double step)
{
    Kanvas &kanvas = Picture1();
    const double W = kanvas.width();
    const double H = kanvas.height();
    const double ox = Arxi_X - std::floor(Arxi_X / step) * step;
    const double oy = Arxi_Y - std::floor(Arxi_Y / step) * step;
    kanvas.setPenStyle(PenStyle::dotted);
    kanvas.setPenColour(xroma_grid);
    const int columns = static_cast<int>(W / step), rows = static_cast<int>(H / step);
    for (int k = 1; k <= columns + 1; ++k)
        kanvas.line(k * step - ox, 0, k * step - ox, H);
    for (int k = 0; k <= rows; ++k)
        kanvas.line(0, H - k * step - oy, W, H - k * step - oy);
}

void drawModel()
{
    Picture1().clear();
    Sxedio_Grid();
    Sxedio_Aksonon();
    Sxedio_Fortiseon_Om();
    Sxedio_Fortiseon_Si();
    Sxedio_Stoixeion();
    Sxedio_Kombon();
}

} // namespace

void Sxedio_Grid()
{
    const double step = gridStep(Klimaka);
    reportDenseGrid(step);
    if (nai_grid && step >= densestGrid)
        drawGridLines(step);
    Picture1().setPenStyle(PenStyle::solid);
}

void Sxedio_Aksonon()
{
    Kanvas &kanvas = Picture1();
    kanvas.setFontSize(8);
    if (nai_aksones) {
        kanvas.setPenColour(xroma_aksonon);
        kanvas.setPenWidth(1);
        const auto [a, b] = crispPlace(toCanvas({0, 0}));
        kanvas.lineRelative(a - 0.2, b, 1.7, 0);
        kanvas.lineRelative(a + 1.8, b, -0.3, 0.1);
        kanvas.lineRelative(a + 1.8, b, -0.3, -0.1);
        kanvas.lineToRelative(0, 0.2);
        kanvas.moveTo(a + 1.6, b + 0.1);
        kanvas.print("x");
        kanvas.lineRelative(a, b + 0.2, 0, -1.7);
        kanvas.lineRelative(a, b - 1.8, -0.1, 0.3);
        kanvas.lineRelative(a, b - 1.8, 0.1, 0.3);
        kanvas.lineToRelative(-0.2, 0);
        kanvas.moveTo(a - 0.35, b - 1.8);
        kanvas.print("y");
    }
    kanvas.setFontSize(7); // of all later labels of the picture
}

void Sxedio_Stoixeion()
{
    Picture1().setFillOn(true);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        skipFaults([=] { Sxedio_Stoixeiou(e); });
}

void Sxedio_Kombon()
{
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        skipFaults([=] { Sxedio_Kombou(n); });
    Picture1().setFillOn(true);
}

void Sxedio_Grigoro()
{
    Kanvas &kanvas = Picture1();
    kanvas.clear();
    Sxedio_Aksonon();
    kanvas.setPenColour(xroma_stoixeion);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        skipFaults([&, e] {
            const ElementLine line = elementLine(e);
            const Point i = toCanvas(line.i);
            const Point j = toCanvas(line.j);
            kanvas.line(i.x, i.y, j.x, j.y);
        });
}

void Ananeosi_Sxediou()
{
    Picture1().setFillColour(xroma_background); // also where no hinge mark sets it
    skipFaults([] {
        switch (Katastasi_Provolis) {
        case view::M:
            return Diagramma_M();
        case view::Q:
            return Diagramma_Q();
        case view::N:
            return Diagramma_N();
        case view::deformed:
            return Sxedio_Paramorfosis();
        default:
            return drawModel();
        }
    });
}

void DrawRotatedText(const std::string &text, double x, double y, const std::string &fontName,
                     int height, int weight, int angle, bool italic, bool underline, bool strikeout)
{
    Picture1().printRotated(text, x, y, {fontName, height, weight, italic, underline, strikeout},
                            angle);
}

} // namespace veskora
