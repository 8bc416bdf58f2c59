// Every caption and tool tip of the main window.

#include "frmMain.h"
#include "Functions.h"
#include "Mnemonics.h"
#include "StatusPanel.h"
#include "ui_frmMain.h"

namespace veskora {

namespace {

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
    toolkitTexts_.takeLanguage();
    ui_->mnuARXEIO->setTitle(qtText(Metafrasi(1, "File")));
    ui_->mnuNEOitem->setText(qtText(Metafrasi(2, "New")));
    ui_->mnuANAGNOSIitem->setText(qtText(Metafrasi(3, "Open")));
    ui_->mnuAPOTHIKEFSIitem->setText(qtText(Metafrasi(4, "Save")));
    ui_->mnuAPOTHIKEFSIOSitem->setText(qtText(Metafrasi(5, "Save As...")));
    ui_->mnuEXPORT->setTitle(qtText(Metafrasi(6, "Export...")));
    ui_->mnuEIKONA_Clipboard_item->setText(qtText(Metafrasi(7, "Picture to Clipboard as bitmap")));
    ui_->mnuEIKONA_arxeio_bmp_item->setText(qtText(Metafrasi(8, "Picture as .bmp file")));
    ui_->mnuDRAWING_DXF_item->setText(qtText(Metafrasi(9, "Drawing as DXF file")));
    ui_->mnuEKSODOSitem->setText(qtText(Metafrasi(10, "Exit")));
    ui_->mnuFOREAS->setTitle(qtText(Metafrasi(11, "Model")));
    ui_->mnuOMADESitem->setText(qtText(Metafrasi(12, "E,A,I Element Groups")));
    ui_->mnuKOMBOIitem->setText(qtText(Metafrasi(13, "Nodes")));
    ui_->mnuSTOIXEIAitem->setText(qtText(Metafrasi(14, "Elements")));
    ui_->mnuSIGKENTROMENAitem->setText(qtText(Metafrasi(15, "Nodal Loads")));
    ui_->mnuOMOIOMORFAitem->setText(qtText(Metafrasi(16, "Elemental Loads")));
    ui_->mnuERGALEIA->setTitle(qtText(Metafrasi(17, "Tools")));
    ui_->mnuMETAKINISIKOMBONitem->setText(qtText(Metafrasi(18, "Move nodes")));
    ui_->mnuSIGXONEFSIitem->setText(qtText(Metafrasi(19, "Merge nodes")));
    ui_->mnuDIAIRESIitem->setText(qtText(Metafrasi(20, "Divide elements")));
    ui_->mnuKYKLIKOitem->setText(qtText(Metafrasi(21, "Create arc")));
    ui_->mnuELEGXOSitem->setTitle(qtText(Metafrasi(22, "Check")));
    ui_->mnuSIMP_KOMBitem->setText(qtText(Metafrasi(23, "Coincident nodes")));
    ui_->mnuSIMP_STOIXitem->setText(qtText(Metafrasi(24, "Coincident elements")));
    ui_->mnuEPILISIitem->setText(qtText(Metafrasi(25, "Analyze")));
    ui_->mnuIPOLOGISTISitem->setText(qtText(Metafrasi(26, "Calculator")));
    ui_->mnuSXEDIASI->setTitle(qtText(Metafrasi(27, "View")));
    ui_->mnuFOREASitem->setText(qtText(Metafrasi(11, "Model")));
    ui_->mnuDIAG_Mitem->setText(qtText(Metafrasi(28, "[M] Diagram")));
    ui_->mnuDIAG_Qitem->setText(qtText(Metafrasi(29, "[Q] Diagram")));
    ui_->mnuDIAG_Nitem->setText(qtText(Metafrasi(30, "[N] Diagram")));
    ui_->mnuDEFORMitem->setText(qtText(Metafrasi(31, "Deformation")));
    ui_->mnuRITHMISEISitem->setText(qtText(Metafrasi(32, "View options")));
    ui_->mnuBOITHIA->setTitle(qtText(Metafrasi(33, "Help")));
    ui_->mnuCONTENTSitem->setText(qtText(Metafrasi(34, "Contents")));
    ui_->mnuVeskoraWEBitem->setText(qtText(Metafrasi(35, "Kalvorn Veskora ML on the web")));
    ui_->mnuPERIitem->setText(qtText(Metafrasi(36, "About Kalvorn Veskora ML")));

    const auto entry = [this](const char *name) { return findChild<QAction *>(name); };
    entry("mnuEKSODOS2item")->setText(qtText(Metafrasi(10, "Exit")));
    entry("mnuPANitem")->setText(qtText(Metafrasi(37, "Move")));
    entry("mnuZOOMitem")->setText(qtText(Metafrasi(38, "Zoom")));
    entry("mnuWINDOWitem")->setText(qtText(Metafrasi(39, "Zoom Window")));
    entry("mnuPREVIOUSitem")->setText(qtText(Metafrasi(40, "Zoom Previous")));
    entry("mnuEXTENDSitem")->setText(qtText(Metafrasi(41, "Zoom Extends")));
    entry("mnuArithmisi_kombon_item")->setText(qtText(Metafrasi(42, "Nodes numbering")));
    entry("mnuSintet_kombon_item")->setText(qtText(Metafrasi(43, "Node coordinates")));
    entry("mnuArithmisi_Stoixeion_item")->setText(qtText(Metafrasi(44, "Elements numbering")));
    entry("mnuOmades1_item")->setText(qtText(Metafrasi(45, "Element groups")));
    entry("mnuMiki_item")->setText(qtText(Metafrasi(46, "Element lengths")));
    entry("mnuTimes_Sig_item")->setText(qtText(Metafrasi(47, "Nodal load values")));
    entry("mnuTimes_Om_item")->setText(qtText(Metafrasi(48, "Elemental load values")));
    entry("mnuTimes_M_item")->setText(qtText(Metafrasi(49, "[M] values")));
    entry("mnuTimes_Q_item")->setText(qtText(Metafrasi(50, "[Q] values")));
    entry("mnuTimes_N_item")->setText(qtText(Metafrasi(51, "[N] values")));
    entry("mnuOles_item")->setText(qtText(Metafrasi(52, "All labels")));
    entry("mnuBasikes_item")->setText(qtText(Metafrasi(53, "Basic labels")));
    entry("mnuKamia_item")->setText(qtText(Metafrasi(54, "No labels")));

    describe(ui_->New, qtText(Metafrasi(55, "New file")));
    describe(ui_->Open, qtText(Metafrasi(56, "Open file")));
    describe(ui_->Save, qtText(Metafrasi(57, "Save file")));
    describe(ui_->Xeraki, qtText(Metafrasi(58, "Move drawing")));
    describe(ui_->Zoom, qtText(Metafrasi(38, "Zoom")));
    describe(ui_->Zoom_Window, qtText(Metafrasi(39, "Zoom Window")));
    describe(ui_->Zoom_Previous, qtText(Metafrasi(40, "Zoom Previous")));
    describe(ui_->ZoomBestFit, qtText(Metafrasi(59, "Zoom Extents")));
    describe(ui_->EAI, qtText(Metafrasi(12, "E,A,I Element Groups")));
    describe(ui_->Komboi, qtText(Metafrasi(13, "Nodes")));
    describe(ui_->Stoixeia, qtText(Metafrasi(14, "Elements")));
    describe(ui_->Epikombia, qtText(Metafrasi(15, "Nodal Loads")));
    describe(ui_->Omoiomorfa, qtText(Metafrasi(16, "Elemental Loads")));
    describe(ui_->Foreas, qtText(Metafrasi(60, "Draw model")));
    describe(ui_->M, qtText(Metafrasi(61, "Draw [M] Diagram")));
    describe(ui_->Q, qtText(Metafrasi(62, "Draw [Q] Diagram")));
    describe(ui_->N, qtText(Metafrasi(63, "Draw [N] Diagram")));
    describe(ui_->Deform, qtText(Metafrasi(64, "Draw deformed model")));
    describe(ui_->Rithmiseis, qtText(Metafrasi(32, "View options")));
    describe(ui_->Epilisi, qtText(Metafrasi(25, "Analyze")));
    describe(ui_->Apotelesmata, qtText(Metafrasi(65, "Data - Results")));

    sint_->setText(qtText(Metafrasi(68, "COORDS")));
    describe(sint_, qtText(Metafrasi(69, "Coordinates on/off")));
    aksones_->setText(qtText(Metafrasi(70, "AXES")));
    describe(aksones_, qtText(Metafrasi(71, "Axes on/off")));
    kannabos_->setText(qtText(Metafrasi(72, "GRID")));
    describe(kannabos_, qtText(Metafrasi(73, "Grid on/off")));
    times_->setText(qtText(Metafrasi(74, "LABELS")));
    describe(times_, qtText(Metafrasi(75, "Labels on/off")));
    describe(ui_->SSCommand32, qtText(Metafrasi(80, "Show/Hide Information text")));
    ui_->SSCommand32->setAccessibleName(ui_->SSCommand32->toolTip());
    ui_->Toolbar2->setAccessibleName(qtText(Metafrasi(1758, "Toolbar")));
    ui_->Picture1->setAccessibleName(qtText(Metafrasi(1753, "Drawing")));
    ui_->RichTextBox1->setAccessibleName(qtText(Metafrasi(1754, "Messages")));
    Command1_->setAccessibleName(qtText(Metafrasi(1755, "Enlarge the diagram")));
    Command2_->setAccessibleName(qtText(Metafrasi(1756, "Reduce the diagram")));
    for (StatusPanel *panel : {sint_, aksones_, kannabos_, times_}) {
        constexpr int padding = 12; // the style's own least width is made for dialogs
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
