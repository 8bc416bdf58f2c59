#include "DrawingTool.h"

#include "HitTest.h"

#include "CanvasObjects.h"
#include "Desktop.h"
#include "Diagrafes.h"
#include "ElementLine.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "RowLines.h"
#include "RowQueries.h"
#include "Settings.h"
#include "Sketching.h"
#include "Text.h"
#include "UnderPointer.h"

namespace veskora {

bool DrawingTool::press(const Point &at)
{
    press_ = {Allagi_Montelou, Kombos_Arxis};
    if (Katastasi_Provolis != view::model || Arithmos_Kombon >= maxNodes)
        return true;
    if (under_.Pano_Se_Kombo()) {
        Kombos_Arxis = static_cast<std::int16_t>(under_.Kombos_Deikti);
        return true;
    }
    const int n = defineNode(at);
    if (n == 0)
        return false; // the place was refused: nothing begins that a release could end
    Neos_Kombos_Sto_Patima = true;
    Exei_Oristei_Kombos = true;
    Kombos_Arxis = press_.node = static_cast<std::int16_t>(n);
    return true;
}

void DrawingTool::move(const Point &at)
{
    if (Katastasi_Provolis == view::model && Arithmos_Stoixeion < maxElements
        && Exei_Oristei_Kombos)
        showRubberBand(at);
}

void DrawingTool::release(const Point &at)
{
    if (Katastasi_Provolis == view::model)
        defineElementTo(at);
    hideRubberBand();
}

void DrawingTool::cancel()
{
    hideRubberBand();
}

void DrawingTool::hideRubberBand()
{
    canvas_.Line1->hide();
    canvas_.Label2->hide();
}

void DrawingTool::takeBack()
{
    cancel();
    Kombos_Arxis = press_.start;
    Neos_Kombos_Sto_Patima = false;
    if (press_.node == 0)
        return;
    Diagrafi_Kombou(press_.node);
    Allagi_Montelou = press_.isChanged;
    emit edited();
}

void DrawingTool::doubleClick(const Point &at, bool withCtrl)
{
    if (Katastasi_Provolis != view::model)
        return;
    if (const int n = sketchSupport(at, withCtrl))
        tellSupport(n);
    emit edited();
}

void DrawingTool::setSupport(const char *code)
{
    if (Katastasi_Provolis != view::model)
        return;
    // With the grid on, what lies off it is not pointed at, but a double click reaches it too.
    constexpr double near = 0.5; // centimetres
    const int n = under_.Pano_Se_Kombo()
                      ? under_.Kombos_Deikti
                      : nearestNode(under_.Teleftaio_X, under_.Teleftaio_Y, near);
    if (n == 0)
        return;
    if (veskora::setSupport(n, code)) {
        logNode(n, false);
        emit edited();
    }
    tellSupport(n);
}

/// Beside the pointer, as the eye is there and the symbols of some supports are much alike.
void DrawingTool::tellSupport(int n)
{
    constexpr double right = 0.4, below = 0.2; // of the pointer, centimetres
    canvas_.supportCode->tell(qtText(restraintCode(n)));
    canvas_.supportCode->place(under_.Teleftaio_X + right, under_.Teleftaio_Y + below, 0);
}

QCursor DrawingTool::pointer(double) const
{
    return Qt::CrossCursor;
}

int DrawingTool::defineNode(const Point &at)
{
    const int n = sketchNode(at);
    canvas_.Picture1->update();
    return n;
}

void DrawingTool::defineElementTo(const Point &at)
{
    int end = 0;
    if (under_.Pano_Se_Kombo())
        end = under_.Kombos_Deikti;
    else if (!Neos_Kombos_Sto_Patima)
        end = defineNode(at);
    if (end != 0 && end != Kombos_Arxis) {
        if (Arithmos_Omadon == 0)
            offerMainGroup();
        sketchElement(Kombos_Arxis, end);
    }
    emit edited();
}

void DrawingTool::offerMainGroup()
{
    const std::string text =
        Metafrasi(128, "Before defining an element, the main E,A,I Element Group must have been "
                       "defined (#1).")
        + "\r\n"
        + Metafrasi(129, "Elements defined on screen always belong to the main E,A,I Element "
                         "Group.")
        + "\r\n\r\n" + Metafrasi(130, "Do you want to define the main E,A,I Element Group now?");
    Grammi_Log(text, logColour::red);
    if (desktop().message(text, Icon::exclamation, Buttons::yesNo) == Answer::yes)
        emit groupWanted();
}

void DrawingTool::showRubberBand(const Point &at)
{
    const Point from = toCanvas(nodePlaceFor({Patima_X, Patima_Y}));
    const Point to = toCanvas(nodePlaceFor(at));
    canvas_.Line1->span(from.x, from.y, to.x, to.y);
    canvas_.Line1->show();

    const double x = Stroggylopoiisi(Kannabos_Sintetagmeni(Othoni_X(at.x)), 5);
    const double y = Stroggylopoiisi(Kannabos_Sintetagmeni(Othoni_Y(at.y)), 5);
    std::string text;
    if (Nai_Apolites_Sint)
        text = numberText(x) + ", " + numberText(y) + "\r\n";
    if (Nai_Sxetikes_Sint && Kombos_Arxis >= 1 && Kombos_Arxis <= Arithmos_Kombon) {
        const Point start = nodePlace(Kombos_Arxis);
        const auto shown = [](double length) {
            return numberText(Stroggylopoiisi(length, Dekadika_Sintetagmenon));
        };
        text += "@ " + shown(x - start.x) + ", " + shown(y - start.y);
    }
    canvas_.Label2->setText(qtText(text));
    canvas_.Label2->place(at.x + 0.1, at.y + 0.1, canvas_.Picture1->kanvas().textHeight() + 0.5);
    canvas_.Label2->setVisible(!text.empty());
}

} // namespace veskora

#include "moc_DrawingTool.cpp"
