#include "PictureCommands.h"

#include "AnalysisCommands.h"
#include "Commands.h"
#include "Desktop.h"
#include "DiagramOutline.h"
#include "Files.h"
#include "Functions.h"
#include "Hand.h"
#include "Metablites.h"
#include "MotionShape.h"
#include "RowMarks.h"
#include "Settings.h"
#include "StatusBar.h"
#include "Sxediastika.h"
#include "Text.h"
#include "VectorKanvas.h"
#include "VectorPicture.h"
#include "Zoom.h"

#include <QApplication>
#include <QClipboard>

#include <array>
#include <filesystem>
#include <string_view>

namespace veskora {

PictureCommands::PictureCommands(CanvasObjects &canvas, Hand &hand, StatusBar &status)
    : canvas_(canvas), hand_(hand), status_(status)
{
    connect(canvas.Command1, &QPushButton::clicked, this,
            [this] { resizeDiagram(enlargeDiagram); });
    connect(canvas.Command2, &QPushButton::clicked, this, [this] { resizeDiagram(reduceDiagram); });
}

// ------------------------------------------------------------------------------------------ views

void PictureCommands::setMode(std::int16_t mode)
{
    Katastasi_Provolis = mode;
    status_.showMode();
    canvas_.Command1->setVisible(mode != view::model);
    canvas_.Command2->setVisible(mode != view::model);
}

void PictureCommands::Button_Foreas()
{
    setMode(view::model);
    desktop().redraw();
}

void PictureCommands::showResults(std::int16_t mode)
{
    Erotisi_Epanepilisis();
    hand_.hideMarks(); // they belong to the model
    setMode(mode);
    desktop().redraw();
}

void PictureCommands::Button_M()
{
    showResults(view::M);
}

void PictureCommands::Button_Q()
{
    showResults(view::Q);
}

void PictureCommands::Button_N()
{
    showResults(view::N);
}

void PictureCommands::Button_Deform()
{
    showResults(view::deformed);
}

void PictureCommands::showFinding(const Finding &finding)
{
    hand_.endViewRun();
    hand_.hideMarks(); // of what lies under the pointer
    const auto *motion = std::get_if<Motion>(&finding.facts);
    if (motion == nullptr && finding.nodes.empty() && finding.elements.empty())
        return desktop().redraw();
    setMode(view::model);
    paint();
    finding_ = finding;
    drawFinding();
    canvas_.Picture1->update();
}

void PictureCommands::drawFinding() const
{
    if (!finding_)
        return;
    const auto *motion = std::get_if<Motion>(&finding_->facts);
    // Rings round all that moves would hide where it goes.
    markRows(motion == nullptr ? finding_->nodes : std::vector<int>{}, finding_->elements);
    if (motion != nullptr)
        drawMotion(motion->displacements);
}

void PictureCommands::paint()
{
    finding_.reset();
    Ananeosi_Sxediou();
}

void PictureCommands::resizeDiagram(void (*change)())
{
    Erotisi_Epanepilisis();
    change();
    desktop().redraw();
}

void PictureCommands::showSettings()
{
    canvas_.applyColours();
    status_.showSettings();
}

void PictureCommands::showStart()
{
    showSettings();
    setMode(view::model);
}

void PictureCommands::showNewModel()
{
    showSettings();
    hand_.Reset_Pointer();
    hand_.forgetPointed();
    Button_Foreas();
}

// ------------------------------------------------------------------------------------------- zoom

void PictureCommands::Button_Zoom_Previous()
{
    if (Zoom_Proigoumeno())
        desktop().redraw();
}

void PictureCommands::Button_Zoom_Best_Fit()
{
    const CanvasView before = currentView();
    Zoom_Best_Fit();
    if (currentView() == before && isDiagramCut()) // pressed again: the nodes are in view already
        Zoom_Diagram();
    Apothikefsi_Zoom();
    desktop().redraw();
}

// ----------------------------------------------------------------------------------------- labels

namespace {

void setAllLabels(bool isOn)
{
    for (const Command &command : commands())
        if (command.place == std::string_view(commandPlace::labelMenu)
            && command.setting != nullptr)
            *command.setting = isOn;
    desktop().redraw();
}

} // namespace

void PictureCommands::showAllLabels()
{
    setAllLabels(true);
}

void PictureCommands::showNoLabels()
{
    setAllLabels(false);
}

void PictureCommands::showBasicLabels()
{
    if (Katastasi_Provolis != view::deformed) {
        const bool isModel = Katastasi_Provolis == view::model;
        nai_arithmisi_kombon = nai_arithmisi_stoixeion = isModel;
        nai_times_fortiseon_si = nai_times_fortiseon_om = isModel;
        nai_sint_kombon = nai_omades = nai_miki = false;
        nai_times_M = nai_times_Q = nai_times_N = true;
    }
    desktop().redraw();
}

// --------------------------------------------------------------------------------------- ways out

void PictureCommands::copyPicture()
{
    QApplication::clipboard()->setImage(canvas_.Picture1->kanvas().image().copy());
}

void PictureCommands::savePicture()
{
    const std::string path =
        askSavePath(Metafrasi(1774, "Bitmap Files") + " (*.bmp)|*.bmp", "Picture", ".bmp");
    if (!path.empty() && writeImage(canvas_.Picture1->kanvas().image(), qtText(path), "bmp"))
        Grammi_Log(Metafrasi(1726, "Picture:") + " " + path, logColour::black);
}

namespace {

/// The model's name and the view's, as the batch runner has it.
std::string proposedName()
{
    static constexpr std::array<const char *, 5> views = {"model", "M", "Q", "N", "D"};
    const std::string model =
        Onoma_Arxeiou.empty() ? "Picture"
                              : std::filesystem::path(Onoma_Arxeiou).replace_extension().string();
    return model + "_" + views.at(static_cast<std::size_t>(Katastasi_Provolis));
}

} // namespace

void PictureCommands::saveVectorPicture()
{
    const std::string svg = ".svg", pdf = ".pdf";
    const std::string path = askSavePath(Metafrasi(1901, "SVG files") + " (*.svg)|*.svg|"
                                             + Metafrasi(1730, "PDF files") + " (*.pdf)|*.pdf",
                                         proposedName() + svg, {svg, pdf});
    if (path.empty())
        return;
    const std::string content = vectorPicture(
        path.ends_with(pdf) ? VectorForm::pdf : VectorForm::svg, canvas_.Picture1->kanvas().size(),
        qtText(std::filesystem::path(path).stem().string()), [this](VectorKanvas &kanvas) {
            kanvas.setBackground(xroma_background);
            Ananeosi_Sxediou();
            drawFinding();
        });
    if (writeFileOrTell(path, content))
        Grammi_Log(Metafrasi(1726, "Picture:") + " " + path, logColour::black);
}

} // namespace veskora

#include "moc_PictureCommands.cpp"
