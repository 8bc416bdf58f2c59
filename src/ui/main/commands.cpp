// The commands of menus, toolbar and status bar.

#include "AnalysisCommands.h"
#include "CoincidenceChecks.h"
#include "Files.h"
#include "frmAbout.h"
#include "frmApotelesmata.h"
#include "frmDiairesi.h"
#include "frmEPIKOMBIO.h"
#include "frmKomboi.h"
#include "frmKykliko.h"
#include "frmMain.h"
#include "frmMETAKINISI.h"
#include "frmOmades.h"
#include "frmOMOIOMORFO.h"
#include "frmSigxonefsi.h"
#include "frmStoixeia.h"
#include "frmSXEDIASI.h"
#include "Functions.h"
#include "Metablites.h"
#include "Recovery.h"
#include "Registry.h"
#include "StatusPanel.h"
#include "Sxediastika.h"
#include "ui_frmMain.h"
#include "Zoom.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

namespace veskora {

/// Opens a dialog and looks anew at what lies under the pointer.
template <typename Dialog, typename Open>
void frmMain::showDialog(Open open)
{
    highlights_->hide();
    Dialog dialog(this);
    open(dialog);
    lookAgain();
}

QAction *frmMain::popupEntry(QMenu *menu, const char *name, void (frmMain::*command)())
{
    QAction *action = menu->addAction(QString());
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, command);
    return action;
}

void frmMain::addLabelSwitch(const char *name, bool *setting)
{
    QAction *action = mnu_Aorato_Times_->addAction(QString());
    action->setObjectName(name);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, action, setting] {
        *setting = !*setting;
        action->setChecked(*setting);
        redraw();
    });
    labelSwitches_.push_back({setting, action});
}

void frmMain::buildPopups()
{
    const auto separator = [](QMenu *menu, const char *name) {
        menu->addSeparator()->setObjectName(name);
    };
    mnuZoomakia_ = new QMenu(this);
    mnuZoomakia_->setObjectName("mnuZoomakia");
    popupEntry(mnuZoomakia_, "mnuEKSODOS2item", &frmMain::exitTools);
    separator(mnuZoomakia_, "mnusss10");
    const auto tool = [this](const char *name, const bool &isOn, void (frmMain::*command)()) {
        QAction *action = mnuZoomakia_->addAction(QString());
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, [this, &isOn, command] {
            if (!isOn)
                (this->*command)();
        });
    };
    tool("mnuPANitem", Xeraki_Energo, &frmMain::Button_Xeraki);
    tool("mnuZOOMitem", Zoom_Energo, &frmMain::Button_Zoom);
    tool("mnuWINDOWitem", Zoom_Window_Energo, &frmMain::Button_Zoom_Window);
    separator(mnuZoomakia_, "mnusss11");
    popupEntry(mnuZoomakia_, "mnuPREVIOUSitem", &frmMain::Button_Zoom_Previous);
    popupEntry(mnuZoomakia_, "mnuEXTENDSitem", &frmMain::Button_Zoom_Best_Fit);

    mnuAorato_ = new QMenu(this);
    mnuAorato_->setObjectName("mnuAorato");
    const auto rowEntry = [this](const char *name, auto open) {
        QAction *action = mnuAorato_->addAction(QString());
        action->setObjectName(name);
        connect(action, &QAction::triggered, this,
                [action, open] { open(action->data().toInt()); });
    };
    rowEntry("mnu1item", [this](int n) {
        if (n <= Arithmos_Kombon)
            showDialog<frmKomboi>([n](frmKomboi &dialog) { dialog.openRow(n); });
    });
    rowEntry("mnu3item", [this](int n) {
        if (n <= Arithmos_Kombon)
            showDialog<frmEPIKOMBIO>([n](frmEPIKOMBIO &dialog) { dialog.openRow(n); });
    });
    separator(mnuAorato_, "mnusss77");
    rowEntry("mnu2item", [this](int e) {
        if (e <= Arithmos_Stoixeion)
            showDialog<frmStoixeia>([e](frmStoixeia &dialog) { dialog.openRow(e); });
    });
    rowEntry("mnu4item", [this](int e) {
        if (e <= Arithmos_Stoixeion)
            showDialog<frmOMOIOMORFO>([e](frmOMOIOMORFO &dialog) { dialog.openRow(e); });
    });

    for (QMenu *popup : {mnuZoomakia_, mnuAorato_})
        connect(popup, &QMenu::aboutToHide, this, &frmMain::popupClosed, Qt::QueuedConnection);

    mnu_Aorato_Times_ = new QMenu(this);
    mnu_Aorato_Times_->setObjectName("mnu_Aorato_Times");
    addLabelSwitch("mnuArithmisi_kombon_item", &nai_arithmisi_kombon);
    addLabelSwitch("mnuSintet_kombon_item", &nai_sint_kombon);
    separator(mnu_Aorato_Times_, "mnusss12");
    addLabelSwitch("mnuArithmisi_Stoixeion_item", &nai_arithmisi_stoixeion);
    addLabelSwitch("mnuOmades1_item", &nai_omades);
    addLabelSwitch("mnuMiki_item", &nai_miki);
    separator(mnu_Aorato_Times_, "mnusss7");
    addLabelSwitch("mnuTimes_Sig_item", &nai_times_fortiseon_si);
    addLabelSwitch("mnuTimes_Om_item", &nai_times_fortiseon_om);
    separator(mnu_Aorato_Times_, "mnusss8");
    addLabelSwitch("mnuTimes_M_item", &nai_times_M);
    addLabelSwitch("mnuTimes_Q_item", &nai_times_Q);
    addLabelSwitch("mnuTimes_N_item", &nai_times_N);
    separator(mnu_Aorato_Times_, "mnusss9");
    const auto bulk = [this](const char *name, auto command) {
        QAction *action = mnu_Aorato_Times_->addAction(QString());
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, command);
    };
    bulk("mnuOles_item", [this] { setAllLabels(true); });
    bulk("mnuBasikes_item", [this] { setBasicLabels(); });
    bulk("mnuKamia_item", [this] { setAllLabels(false); });
}

void frmMain::connectCommands()
{
    const auto menu = [this](QAction *action, auto command) {
        connect(action, &QAction::triggered, this, command);
    };
    menu(ui_->mnuNEOitem, &frmMain::Button_Neo_arxeio);
    menu(ui_->mnuANAGNOSIitem, &frmMain::Button_Anagnosi_Arxeiou);
    menu(ui_->mnuAPOTHIKEFSIitem, &frmMain::Button_Apothikefsi_Arxeiou);
    menu(ui_->mnuAPOTHIKEFSIOSitem, &frmMain::saveAs);
    menu(ui_->mnuEIKONA_Clipboard_item, &frmMain::copyPicture);
    menu(ui_->mnuEIKONA_arxeio_bmp_item, &frmMain::savePicture);
    menu(ui_->mnuEKSODOSitem, &QWidget::close);
    menu(ui_->mnuOMADESitem, &frmMain::Button_EAI);
    menu(ui_->mnuKOMBOIitem, &frmMain::Button_Komboi);
    menu(ui_->mnuSTOIXEIAitem, &frmMain::Button_Stoixeia);
    menu(ui_->mnuSIGKENTROMENAitem, &frmMain::Button_Epikombia);
    menu(ui_->mnuOMOIOMORFAitem, &frmMain::Button_Omoiomorfa);
    menu(ui_->mnuMETAKINISIKOMBONitem, &frmMain::moveNodes);
    menu(ui_->mnuSIGXONEFSIitem, &frmMain::mergeNodes);
    menu(ui_->mnuDIAIRESIitem, &frmMain::divideElements);
    menu(ui_->mnuKYKLIKOitem, &frmMain::createArc);
    menu(ui_->mnuSIMP_KOMBitem, [this] {
        if (!refuseWithoutNodes())
            findCoincidentNodes();
    });
    menu(ui_->mnuSIMP_STOIXitem, [this] {
        if (!refuseWithoutElements())
            findCoincidentElements();
    });
    menu(ui_->mnuEPILISIitem, [] { Button_Epilisi(); });
    menu(ui_->mnuIPOLOGISTISitem, &frmMain::startCalculator);
    menu(ui_->mnuFOREASitem, &frmMain::Button_Foreas);
    menu(ui_->mnuDIAG_Mitem, &frmMain::Button_M);
    menu(ui_->mnuDIAG_Qitem, &frmMain::Button_Q);
    menu(ui_->mnuDIAG_Nitem, &frmMain::Button_N);
    menu(ui_->mnuDEFORMitem, &frmMain::Button_Deform);
    menu(ui_->mnuRITHMISEISitem, &frmMain::Button_Rithmiseis);
    menu(ui_->mnuCONTENTSitem, [this] { help_.showContents(); });
    menu(ui_->mnuVeskoraWEBitem, &frmMain::openWebPage);
    menu(ui_->mnuPERIitem, &frmMain::showAbout);

    // A tool button clears the highlights first; those that open a dialog put the tools away too.
    const auto button = [this](QAction *action, auto command) {
        connect(action, &QAction::triggered, this, [this] { highlights_->hide(); });
        connect(action, &QAction::triggered, this, command);
    };
    const auto dialogButton = [this](QAction *action, auto command) {
        connect(action, &QAction::triggered, this, [this] { highlights_->hide(); });
        connect(action, &QAction::triggered, this, &frmMain::Reset_Pointer);
        connect(action, &QAction::triggered, this, command);
    };
    button(ui_->New, &frmMain::Button_Neo_arxeio);
    button(ui_->Open, &frmMain::Button_Anagnosi_Arxeiou);
    button(ui_->Save, &frmMain::Button_Apothikefsi_Arxeiou);
    button(ui_->Xeraki, &frmMain::Button_Xeraki);
    button(ui_->Zoom, &frmMain::Button_Zoom);
    button(ui_->Zoom_Window, &frmMain::Button_Zoom_Window);
    button(ui_->Zoom_Previous, &frmMain::Button_Zoom_Previous);
    button(ui_->ZoomBestFit, &frmMain::Button_Zoom_Best_Fit);
    dialogButton(ui_->EAI, &frmMain::Button_EAI);
    dialogButton(ui_->Komboi, &frmMain::Button_Komboi);
    dialogButton(ui_->Stoixeia, &frmMain::Button_Stoixeia);
    dialogButton(ui_->Epikombia, &frmMain::Button_Epikombia);
    dialogButton(ui_->Omoiomorfa, &frmMain::Button_Omoiomorfa);
    button(ui_->Foreas, &frmMain::Button_Foreas);
    button(ui_->M, &frmMain::Button_M);
    button(ui_->Q, &frmMain::Button_Q);
    button(ui_->N, &frmMain::Button_N);
    button(ui_->Deform, &frmMain::Button_Deform);
    button(ui_->Rithmiseis, &frmMain::Button_Rithmiseis);
    button(ui_->Epilisi, [] { Button_Epilisi(); });
    button(ui_->Apotelesmata, &frmMain::Button_Apotelesmata);

    connect(sint_, &QPushButton::clicked, this, [this] {
        sint_->setLook(!sint_->look());
        panel1_->setVisible(sint_->look());
        panel2_->setVisible(sint_->look());
    });
    const auto flip = [this](StatusPanel *panel, bool *setting) {
        connect(panel, &QPushButton::clicked, this, [this, panel, setting] {
            panel->setLook(!panel->look());
            *setting = panel->look();
            redraw();
        });
    };
    flip(aksones_, &nai_aksones);
    flip(kannabos_, &nai_grid);
    connect(times_, &QPushButton::clicked, this, [this] {
        showLabelSwitches();
        // Above the status bar: the panel stays in sight.
        mnu_Aorato_Times_->popup(
            times_->mapToGlobal(QPoint(0, -mnu_Aorato_Times_->sizeHint().height())));
    });
    connect(ui_->SSCommand32, &QToolButton::clicked, this, &frmMain::toggleLog);
    connect(Command1_, &QPushButton::clicked, this, [this] { resizeDiagram(enlargeDiagram); });
    connect(Command2_, &QPushButton::clicked, this, [this] { resizeDiagram(reduceDiagram); });
}

// ------------------------------------------------------------------------------------------ files

bool frmMain::askToSave(bool closing)
{
    if (!Onoma_Arxeiou.empty() ? Idio_Me_To_Arxeio() : isModelEmpty())
        return true;
    const std::string name = Onoma_Arxeiou.empty() ? "Untitled.vsk" : Onoma_Arxeiou;
    const Answer answer = desktop().message(
        Metafrasi(95, "Do you want to save the changes you made to file:") + " '" + name + "'?",
        closing ? Icon::exclamation : Icon::none, Buttons::yesNoCancel);
    if (answer == Answer::yes)
        return saveBeforeLeaving(closing);
    return answer != Answer::cancel;
}

bool frmMain::saveBeforeLeaving(bool closing)
{
    std::string path = Onoma_Arxeiou;
    if (Apothikefsi_Arxeiou(path, false))
        return true;
    // The command goes on all the same, and the user meant to keep the model.
    const std::string recovery = writeRecoveryFile();
    if (recovery.empty()) {
        showRefusal(Metafrasi(117, "The model could not be kept."));
        return false; // leaving it would be to lose it
    }
    const std::string text =
        Metafrasi(116, "The model is kept in the recovery file:") + " " + recovery;
    Grammi_Log(text, logColour::red);
    if (closing || ui_->RichTextBox1->isHidden())
        desktop().message(text, Icon::exclamation);
    return true;
}

void frmMain::showFreshModel()
{
    applyColours();
    Katastasi_Provolis = 0;
    Reset_Pointer();
    forgetHover();
    showMode(0);
    showPanels();
    redraw();
}

void frmMain::Button_Neo_arxeio()
{
    if (!askToSave(false))
        return;
    Katharismos_Montelou();
    Allagi_Montelou = true;
    Onoma_Arxeiou.clear();
    showModelCaption({});
    resetView();
    Fortosi_Rithmiseon();
    showFreshModel();
    Grammi_Log(Metafrasi(55, "New file"), logColour::black, true);
    resetZoomHistory();
}

void frmMain::Button_Anagnosi_Arxeiou()
{
    if (!askToSave(false))
        return;
    std::string path;
    Anagnosi_Arxeiou(path);
    Allagi_Montelou = true;
    showFreshModel();
}

void frmMain::Button_Apothikefsi_Arxeiou()
{
    Apothikefsi_Arxeiou(Onoma_Arxeiou, false);
}

void frmMain::saveAs()
{
    std::string path;
    Apothikefsi_Arxeiou(path, false);
}

void frmMain::copyPicture()
{
    QApplication::clipboard()->setImage(ui_->Picture1->kanvas().image().copy());
}

void frmMain::savePicture()
{
    const std::string path =
        askSavePath(Metafrasi(1774, "Bitmap Files") + " (*.bmp)|*.bmp", "Picture", ".bmp");
    if (!path.empty())
        (void)writeImage(ui_->Picture1->kanvas().image(), qtText(path), "bmp");
}

// ------------------------------------------------------------------------------------------- view

void frmMain::showPanels()
{
    aksones_->setLook(nai_aksones);
    kannabos_->setLook(nai_grid);
}

void frmMain::showLabelSwitches()
{
    for (const LabelSwitch &label : labelSwitches_)
        label.entry->setChecked(*label.setting);
}

void frmMain::setAllLabels(bool on)
{
    for (const LabelSwitch &label : labelSwitches_)
        *label.setting = on;
    redraw();
}

void frmMain::setBasicLabels()
{
    if (Katastasi_Provolis >= 0 && Katastasi_Provolis <= 3) {
        const bool model = Katastasi_Provolis == 0;
        nai_arithmisi_kombon = nai_arithmisi_stoixeion = model;
        nai_times_fortiseon_si = nai_times_fortiseon_om = model;
        nai_sint_kombon = nai_omades = nai_miki = false;
        nai_times_M = nai_times_Q = nai_times_N = true;
    }
    redraw();
}

void frmMain::Button_Foreas()
{
    Katastasi_Provolis = 0;
    showMode(0);
    redraw();
}

void frmMain::showResults(int mode)
{
    Erotisi_Epanepilisis();
    Katastasi_Provolis = static_cast<std::int16_t>(mode);
    highlights_->hide(); // they belong to the model
    showMode(mode);
    redraw();
}

void frmMain::Button_M()
{
    showResults(1);
}

void frmMain::Button_Q()
{
    showResults(2);
}

void frmMain::Button_N()
{
    showResults(3);
}

void frmMain::Button_Deform()
{
    showResults(4);
}

void frmMain::resizeDiagram(void (*change)())
{
    Erotisi_Epanepilisis();
    change();
    redraw();
}

void frmMain::Button_Apotelesmata()
{
    Erotisi_Epanepilisis();
    if (results_ != nullptr && !results_->isActiveWindow() && results_->isUpToDate())
        return bringToFront(*results_); // it was only covered
    delete results_;
    results_ = new frmApotelesmata;
    results_->setAttribute(Qt::WA_DeleteOnClose);
    results_->showBeside(*ui_->Picture1);
}

void frmMain::Button_Rithmiseis()
{
    showDialog<frmSXEDIASI>([this](frmSXEDIASI &dialog) {
        connect(&dialog, &frmSXEDIASI::applied, this, [this] {
            applyColours();
            showPanels();
            redraw();
        });
        dialog.exec();
    });
}

// ------------------------------------------------------------------------------------ the dialogs

bool frmMain::refuseWithoutNodes()
{
    if (Arithmos_Kombon == 0)
        showRefusal(Metafrasi(97, "No nodes have been defined yet."));
    return Arithmos_Kombon == 0;
}

bool frmMain::refuseWithoutElements()
{
    if (Arithmos_Stoixeion == 0)
        showRefusal(Metafrasi(98, "No elements have been defined yet."));
    return Arithmos_Stoixeion == 0;
}

void frmMain::Button_EAI()
{
    showDialog<frmOmades>([](frmOmades &dialog) { dialog.openNew(); });
}

void frmMain::Button_Komboi()
{
    showDialog<frmKomboi>([](frmKomboi &dialog) { dialog.openNew(); });
}

void frmMain::Button_Stoixeia()
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

void frmMain::Button_Epikombia()
{
    if (Arithmos_Kombon == 0)
        showRefusal(Metafrasi(
            99, "Before defining a nodal load, at least one node must have been defined"));
    else
        showDialog<frmEPIKOMBIO>([](frmEPIKOMBIO &dialog) { dialog.openFirst(); });
}

void frmMain::Button_Omoiomorfa()
{
    if (Arithmos_Stoixeion == 0)
        showRefusal(Metafrasi(
            100, "Before defining an elemental load, at least one element must have been defined"));
    else
        showDialog<frmOMOIOMORFO>([](frmOMOIOMORFO &dialog) { dialog.openFirst(); });
}

void frmMain::moveNodes()
{
    if (!refuseWithoutNodes())
        showDialog<frmMETAKINISI>([](frmMETAKINISI &dialog) { dialog.exec(); });
}

void frmMain::mergeNodes()
{
    if (!refuseWithoutNodes())
        showDialog<frmSigxonefsi>([](frmSigxonefsi &dialog) { dialog.exec(); });
}

void frmMain::divideElements()
{
    if (!refuseWithoutElements())
        showDialog<frmDiairesi>([this](frmDiairesi &dialog) {
            connect(&dialog, &frmDiairesi::divided, this, &frmMain::Button_Foreas);
            dialog.exec();
        });
}

void frmMain::createArc()
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

// -------------------------------------------------------------------------------- outside programs

void frmMain::startCalculator()
{
    for (const char *program : {"gnome-calculator", "kcalc", "mate-calc", "galculator",
                                "qalculate-gtk", "deepin-calculator", "xcalc"})
        if (QProcess::startDetached(program, {}))
            return;
}

void frmMain::openWebPage()
{
    QDesktopServices::openUrl(
        QUrl::fromLocalFile(QApplication::applicationDirPath() + "/web/index.html"));
}

void frmMain::showAbout()
{
    frmAbout(this).exec();
}

} // namespace veskora
