// The mouse on the canvas.

#include "frmMain.h"
#include "Functions.h"
#include "HitTest.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "RowQueries.h"
#include "Settings.h"
#include "StatusPanel.h"
#include "Supports.h"
#include "Sxediastika.h"
#include "ui_frmMain.h"
#include "Units.h"
#include "Zoom.h"

#include <QApplication>

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace veskora {

namespace {

constexpr PointerPicture hand = {":/icons/pointer_hand.svg", 16, 18};
constexpr PointerPicture zoom = {":/icons/pointer_zoom.svg", 12, 12};
constexpr PointerPicture zoomWindow = {":/icons/pointer_zoom_window.svg", 8, 8};

/// Decimals of a node's coordinates as the mouse gives them.
constexpr std::int16_t Dekadika_Sintetagmenon = 4;

bool areJoined(int a, int b)
{
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        if (joins(e, a, b))
            return true;
    return false;
}

} // namespace

bool frmMain::isToolOn() const
{
    return Xeraki_Energo || Zoom_Energo || Zoom_Window_Energo;
}

void frmMain::Reset_Pointer()
{
    Xeraki_Energo = Zoom_Energo = Zoom_Window_Energo = false;
    Shape1_->hide();
    showToolPointer();
}

void frmMain::showToolPointer()
{
    if (!isToolOn())
        return ui_->Picture1->setCursor(Qt::CrossCursor);
    const PointerPicture &picture = Xeraki_Energo ? hand : Zoom_Energo ? zoom : zoomWindow;
    ui_->Picture1->setCursor(toolPointer(picture, devicePixelRatioF()));
}

/// The active tool's own button leaves it; another one's switches.
void frmMain::switchTool(bool &tool)
{
    const bool entering = !tool;
    Reset_Pointer();
    if (!entering)
        return;
    tool = true;
    showToolPointer();
    highlights_->hide();
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

// ------------------------------------------------------------------------------------------ press

void frmMain::canvasPressed(Qt::MouseButton button, double x, double y)
{
    // A window that has gone leaves the pointer where no move has told of it.
    if (Katastasi_Provolis == 0 && !Patimeno_Koumpi)
        hover(x, y);
    if (button != Qt::LeftButton)
        return;
    Patimeno_Koumpi = true;
    Patima_X = static_cast<float>(x);
    Patima_Y = static_cast<float>(y);
    Agkyra_X = static_cast<float>(x + Arxi_X);
    Agkyra_Y = static_cast<float>(y + Arxi_Y);
    highlights_->hideElement();
    const QPoint place(static_cast<int>(x * pixelsPerCentimetre),
                       static_cast<int>(y * pixelsPerCentimetre));
    if (Label2_->geometry().contains(place))
        Label2_->hide();
    if (Katastasi_Provolis == 0 && !isToolOn() && Arithmos_Kombon < maxNodes)
        pressOnModel(x, y);
}

void frmMain::pressOnModel(double x, double y)
{
    if (Pano_Se_Kombo && Kombos_Deikti <= Arithmos_Kombon) {
        Kombos_Arxis = static_cast<std::int16_t>(Kombos_Deikti);
        return;
    }
    const int n = defineNode(x, y, true);
    if (n == 0) {
        Patimeno_Koumpi = false; // the place was refused: nothing begins that a release could end
        return;
    }
    Neos_Kombos_Sto_Patima = true;
    Exei_Oristei_Kombos = true;
    Kombos_Arxis = static_cast<std::int16_t>(n);
}

namespace {

/// The model coordinate that a place on the canvas stands for, as nodes get it.
double nodeCoordinate(double coordinate, bool toGrid)
{
    return toGrid ? Kannabos_Sintetagmeni(coordinate)
                  : Stroggylopoiisi(coordinate, Dekadika_Sintetagmenon);
}

/// Whether the rounding, which counts in 32 bits, can tell @p coordinate.
bool canBeTold(double coordinate)
{
    const double steps =
        nai_grid ? coordinate / kannab : coordinate * std::pow(10.0, Dekadika_Sintetagmenon);
    return std::abs(steps) < std::numeric_limits<std::int32_t>::max();
}

std::string restraintCode(int n)
{
    return supportCode(Komboi(n, node::fixedX) != 0, Komboi(n, node::fixedY) != 0,
                       Komboi(n, node::fixedRotation) != 0);
}

} // namespace

int frmMain::defineNode(double x, double y, bool atPress)
{
    if (Arithmos_Kombon >= maxNodes)
        return 0;
    const double worldX = Othoni_X(x);
    const double worldY = Othoni_Y(y);
    if (!canBeTold(worldX) || !canBeTold(worldY)) {
        Grammi_Log(Metafrasi(135, "This place is too far from the origin for a node."),
                   logColour::red);
        return 0;
    }
    const int n = Arithmos_Kombon + 1;
    Komboi(n, node::x) = static_cast<float>(nodeCoordinate(worldX, nai_grid));
    Komboi(n, node::y) = static_cast<float>(nodeCoordinate(worldY, nai_grid));
    ++Arithmos_Kombon;
    std::string text = Metafrasi(118, "New node #") + numberText(n) + Metafrasi(119, ", x=")
                       + numberText(Komboi(n, node::x)) + Metafrasi(120, ", y=")
                       + numberText(Komboi(n, node::y)) + ", ";
    const std::string code = restraintCode(n);
    if (atPress || code == "ooo")
        text += Metafrasi(121, "Free");
    else
        text += Metafrasi(122, "Constraints:") + " " + code;
    Grammi_Log(text, logColour::navy);
    Sxedio_Kombou(n);
    ui_->Picture1->update();
    Allagi_Montelou = true;
    return n;
}

// ------------------------------------------------------------------------------------------- move

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

void frmMain::canvasMoved(Qt::MouseButtons buttons, double x, double y)
{
    if (Patimeno_Koumpi && !buttons.testFlag(Qt::LeftButton))
        giveUpDrag(); // the release went to somebody else
    pointerOnCanvas_ = true;
    if (sint_->look())
        showCoordinates(x, y);
    if (Patimeno_Koumpi && moveView(x, y))
        return;
    Neos_Kombos_Sto_Patima = false;
    if (Katastasi_Provolis != 0)
        return;
    if (Patimeno_Koumpi && !isToolOn() && Arithmos_Stoixeion < maxElements && Exei_Oristei_Kombos)
        showRubberBand(x, y);
    hover(x, y);
}

/// @return whether a tool took the move
bool frmMain::moveView(double x, double y)
{
    if (Zoom_Window_Energo) {
        Shape1_->span(Patima_X, Patima_Y, x, y);
        Shape1_->show();
        return true;
    }
    if (Xeraki_Energo) {
        moveOrigin(Agkyra_X - x, Agkyra_Y - y);
    } else if (Zoom_Energo) {
        Zoom_Syrsimatos(Patima_Y, y);
        Patima_Y = static_cast<float>(y);
    } else {
        return false;
    }
    Sxedio_Grigoro();
    ui_->Picture1->update();
    return true;
}

void frmMain::showRubberBand(double x, double y)
{
    const auto snapX = [](double c) { return Kosmos_X(nodeCoordinate(Othoni_X(c), nai_grid)); };
    const auto snapY = [](double c) { return Kosmos_Y(nodeCoordinate(Othoni_Y(c), nai_grid)); };
    Line1_->span(snapX(Patima_X), snapY(Patima_Y), snapX(x), snapY(y));
    Line1_->show();

    const double worldX = Stroggylopoiisi(Kannabos_Sintetagmeni(Othoni_X(x)), 5);
    const double worldY = Stroggylopoiisi(Kannabos_Sintetagmeni(Othoni_Y(y)), 5);
    std::string text;
    if (Nai_Apolites_Sint)
        text = numberText(worldX) + ", " + numberText(worldY) + "\r\n";
    if (Nai_Sxetikes_Sint && Kombos_Arxis >= 1 && Kombos_Arxis <= Arithmos_Kombon) {
        const auto relative = [](double coordinate, float start) {
            return numberText(Stroggylopoiisi(coordinate - start, Dekadika_Sintetagmenon));
        };
        text += "@ " + relative(worldX, Komboi(Kombos_Arxis, node::x)) + ", "
                + relative(worldY, Komboi(Kombos_Arxis, node::y));
    }
    Label2_->setText(qtText(text));
    Label2_->place(x + 0.1, y + 0.1, ui_->Picture1->kanvas().textHeight() + 0.5);
    Label2_->setVisible(!text.empty());
}

void frmMain::hover(double x, double y)
{
    Teleftaio_X = static_cast<float>(x);
    Teleftaio_Y = static_cast<float>(y);
    Kombos_Deikti = nodeUnderPointer(x, y);
    Pano_Se_Kombo = Kombos_Deikti != 0;
    if (!Patimeno_Koumpi) {
        Stoixeio_Deikti = elementUnderPointer(x, y);
        Pano_Se_Stoixeio = Stoixeio_Deikti != 0;
    }
    if (isToolOn())
        return highlights_->hide();
    highlights_->showNode(Kombos_Deikti, Kosmos_X(nodeCoordinate(Othoni_X(x), nai_grid)),
                          Kosmos_Y(nodeCoordinate(Othoni_Y(y), nai_grid)));
    if (!Patimeno_Koumpi)
        highlights_->showElement(Stoixeio_Deikti);
}

void frmMain::forgetHover()
{
    Pano_Se_Kombo = Pano_Se_Stoixeio = false;
    Kombos_Deikti = Stoixeio_Deikti = 0;
    highlights_->hide();
}

void frmMain::lookAgain()
{
    const std::array<int, 2> rows = {Arithmos_Kombon, Arithmos_Stoixeion};
    const auto before = std::exchange(rowsSeen_, rows);
    if (rows[0] < before[0] || rows[1] < before[1]) { // rows have another number now, or none
        forgetHover();
        mnuAorato_->close();
        if (Patimeno_Koumpi)
            giveUpDrag();
    }
    if (Katastasi_Provolis != 0 || !pointerOnCanvas_ || mnuAorato_->isVisible()
        || QApplication::activeModalWidget() != nullptr)
        return;
    const QPointF place = ui_->Picture1->centimetresAt(pointer_);
    if (sint_->look())
        showCoordinates(place.x(), place.y());
    hover(place.x(), place.y());
}

void frmMain::pointerLeft()
{
    pointerOnCanvas_ = false;
    if (!mnuAorato_->isVisible()) // it tells of what is marked
        highlights_->hide();
}

/// While it was open the pointer may have gone anywhere.
void frmMain::popupClosed()
{
    pointerOnCanvas_ = QApplication::widgetAt(pointer_.toPoint()) == ui_->Picture1;
    if (!pointerOnCanvas_)
        highlights_->hide();
    lookAgain();
}

// ---------------------------------------------------------------------------------------- release

void frmMain::canvasReleased(Qt::MouseButton button, double x, double y)
{
    if (button == Qt::LeftButton)
        leftReleased(x, y);
    else if (button == Qt::RightButton && !Patimeno_Koumpi)
        showPopup();
}

void frmMain::leftReleased(double x, double y)
{
    if (Patimeno_Koumpi && isToolOn()) {
        if (Zoom_Window_Energo) {
            Zoom_Parathyrou(Patima_X, Patima_Y, x, y);
        }
        Apothikefsi_Zoom();
    } else if (Patimeno_Koumpi && Katastasi_Provolis == 0) {
        defineElementTo(x, y);
    }
    endRelease();
    if (Katastasi_Provolis == 0)
        hover(x, y);
}

/// Ends a drag whose release will not come: it defines nothing, and a view that moved is one that
/// Zoom Previous comes back to.
void frmMain::giveUpDrag()
{
    if (Patimeno_Koumpi && (Xeraki_Energo || Zoom_Energo))
        Apothikefsi_Zoom();
    endRelease();
}

void frmMain::endRelease()
{
    Line1_->hide();
    Label2_->hide();
    Shape1_->hide();
    Patimeno_Koumpi = false;
    if (isToolOn())
        redraw();
}

/// Ends a drag in the model: a node at its end where there is none, and the element between.
void frmMain::defineElementTo(double x, double y)
{
    int end = 0;
    if (Pano_Se_Kombo && Kombos_Deikti <= Arithmos_Kombon)
        end = Kombos_Deikti;
    else if (!Neos_Kombos_Sto_Patima)
        end = defineNode(x, y, false);
    if (end != 0 && end != Kombos_Arxis) {
        if (Arithmos_Omadon == 0)
            offerMainGroup();
        if (Arithmos_Omadon >= 1 && Kombos_Arxis >= 1 && Kombos_Arxis <= Arithmos_Kombon
            && Arithmos_Stoixeion < maxElements && !areJoined(Kombos_Arxis, end))
            addElement(end);
    }
    redraw();
}

void frmMain::offerMainGroup()
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
        Button_EAI();
}

void frmMain::addElement(int end)
{
    const int e = Arithmos_Stoixeion + 1;
    Stoixeia(e, element::nodeI) = Kombos_Arxis;
    Stoixeia(e, element::nodeJ) = static_cast<float>(end);
    Stoixeia(e, element::group) = 1;
    ++Arithmos_Stoixeion;
    Grammi_Log(Metafrasi(123, "New element #") + numberText(e) + ", " + Metafrasi(124, "Node i: #")
                   + numberText(int{Kombos_Arxis}) + ", " + Metafrasi(125, "Node j: #")
                   + numberText(end) + ", " + Metafrasi(126, "E,A,I Group: #") + numberText(1)
                   + ", " + Metafrasi(127, "P2 Type"),
               logColour::navy);
    Allagi_Montelou = true;
}

// ----------------------------------------------------------------------- right button, double
// click

void frmMain::showPopup()
{
    if (isToolOn()) {
        mnuZoomakia_->popup(QCursor::pos());
        return;
    }
    const bool onNode = Pano_Se_Kombo && Kombos_Deikti <= Arithmos_Kombon;
    const bool onElement = Pano_Se_Stoixeio && Stoixeio_Deikti <= Arithmos_Stoixeion;
    const auto entry = [this](const char *name) { return findChild<QAction *>(name); };
    const auto set = [](QAction *action, const std::string &text, int row, bool visible) {
        action->setText(qtText(text + numberText(row)));
        action->setData(row);
        action->setVisible(visible);
    };
    set(entry("mnu1item"), Metafrasi(137, "Node #"), Kombos_Deikti, onNode);
    set(entry("mnu3item"), Metafrasi(132, "Loads on node #"), Kombos_Deikti, onNode);
    set(entry("mnu2item"), Metafrasi(133, "Element #"), Stoixeio_Deikti, onElement);
    set(entry("mnu4item"), Metafrasi(134, "Loads on element #"), Stoixeio_Deikti, onElement);
    entry("mnusss77")->setVisible(onNode && onElement);
    assignMnemonics(mnuAorato_->actions());
    if (onNode || onElement)
        mnuAorato_->popup(QCursor::pos());
}

void frmMain::canvasDoubleClicked()
{
    if (isToolOn() || Katastasi_Provolis != 0)
        return;
    constexpr double near = 2; // centimetres
    if (const int n = nearestNode(Teleftaio_X, Teleftaio_Y, near)) {
        const auto isCode = [n](int column) {
            return Komboi(n, column) == 0 || Komboi(n, column) == 1;
        };
        if (isCode(node::fixedX) && isCode(node::fixedY) && isCode(node::fixedRotation)) {
            const std::string_view next = nextSupport(restraintCode(n));
            for (int k = 0; k < 3; ++k)
                Komboi(n, node::fixedX + k) =
                    next[static_cast<std::size_t>(k)] == 'x' ? 1.0F : 0.0F;
            Allagi_Montelou = true;
        }
    }
    redraw();
}

} // namespace veskora
