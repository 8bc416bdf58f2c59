#include "WindowCommands.h"

#include "AnalysisCommands.h"
#include "CoincidenceChecks.h"
#include "Commands.h"
#include "Desktop.h"
#include "frmAbout.h"
#include "frmCalculation.h"
#include "frmDiairesi.h"
#include "frmElegxos.h"
#include "frmEPIKOMBIO.h"
#include "frmKomboi.h"
#include "frmKykliko.h"
#include "frmMETAKINISI.h"
#include "frmOmades.h"
#include "frmOMOIOMORFO.h"
#include "frmSigxonefsi.h"
#include "frmSteps.h"
#include "frmStoixeia.h"
#include "frmSXEDIASI.h"
#include "frmValues.h"
#include "Functions.h"
#include "Hand.h"
#include "HTMLHelp.h"
#include "Metablites.h"
#include "OutsidePrograms.h"
#include "PictureCommands.h"
#include "QtDesktop.h"
#include "RowQueries.h"
#include "WindowParts.h"

#include <QAction>
#include <QMenu>

namespace veskora {

namespace {

bool refuseWithoutNodes()
{
    if (Arithmos_Kombon == 0)
        showRefusal(Metafrasi(97, "No nodes have been defined yet."));
    return Arithmos_Kombon == 0;
}

bool refuseWithoutElements()
{
    if (Arithmos_Stoixeion == 0)
        showRefusal(Metafrasi(98, "No elements have been defined yet."));
    return Arithmos_Stoixeion == 0;
}

} // namespace

WindowCommands::WindowCommands(QWidget *window, CanvasObjects &canvas, Hand &hand,
                               PictureCommands &picture, HTMLHelp &help)
    : window_(window), canvas_(canvas), hand_(hand), picture_(picture), help_(help)
{}

WindowCommands::~WindowCommands()
{
    delete results_;
    delete check_;
    delete values_;
    delete steps_;
}

/// Looks anew afterwards at what lies under the pointer.
template <typename Dialog, typename Open>
void WindowCommands::showDialog(Open open)
{
    hand_.hideMarks();
    Dialog dialog(window_);
    open(dialog);
    hand_.lookAgain();
}

// ------------------------------------------------------------------------------ rows of the model

void WindowCommands::Button_EAI()
{
    showDialog<frmOmades>([](frmOmades &dialog) { dialog.openNew(); });
}

void WindowCommands::Button_Komboi()
{
    showDialog<frmKomboi>([](frmKomboi &dialog) { dialog.openNew(); });
}

void WindowCommands::Button_Stoixeia()
{
    if (Arithmos_Omadon == 0)
        showRefusal(Metafrasi(101,
                              "Before defining an element, at least one E,A,I Element Group must "
                              "have been defined."));
    else if (Arithmos_Kombon < 2)
        showRefusal(Metafrasi(102, "Before defining an element, at least two nodes must have been "
                                   "defined."));
    else
        showDialog<frmStoixeia>([](frmStoixeia &dialog) { dialog.openNew(); });
}

void WindowCommands::Button_Epikombia()
{
    if (Arithmos_Kombon == 0)
        showRefusal(Metafrasi(
            99, "Before defining a nodal load, at least one node must have been defined"));
    else
        showDialog<frmEPIKOMBIO>([](frmEPIKOMBIO &dialog) { dialog.openFirst(); });
}

void WindowCommands::Button_Omoiomorfa()
{
    if (Arithmos_Stoixeion == 0)
        showRefusal(Metafrasi(
            100, "Before defining an elemental load, at least one element must have been defined"));
    else
        showDialog<frmOMOIOMORFO>([](frmOMOIOMORFO &dialog) { dialog.openFirst(); });
}

void WindowCommands::openNode(int n)
{
    if (n <= Arithmos_Kombon)
        showDialog<frmKomboi>([n](frmKomboi &dialog) { dialog.openRow(n); });
}

void WindowCommands::openNodeLoads(int n)
{
    if (n <= Arithmos_Kombon)
        showDialog<frmEPIKOMBIO>([n](frmEPIKOMBIO &dialog) { dialog.openRow(n); });
}

void WindowCommands::openElement(int e)
{
    if (e <= Arithmos_Stoixeion)
        showDialog<frmStoixeia>([e](frmStoixeia &dialog) { dialog.openRow(e); });
}

void WindowCommands::openElementLoads(int e)
{
    if (e <= Arithmos_Stoixeion)
        showDialog<frmOMOIOMORFO>([e](frmOMOIOMORFO &dialog) { dialog.openRow(e); });
}

void WindowCommands::openMoveHeight(int n)
{
    if (n <= Arithmos_Kombon)
        showDialog<MoveGivenNodes>(
            [n](MoveGivenNodes &dialog) { dialog.openFor(nodesAtHeightOf(n)); });
}

// ------------------------------------------------------------------------------------------ tools

void WindowCommands::openMove()
{
    if (!refuseWithoutNodes())
        showDialog<frmMETAKINISI>([](frmMETAKINISI &dialog) { dialog.exec(); });
}

void WindowCommands::openMerge()
{
    if (!refuseWithoutNodes())
        showDialog<frmSigxonefsi>([](frmSigxonefsi &dialog) { dialog.exec(); });
}

void WindowCommands::openDivide()
{
    if (!refuseWithoutElements())
        showDialog<frmDiairesi>([this](frmDiairesi &dialog) {
            QObject::connect(&dialog, &frmDiairesi::divided, &picture_,
                             &PictureCommands::Button_Foreas);
            dialog.exec();
        });
}

void WindowCommands::openArc()
{
    if (Arithmos_Omadon == 0) {
        const std::string text =
            Metafrasi(103, "For the elements of the arc to be created, at least one E,A,I "
                           "Element Group must have been defined first.");
        Grammi_Log(text, logColour::red);
        if (desktop().message(text + "\r\n\r\n"
                                  + Metafrasi(104, "Do you want to define an E,A,I Element Group "
                                                   "now?"),
                              Icon::exclamation, Buttons::yesNo)
            == Answer::yes)
            Button_EAI();
        if (Arithmos_Omadon == 0)
            return;
    }
    showDialog<frmKykliko>([](frmKykliko &dialog) { dialog.exec(); });
}

void WindowCommands::checkNodes()
{
    if (!refuseWithoutNodes())
        findCoincidentNodes();
}

void WindowCommands::checkElements()
{
    if (!refuseWithoutElements())
        findCoincidentElements();
}

// ---------------------------------------------------------------------------------- other windows

void WindowCommands::Button_Rithmiseis()
{
    showDialog<frmSXEDIASI>([this](frmSXEDIASI &dialog) {
        QObject::connect(&dialog, &frmSXEDIASI::applied, &picture_, [this] {
            picture_.showSettings();
            desktop().redraw();
        });
        dialog.exec();
    });
}

void WindowCommands::Button_Apotelesmata()
{
    Erotisi_Epanepilisis();
    if (results_ != nullptr && !results_->isActiveWindow() && results_->isUpToDate())
        return bringToFront(*results_); // it was only covered
    delete results_;
    results_ = new frmApotelesmata(resultsPlace_);
    results_->setAttribute(Qt::WA_DeleteOnClose);
    showBeside(results_, *canvas_.Picture1);
}

void WindowCommands::openCheck()
{
    if (refuseWithoutNodes())
        return;
    if (check_ != nullptr) {
        check_->refresh();
        return bringToFront(*check_);
    }
    check_ = new frmElegxos(window_);
    check_->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(check_, &frmElegxos::picked, &picture_, &PictureCommands::showFinding);
    QObject::connect(check_, &frmElegxos::refreshWanted, check_, [this] { openCheck(); });
    QObject::connect(check_, &frmElegxos::helpWanted, check_,
                     [this] { help_.showTopicOf(check_); });
    check_->refresh();
    showReport(check_);
}

void WindowCommands::openValues()
{
    if (refuseWithoutElements())
        return;
    Erotisi_Epanepilisis();
    if (!hasResults)
        return showRefusal(Metafrasi(1854, "There are no results yet. Analyze the model; where "
                                           "that fails, see Report, Check of the analysis."));
    const auto pick = [this](bool isOn) {
        if (hand_.isTaken<PickTool>() != isOn)
            hand_.toggle<PickTool>();
    };
    if (values_ != nullptr) {
        values_->lookAgain();
        pick(true);
        return bringToFront(*values_);
    }
    values_ = new frmValues(window_);
    values_->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(values_, &frmValues::chosen, values_, [this](int e) { canvas_.choose(e); });
    QObject::connect(values_, &frmValues::pickWanted, values_, pick);
    QObject::connect(values_, &frmValues::helpWanted, values_,
                     [this] { help_.showTopicOf(values_); });
    QObject::connect(&hand_, &Hand::elementPicked, values_, &frmValues::choose);
    QObject::connect(&hand_, &Hand::toolChanged, values_,
                     [this] { values_->showPicking(hand_.isTaken<PickTool>()); });
    pick(true);
    values_->choose(1);
    showReport(values_);
}

/// What mends the model and the other reports need no change of window.
void WindowCommands::showReport(QWidget *report)
{
    for (const char *name :
         {commandPlace::analyze, commandPlace::undo, commandPlace::redo, commandPlace::save})
        report->addAction(window_->findChild<QAction *>(name));
    report->addActions(window_->findChild<QMenu *>(commandPlace::reportMenu)->actions());
    // Where the screen has no room beside the drawing it covers the right end of it, not the
    // middle.
    const QWidget &drawing = *canvas_.Picture1;
    report->move(drawing.mapToGlobal(drawing.rect().topRight()) - QPoint(report->width(), 0));
    showBeside(report, *canvas_.Picture1);
}

void WindowCommands::openCalculation()
{
    if (refuseWithoutNodes())
        return;
    Erotisi_Epanepilisis();
    showDialog<frmCalculation>([](frmCalculation &dialog) {
        QObject::connect(&dialog, &frmCalculation::openWanted, &dialog, openFile);
        dialog.exec();
    });
}

void WindowCommands::openSteps()
{
    if (refuseWithoutNodes())
        return;
    if (steps_ != nullptr) {
        steps_->showAgain();
        return bringToFront(*steps_);
    }
    steps_ = new frmSteps(window_);
    steps_->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(steps_, &frmSteps::refreshWanted, steps_, [this] {
        if (!refuseWithoutNodes())
            steps_->refresh();
    });
    QObject::connect(steps_, &frmSteps::helpWanted, steps_, [this] { help_.showTopicOf(steps_); });
    steps_->refresh();
    showReport(steps_);
}

void WindowCommands::lookAgain()
{
    if (results_ != nullptr)
        results_->showWarnings();
    if (values_ != nullptr)
        values_->lookAgain();
}

void WindowCommands::showAbout()
{
    frmAbout(window_).exec();
}

} // namespace veskora
