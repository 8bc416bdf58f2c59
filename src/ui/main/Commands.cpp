// Every command of the main window.

#include "AnalysisCommands.h"
#include "Command.h"
#include "FileCommands.h"
#include "frmMain.h"
#include "Hand.h"
#include "Metablites.h"
#include "OutsidePrograms.h"
#include "PictureCommands.h"
#include "Settings.h"
#include "UndoCommands.h"
#include "WindowCommands.h"

namespace veskora {

namespace {

template <typename Room>
void invoke(Rooms &rooms, void (Room::*routine)(), int)
{
    (std::get<Room &>(rooms).*routine)();
}

template <typename Room>
void invoke(Rooms &rooms, void (Room::*routine)(int), int row)
{
    (std::get<Room &>(rooms).*routine)(row);
}

void invoke(Rooms &, void (*routine)(), int)
{
    routine();
}

/// A row's routine: a member of one of the rooms, or a function by itself.
template <auto routine>
void call(Rooms &rooms, int row)
{
    invoke(rooms, routine, row);
}

/// A tool's entry in the pop-up of the tools: the tool that is on stays on.
template <bool (Hand::*isOn)() const, void (Hand::*toggle)()>
void take(Rooms &rooms, int)
{
    auto &hand = std::get<Hand &>(rooms);
    if (!(hand.*isOn)())
        (hand.*toggle)();
}

using Files = FileCommands;
using Picture = PictureCommands;
using Windows = WindowCommands;

/// Tool buttons unmark what lies under the pointer; those that open a dialog put the tools away
/// too.
constexpr Command button(const char *name, Phrase tip, void (*run)(Rooms &, int),
                         Clears clears = Clears::highlights)
{
    return {"Toolbar2", name, tip, run, name, nullptr, clears};
}

constexpr Command label(const char *name, Phrase caption, bool *setting)
{
    return {"mnu_Aorato_Times", name, caption, nullptr, nullptr, nullptr, Clears::nothing, setting};
}

/// Of the pop-up about what lies under the pointer.
constexpr Command entry(const char *name, Phrase caption, void (*run)(Rooms &, int), About about)
{
    return {"mnuAorato", name, caption, run, nullptr, nullptr, Clears::nothing, nullptr, about};
}

constexpr auto tools = Clears::tools;

// clang-format off
const Command table[] = {
    {"menubar", "mnuARXEIO", Phrase{1, "File"}},
    {"mnuARXEIO", "mnuNEOitem", Phrase{2, "New"}, call<&Files::Button_Neo_arxeio>, "New", "Ctrl+N"},
    {"mnuARXEIO", "mnuANAGNOSIitem", Phrase{3, "Open"}, call<&Files::Button_Anagnosi_Arxeiou>, "Open", "Ctrl+O"},
    {"mnuARXEIO", "mnuAPOTHIKEFSIitem", Phrase{4, "Save"}, call<&Files::Button_Apothikefsi_Arxeiou>, "Save", "Ctrl+S"},
    {"mnuARXEIO", "mnuAPOTHIKEFSIOSitem", Phrase{5, "Save As..."}, call<&Files::saveAs>, nullptr, "Ctrl+Shift+S"},
    {"mnuARXEIO", "mnuSSS1"},
    {"mnuARXEIO", "mnuEXPORT", Phrase{6, "Export..."}},
    {"mnuEXPORT", "mnuEIKONA_Clipboard_item", Phrase{7, "Picture to Clipboard as bitmap"}, call<&Picture::copyPicture>, nullptr, "Ctrl+Shift+C"},
    {"mnuEXPORT", "mnuEIKONA_arxeio_bmp_item", Phrase{8, "Picture as .bmp file"}, call<&Picture::savePicture>},
    {"mnuEXPORT", "mnuDRAWING_DXF_item", Phrase{9, "Drawing as DXF file"}},
    {"mnuARXEIO", "mnusss1NEO"},
    {"mnuARXEIO", "mnuEKSODOSitem", Phrase{10, "Exit"}, call<&frmMain::exit>, nullptr, "Ctrl+Q"},

    {"menubar", "mnuEPEKSERGASIA", Phrase{1819, "Edit"}},
    {"mnuEPEKSERGASIA", "mnuUNDOitem", Phrase{1820, "Undo"}, call<&UndoCommands::undo>, nullptr, "Ctrl+Z"},
    {"mnuEPEKSERGASIA", "mnuREDOitem", Phrase{1821, "Redo"}, call<&UndoCommands::redo>, nullptr, "Ctrl+Shift+Z; Ctrl+Y"},

    {"menubar", "mnuFOREAS", Phrase{11, "Model"}},
    {"mnuFOREAS", "mnuOMADESitem", Phrase{12, "E,A,I Element Groups"}, call<&Windows::Button_EAI>, "EAI"},
    {"mnuFOREAS", "mnuKOMBOIitem", Phrase{13, "Nodes"}, call<&Windows::Button_Komboi>, "Komboi"},
    {"mnuFOREAS", "mnuSTOIXEIAitem", Phrase{14, "Elements"}, call<&Windows::Button_Stoixeia>, "Stoixeia"},
    {"mnuFOREAS", "mnusss2b"},
    {"mnuFOREAS", "mnuSIGKENTROMENAitem", Phrase{15, "Nodal Loads"}, call<&Windows::Button_Epikombia>, "Epikombia"},
    {"mnuFOREAS", "mnuOMOIOMORFAitem", Phrase{16, "Elemental Loads"}, call<&Windows::Button_Omoiomorfa>, "Omoiomorfa"},

    {"menubar", "mnuERGALEIA", Phrase{17, "Tools"}},
    {"mnuERGALEIA", "mnuMETAKINISIKOMBONitem", Phrase{18, "Move nodes"}, call<&Windows::moveNodes>},
    {"mnuERGALEIA", "mnuSIGXONEFSIitem", Phrase{19, "Merge nodes"}, call<&Windows::mergeNodes>},
    {"mnuERGALEIA", "mnuSSS13"},
    {"mnuERGALEIA", "mnuDIAIRESIitem", Phrase{20, "Divide elements"}, call<&Windows::divideElements>},
    {"mnuERGALEIA", "mnuKYKLIKOitem", Phrase{21, "Create arc"}, call<&Windows::createArc>},
    {"mnuERGALEIA", "mnuSSS14"},
    {"mnuERGALEIA", "mnuELEGXOSitem", Phrase{22, "Check"}},
    {"mnuELEGXOSitem", "mnuSIMP_KOMBitem", Phrase{23, "Coincident nodes"}, call<&Windows::checkNodes>},
    {"mnuELEGXOSitem", "mnuSIMP_STOIXitem", Phrase{24, "Coincident elements"}, call<&Windows::checkElements>},
    {"mnuERGALEIA", "mnusss3"},
    {"mnuERGALEIA", "mnuEPILISIitem", Phrase{25, "Analyze"}, call<&Button_Epilisi>, "Epilisi", "F5"},
    {"mnuERGALEIA", "mnusss24"},
    {"mnuERGALEIA", "mnuIPOLOGISTISitem", Phrase{26, "Calculator"}, call<&startCalculator>},

    {"menubar", "mnuSXEDIASI", Phrase{27, "View"}},
    {"mnuSXEDIASI", "mnuFOREASitem", Phrase{11, "Model"}, call<&Picture::Button_Foreas>, "Foreas"},
    {"mnuSXEDIASI", "mnuDIAG_Mitem", Phrase{28, "[M] Diagram"}, call<&Picture::Button_M>, "M"},
    {"mnuSXEDIASI", "mnuDIAG_Qitem", Phrase{29, "[Q] Diagram"}, call<&Picture::Button_Q>, "Q"},
    {"mnuSXEDIASI", "mnuDIAG_Nitem", Phrase{30, "[N] Diagram"}, call<&Picture::Button_N>, "N"},
    {"mnuSXEDIASI", "mnuDEFORMitem", Phrase{31, "Deformation"}, call<&Picture::Button_Deform>, "Deform"},
    {"mnuSXEDIASI", "mnusss5"},
    {"mnuSXEDIASI", "mnuRITHMISEISitem", Phrase{32, "View options"}, call<&Windows::Button_Rithmiseis>, "Rithmiseis", "F8"},

    {"menubar", "mnuBOITHIA", Phrase{33, "Help"}},
    {"mnuBOITHIA", "mnuCONTENTSitem", Phrase{34, "Contents"}, call<&frmMain::showHelp>},
    {"mnuBOITHIA", "mnuVeskoraWEBitem", Phrase{35, "Kalvorn Veskora ML on the web"}, call<&openWebPage>},
    {"mnuBOITHIA", "mnusss6"},
    {"mnuBOITHIA", "mnuPERIitem", Phrase{36, "About Kalvorn Veskora ML"}, call<&Windows::showAbout>},

    button("New", Phrase{55, "New file"}, call<&Files::Button_Neo_arxeio>),
    button("Open", Phrase{56, "Open file"}, call<&Files::Button_Anagnosi_Arxeiou>),
    button("Save", Phrase{57, "Save file"}, call<&Files::Button_Apothikefsi_Arxeiou>),
    {"Toolbar2", "ToolbarSeparator4"},
    button("Xeraki", Phrase{58, "Move drawing"}, call<&Hand::Button_Xeraki>),
    button("Zoom", Phrase{38, "Zoom"}, call<&Hand::Button_Zoom>),
    button("Zoom_Window", Phrase{39, "Zoom Window"}, call<&Hand::Button_Zoom_Window>),
    button("Zoom_Previous", Phrase{40, "Zoom Previous"}, call<&Picture::Button_Zoom_Previous>),
    button("ZoomBestFit", Phrase{59, "Zoom Extents"}, call<&Picture::Button_Zoom_Best_Fit>),
    {"Toolbar2", "ToolbarSeparator10"},
    button("EAI", Phrase{12, "E,A,I Element Groups"}, call<&Windows::Button_EAI>, tools),
    button("Komboi", Phrase{13, "Nodes"}, call<&Windows::Button_Komboi>, tools),
    button("Stoixeia", Phrase{14, "Elements"}, call<&Windows::Button_Stoixeia>, tools),
    {"Toolbar2", "ToolbarSeparator14"},
    button("Epikombia", Phrase{15, "Nodal Loads"}, call<&Windows::Button_Epikombia>, tools),
    button("Omoiomorfa", Phrase{16, "Elemental Loads"}, call<&Windows::Button_Omoiomorfa>, tools),
    {"Toolbar2", "ToolbarSeparator17"},
    button("Foreas", Phrase{60, "Draw model"}, call<&Picture::Button_Foreas>),
    button("M", Phrase{61, "Draw [M] Diagram"}, call<&Picture::Button_M>),
    button("Q", Phrase{62, "Draw [Q] Diagram"}, call<&Picture::Button_Q>),
    button("N", Phrase{63, "Draw [N] Diagram"}, call<&Picture::Button_N>),
    button("Deform", Phrase{64, "Draw deformed model"}, call<&Picture::Button_Deform>),
    {"Toolbar2", "ToolbarSeparator23"},
    button("Rithmiseis", Phrase{32, "View options"}, call<&Windows::Button_Rithmiseis>),
    {"Toolbar2", "ToolbarSeparator25"},
    button("Epilisi", Phrase{25, "Analyze"}, call<&Button_Epilisi>),
    {"Toolbar2", "ToolbarSeparator27"},
    button("Apotelesmata", Phrase{65, "Data - Results"}, call<&Windows::Button_Apotelesmata>),

    {"mnuZoomakia", "mnuEKSODOS2item", Phrase{10, "Exit"}, call<&Hand::Reset_Pointer>},
    {"mnuZoomakia", "mnusss10"},
    {"mnuZoomakia", "mnuPANitem", Phrase{37, "Move"}, take<&Hand::Xeraki_Energo, &Hand::Button_Xeraki>},
    {"mnuZoomakia", "mnuZOOMitem", Phrase{38, "Zoom"}, take<&Hand::Zoom_Energo, &Hand::Button_Zoom>},
    {"mnuZoomakia", "mnuWINDOWitem", Phrase{39, "Zoom Window"}, take<&Hand::Zoom_Window_Energo, &Hand::Button_Zoom_Window>},
    {"mnuZoomakia", "mnusss11"},
    {"mnuZoomakia", "mnuPREVIOUSitem", Phrase{40, "Zoom Previous"}, call<&Picture::Button_Zoom_Previous>},
    {"mnuZoomakia", "mnuEXTENDSitem", Phrase{41, "Zoom Extends"}, call<&Picture::Button_Zoom_Best_Fit>},

    entry("mnu1item", Phrase{137, "Node #"}, call<&Windows::openNode>, About::node),
    entry("mnu3item", Phrase{132, "Loads on node #"}, call<&Windows::openNodeLoads>, About::node),
    {"mnuAorato", "mnusss77"},
    entry("mnu2item", Phrase{133, "Element #"}, call<&Windows::openElement>, About::element),
    entry("mnu4item", Phrase{134, "Loads on element #"}, call<&Windows::openElementLoads>, About::element),

    label("mnuArithmisi_kombon_item", Phrase{42, "Nodes numbering"}, &nai_arithmisi_kombon),
    label("mnuSintet_kombon_item", Phrase{43, "Node coordinates"}, &nai_sint_kombon),
    {"mnu_Aorato_Times", "mnusss12"},
    label("mnuArithmisi_Stoixeion_item", Phrase{44, "Elements numbering"}, &nai_arithmisi_stoixeion),
    label("mnuOmades1_item", Phrase{45, "Element groups"}, &nai_omades),
    label("mnuMiki_item", Phrase{46, "Element lengths"}, &nai_miki),
    {"mnu_Aorato_Times", "mnusss7"},
    label("mnuTimes_Sig_item", Phrase{47, "Nodal load values"}, &nai_times_fortiseon_si),
    label("mnuTimes_Om_item", Phrase{48, "Elemental load values"}, &nai_times_fortiseon_om),
    {"mnu_Aorato_Times", "mnusss8"},
    label("mnuTimes_M_item", Phrase{49, "[M] values"}, &nai_times_M),
    label("mnuTimes_Q_item", Phrase{50, "[Q] values"}, &nai_times_Q),
    label("mnuTimes_N_item", Phrase{51, "[N] values"}, &nai_times_N),
    {"mnu_Aorato_Times", "mnusss9"},
    {"mnu_Aorato_Times", "mnuOles_item", Phrase{52, "All labels"}, call<&Picture::showAllLabels>},
    {"mnu_Aorato_Times", "mnuBasikes_item", Phrase{53, "Basic labels"}, call<&Picture::showBasicLabels>},
    {"mnu_Aorato_Times", "mnuKamia_item", Phrase{54, "No labels"}, call<&Picture::showNoLabels>},
};
// clang-format on

} // namespace

std::span<const Command> commands()
{
    return table;
}

} // namespace veskora
