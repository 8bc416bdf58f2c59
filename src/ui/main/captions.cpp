// Every caption and tool tip of the main window.

#include "frmMain.h"
#include "Functions.h"
#include "Mnemonics.h"
#include "StatusPanel.h"
#include "ui_frmMain.h"

namespace veskora {

namespace {

QString text(int slot, const char *standard)
{
    return qtText(Metafrasi(slot, standard));
}

/// A tool button's description is its tool tip; screen readers and "What's this?" get it too.
void describe(QAction *action, const QString &description)
{
    action->setText(description);
    action->setToolTip(description);
    action->setWhatsThis(description);
}

void describe(QWidget *widget, const QString &description)
{
    widget->setToolTip(description);
    widget->setWhatsThis(description);
    widget->setAccessibleDescription(description);
}

} // namespace

void frmMain::setCaptions()
{
    ui_->mnuARXEIO->setTitle(text(1, "File"));
    ui_->mnuNEOitem->setText(text(2, "New"));
    ui_->mnuANAGNOSIitem->setText(text(3, "Open"));
    ui_->mnuAPOTHIKEFSIitem->setText(text(4, "Save"));
    ui_->mnuAPOTHIKEFSIOSitem->setText(text(5, "Save As..."));
    ui_->mnuEXPORT->setTitle(text(6, "Export..."));
    ui_->mnuEIKONA_Clipboard_item->setText(text(7, "Picture to Clipboard as bitmap"));
    ui_->mnuEIKONA_arxeio_bmp_item->setText(text(8, "Picture as .bmp file"));
    ui_->mnuDRAWING_DXF_item->setText(text(9, "Drawing as DXF file"));
    ui_->mnuEKSODOSitem->setText(text(10, "Exit"));
    ui_->mnuFOREAS->setTitle(text(11, "Model"));
    ui_->mnuOMADESitem->setText(text(12, "E,A,I Element Groups"));
    ui_->mnuKOMBOIitem->setText(text(13, "Nodes"));
    ui_->mnuSTOIXEIAitem->setText(text(14, "Elements"));
    ui_->mnuSIGKENTROMENAitem->setText(text(15, "Nodal Loads"));
    ui_->mnuOMOIOMORFAitem->setText(text(16, "Elemental Loads"));
    ui_->mnuERGALEIA->setTitle(text(17, "Tools"));
    ui_->mnuMETAKINISIKOMBONitem->setText(text(18, "Move nodes"));
    ui_->mnuSIGXONEFSIitem->setText(text(19, "Merge nodes"));
    ui_->mnuDIAIRESIitem->setText(text(20, "Divide elements"));
    ui_->mnuKYKLIKOitem->setText(text(21, "Create arc"));
    ui_->mnuELEGXOSitem->setTitle(text(22, "Check"));
    ui_->mnuSIMP_KOMBitem->setText(text(23, "Coincident nodes"));
    ui_->mnuSIMP_STOIXitem->setText(text(24, "Coincident elements"));
    ui_->mnuEPILISIitem->setText(text(25, "Analyze"));
    ui_->mnuIPOLOGISTISitem->setText(text(26, "Calculator"));
    ui_->mnuSXEDIASI->setTitle(text(27, "View"));
    ui_->mnuFOREASitem->setText(text(11, "Model"));
    ui_->mnuDIAG_Mitem->setText(text(28, "[M] Diagram"));
    ui_->mnuDIAG_Qitem->setText(text(29, "[Q] Diagram"));
    ui_->mnuDIAG_Nitem->setText(text(30, "[N] Diagram"));
    ui_->mnuDEFORMitem->setText(text(31, "Deformation"));
    ui_->mnuRITHMISEISitem->setText(text(32, "View options"));
    ui_->mnuBOITHIA->setTitle(text(33, "Help"));
    ui_->mnuCONTENTSitem->setText(text(34, "Contents"));
    ui_->mnuVeskoraWEBitem->setText(text(35, "Kalvorn Veskora ML on the web"));
    ui_->mnuPERIitem->setText(text(36, "About Kalvorn Veskora ML"));

    const auto entry = [this](const char *name) { return findChild<QAction *>(name); };
    entry("mnuEKSODOS2item")->setText(text(10, "Exit"));
    entry("mnuPANitem")->setText(text(37, "Move"));
    entry("mnuZOOMitem")->setText(text(38, "Zoom"));
    entry("mnuWINDOWitem")->setText(text(39, "Zoom Window"));
    entry("mnuPREVIOUSitem")->setText(text(40, "Zoom Previous"));
    entry("mnuEXTENDSitem")->setText(text(41, "Zoom Extends"));
    entry("mnuArithmisi_kombon_item")->setText(text(42, "Nodes numbering"));
    entry("mnuSintet_kombon_item")->setText(text(43, "Node coordinates"));
    entry("mnuArithmisi_Stoixeion_item")->setText(text(44, "Elements numbering"));
    entry("mnuOmades1_item")->setText(text(45, "Element groups"));
    entry("mnuMiki_item")->setText(text(46, "Element lengths"));
    entry("mnuTimes_Sig_item")->setText(text(47, "Nodal load values"));
    entry("mnuTimes_Om_item")->setText(text(48, "Elemental load values"));
    entry("mnuTimes_M_item")->setText(text(49, "[M] values"));
    entry("mnuTimes_Q_item")->setText(text(50, "[Q] values"));
    entry("mnuTimes_N_item")->setText(text(51, "[N] values"));
    entry("mnuOles_item")->setText(text(52, "All labels"));
    entry("mnuBasikes_item")->setText(text(53, "Basic labels"));
    entry("mnuKamia_item")->setText(text(54, "No labels"));

    describe(ui_->New, text(55, "New file"));
    describe(ui_->Open, text(56, "Open file"));
    describe(ui_->Save, text(57, "Save file"));
    describe(ui_->Xeraki, text(58, "Move drawing"));
    describe(ui_->Zoom, text(38, "Zoom"));
    describe(ui_->Zoom_Window, text(39, "Zoom Window"));
    describe(ui_->Zoom_Previous, text(40, "Zoom Previous"));
    describe(ui_->ZoomBestFit, text(59, "Zoom Extents"));
    describe(ui_->EAI, text(12, "E,A,I Element Groups"));
    describe(ui_->Komboi, text(13, "Nodes"));
    describe(ui_->Stoixeia, text(14, "Elements"));
    describe(ui_->Epikombia, text(15, "Nodal Loads"));
    describe(ui_->Omoiomorfa, text(16, "Elemental Loads"));
    describe(ui_->Foreas, text(60, "Draw model"));
    describe(ui_->M, text(61, "Draw [M] Diagram"));
    describe(ui_->Q, text(62, "Draw [Q] Diagram"));
    describe(ui_->N, text(63, "Draw [N] Diagram"));
    describe(ui_->Deform, text(64, "Draw deformed model"));
    describe(ui_->Rithmiseis, text(32, "View options"));
    describe(ui_->Epilisi, text(25, "Analyze"));
    describe(ui_->Apotelesmata, text(65, "Data - Results"));

    sint_->setText(text(68, "COORDS"));
    describe(sint_, text(69, "Coordinates on/off"));
    aksones_->setText(text(70, "AXES"));
    describe(aksones_, text(71, "Axes on/off"));
    kannabos_->setText(text(72, "GRID"));
    describe(kannabos_, text(73, "Grid on/off"));
    times_->setText(text(74, "LABELS"));
    describe(times_, text(75, "Labels on/off"));
    describe(ui_->SSCommand32, text(80, "Show/Hide Information text"));
    for (StatusPanel *panel : {sint_, aksones_, kannabos_, times_}) {
        constexpr int padding = 20; // the style's own least width is made for dialogs
        panel->setFixedWidth(panel->fontMetrics().horizontalAdvance(panel->text()) + padding);
    }
    assignMenuMnemonics();
}

void frmMain::assignMenuMnemonics()
{
    assignMnemonics(ui_->menubar->actions());
    for (const QMenu *menu : findChildren<QMenu *>())
        assignMnemonics(menu->actions());
}

void frmMain::showMode(int mode)
{
    const auto name = [mode] {
        switch (mode) {
        case 1:
            return Metafrasi(76, "Bending moment Diagram [M]");
        case 2:
            return Metafrasi(77, "Shear force Diagram [Q]");
        case 3:
            return Metafrasi(78, "Axial force Diagram [N]");
        case 4:
            return Metafrasi(79, "Deformed model");
        default:
            return Metafrasi(11, "Model");
        }
    };
    panel7_->setText(" " + qtText(name()));
    Command1_->setVisible(mode != 0);
    Command2_->setVisible(mode != 0);
}

} // namespace veskora
