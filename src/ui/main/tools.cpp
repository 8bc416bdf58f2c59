// The mouse on the canvas.

#include "frmMain.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "StatusPanel.h"
#include "Sxediastika.h"
#include "ui_frmMain.h"
#include "Zoom.h"

#include <QIcon>

namespace veskora {

namespace {

/// Where the hot spots of the pointer pictures are, of 32 logical pixels.
struct PointerPicture
{
    const char *file;
    int x, y;
};
constexpr PointerPicture hand = {":/icons/pointer_hand.svg", 16, 18};
constexpr PointerPicture zoom = {":/icons/pointer_zoom.svg", 12, 12};
constexpr PointerPicture zoomWindow = {":/icons/pointer_zoom_window.svg", 8, 8};

QCursor toolCursor(const PointerPicture &picture, double scale)
{
    constexpr int side = 32;
    return QCursor(QIcon(picture.file).pixmap(QSize(side, side), scale), picture.x, picture.y);
}

} // namespace

bool frmMain::isToolOn() const
{
    return Xeraki_Energo || Zoom_Energo || Zoom_Window_Energo;
}

void frmMain::Reset_Pointer()
{
    Xeraki_Energo = Zoom_Energo = Zoom_Window_Energo = false;
    ui_->Picture1->setCursor(Qt::CrossCursor);
}

void frmMain::hideHighlights()
{
    Label_Kombos_->hide();
    Shape_Kombos_->hide();
    Label_Stoixeio_->hide();
    Line_Stoixeio_->hide();
}

/// The active tool's own button leaves it; another one's switches.
void frmMain::switchTool(bool &tool)
{
    const bool entering = !tool;
    Reset_Pointer();
    if (!entering)
        return;
    tool = true;
    const PointerPicture &picture = Xeraki_Energo ? hand : Zoom_Energo ? zoom : zoomWindow;
    ui_->Picture1->setCursor(toolCursor(picture, devicePixelRatioF()));
    hideHighlights();
}

void frmMain::Button_Xeraki()
{
    switchTool(Xeraki_Energo);
}

void frmMain::Button_Zoom()
{
    switchTool(Zoom_Energo);
}

void frmMain::Button_Zoom_Window()
{
    switchTool(Zoom_Window_Energo);
}

void frmMain::exitTools()
{
    if (Zoom_Window_Energo)
        Button_Zoom_Window();
    if (Zoom_Energo)
        Button_Zoom();
    if (Xeraki_Energo)
        Button_Xeraki();
}

void frmMain::Button_Zoom_Previous()
{
    if (Zoom_Proigoumeno())
        redraw();
}

void frmMain::Button_Zoom_Best_Fit()
{
    Zoom_Best_Fit();
    Apothikefsi_Zoom();
    redraw();
}

void frmMain::canvasPressed(Qt::MouseButton button, double x, double y)
{
    if (button != Qt::LeftButton)
        return;
    Patimeno_Koumpi = true;
    Patima_X = static_cast<float>(x);
    Patima_Y = static_cast<float>(y);
    Agkyra_X = static_cast<float>(x + Arxi_X);
    Agkyra_Y = static_cast<float>(y + Arxi_Y);
    Label_Stoixeio_->hide();
    Line_Stoixeio_->hide();
}

void frmMain::showCoordinates(double x, double y)
{
    const auto shown = [](double coordinate) {
        if (nai_grid)
            coordinate = Kannabos_Sintetagmeni(coordinate);
        return numberText(Stroggylopoiisi(coordinate, 5));
    };
    panel1_->setText(qtText(Metafrasi(66, "x = ") + shown(Othoni_X(x))));
    panel2_->setText(qtText(Metafrasi(67, "y = ") + shown(Othoni_Y(y))));
}

void frmMain::canvasMoved(double x, double y)
{
    if (sint_->look())
        showCoordinates(x, y);
    if (!Patimeno_Koumpi)
        return;
    if (Xeraki_Energo) {
        Arxi_X = Agkyra_X - x;
        Arxi_Y = Agkyra_Y - y;
    } else if (Zoom_Energo) {
        Zoom_Syrsimatos(Patima_Y, y);
        Patima_Y = static_cast<float>(y);
    } else if (Zoom_Window_Energo) {
        Shape1_->span(Patima_X, Patima_Y, x, y);
        Shape1_->show();
        return;
    } else {
        return;
    }
    Sxedio_Grigoro();
    ui_->Picture1->update();
}

void frmMain::canvasReleased(Qt::MouseButton button, double x, double y)
{
    if (button == Qt::LeftButton)
        leftReleased(x, y);
    else if (button == Qt::RightButton && isToolOn())
        mnuZoomakia_->popup(QCursor::pos());
}

void frmMain::leftReleased(double x, double y)
{
    if (Zoom_Window_Energo) {
        Zoom_Parathyrou(Patima_X, Patima_Y, static_cast<float>(x), static_cast<float>(y));
        Shape1_->hide();
    }
    if (isToolOn())
        Apothikefsi_Zoom();
    Line1_->hide();
    Label2_->hide();
    Patimeno_Koumpi = false;
    if (isToolOn())
        redraw();
}

} // namespace veskora
