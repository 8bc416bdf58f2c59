// Every command of the main window.

#include "Commands.h"

#include "AnalysisCommands.h"
#include "FileCommands.h"
#include "frmMain.h"
#include "Hand.h"
#include "Metablites.h"
#include "OutsidePrograms.h"
#include "PictureCommands.h"
#include "RowCommands.h"
#include "RowQueries.h"
#include "Settings.h"
#include "UndoCommands.h"
#include "WindowCommands.h"

#include <algorithm>
#include <array>
#include <string_view>

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
template <typename T>
void take(Rooms &rooms, int)
{
    if (auto &hand = std::get<Hand &>(rooms); !hand.isTaken<T>())
        hand.toggle<T>();
}

/// Tool buttons unmark what lies under the pointer; those that open a dialog put the tools away
/// too.
constexpr Command button(const char *name, Phrase tip, void (*run)(Rooms &, int),
                         Clears clears = Clears::highlights)
{
    return {commandPlace::toolbar, name, tip, run, name, nullptr, clears};
}

constexpr Command label(const char *name, Phrase caption, bool *setting)
{
    return {commandPlace::labelMenu, name,   caption, nullptr, nullptr, nullptr,
            Clears::nothing,         setting};
}

int itself(int row)
{
    return row;
}

/// Of the pop-up about what lies under the pointer.
constexpr Command entry(const char *name, Phrase caption, void (*run)(Rooms &, int), About about,
                        int (*numbered)(int) = nullptr)
{
    return {commandPlace::rowMenu, name,    caption, run,     nullptr, nullptr,
            Clears::nothing,       nullptr, about,   numbered};
}

constexpr auto tools = Clears::tools;

// clang-format off
constexpr Command toolbar[] = {
    button("New", Phrase{55, "New file"}, call<&FileCommands::Button_Neo_arxeio>),
    button("Open", Phrase{56, "Open file"}, call<&FileCommands::Button_Anagnosi_Arxeiou>),
    button("Save", Phrase{57, "Save file"}, call<&FileCommands::Button_Apothikefsi_Arxeiou>),
    {commandPlace::toolbar, "ToolbarSeparator4"},
    button("Xeraki", Phrase{58, "Move drawing"}, call<&Hand::Button_Xeraki>),
    button("Zoom", Phrase{38, "Zoom"}, call<&Hand::Button_Zoom>),
    button("Zoom_Window", Phrase{39, "Zoom Window"}, call<&Hand::Button_Zoom_Window>),
    button("Zoom_Previous", Phrase{40, "Zoom Previous"}, call<&PictureCommands::Button_Zoom_Previous>),
    button("ZoomBestFit", Phrase{59, "Zoom Extents"}, call<&PictureCommands::Button_Zoom_Best_Fit>),
    {commandPlace::toolbar, "ToolbarSeparator10"},
    button("EAI", Phrase{12, "E,A,I Element Groups"}, call<&WindowCommands::Button_EAI>, tools),
    button("Komboi", Phrase{13, "Nodes"}, call<&WindowCommands::Button_Komboi>, tools),
    button("Stoixeia", Phrase{14, "Elements"}, call<&WindowCommands::Button_Stoixeia>, tools),
    {commandPlace::toolbar, "ToolbarSeparator14"},
    button("Epikombia", Phrase{15, "Nodal Loads"}, call<&WindowCommands::Button_Epikombia>, tools),
    button("Omoiomorfa", Phrase{16, "Elemental Loads"}, call<&WindowCommands::Button_Omoiomorfa>, tools),
    {commandPlace::toolbar, "ToolbarSeparator17"},
    button("Foreas", Phrase{60, "Draw model"}, call<&PictureCommands::Button_Foreas>),
    button("M", Phrase{61, "Draw [M] Diagram"}, call<&PictureCommands::Button_M>),
    button("Q", Phrase{62, "Draw [Q] Diagram"}, call<&PictureCommands::Button_Q>),
    button("N", Phrase{63, "Draw [N] Diagram"}, call<&PictureCommands::Button_N>),
    button("Deform", Phrase{64, "Draw deformed model"}, call<&PictureCommands::Button_Deform>),
    {commandPlace::toolbar, "ToolbarSeparator23"},
    button("Rithmiseis", Phrase{32, "View options"}, call<&WindowCommands::Button_Rithmiseis>),
    {commandPlace::toolbar, "ToolbarSeparator25"},
    button("Epilisi", Phrase{25, "Analyze"}, call<&Button_Epilisi>),
    {commandPlace::toolbar, "ToolbarSeparator27"},
    button("Apotelesmata", Phrase{65, "Data - Results"}, call<&WindowCommands::Button_Apotelesmata>),
};

/// An entry that does what the tool button @p button does, and bears its icon.
constexpr Command same(const char *button, const char *menu, const char *name, Phrase caption, const char *keys = nullptr)
{
    for (const Command &command : toolbar)
        if (std::string_view(command.name) == button)
            return {menu, name, caption, command.run, command.icon, keys};
    throw "no such button";
}

constexpr Command menus[] = {
    {"menubar", "mnuARXEIO", Phrase{1, "File"}},
    same("New", "mnuARXEIO", "mnuNEOitem", Phrase{2, "New"}, "Ctrl+N"),
    same("Open", "mnuARXEIO", "mnuANAGNOSIitem", Phrase{3, "Open"}, "Ctrl+O"),
    {"mnuARXEIO", commandPlace::recentMenu, Phrase{1852, "Open recent"}},
    {commandPlace::recentMenu, "mnuRECENT_none_item", Phrase{1849, "No file has been opened or saved yet."}, call<&FileCommands::sayNoneRecent>},
    same("Save", "mnuARXEIO", commandPlace::save, Phrase{4, "Save"}, "Ctrl+S"),
    {"mnuARXEIO", "mnuAPOTHIKEFSIOSitem", Phrase{5, "Save As..."}, call<&FileCommands::saveAs>, nullptr, "Ctrl+Shift+S"},
    {"mnuARXEIO", "mnuSSS1"},
    {"mnuARXEIO", "mnuEXPORT", Phrase{6, "Export..."}},
    {"mnuEXPORT", "mnuEIKONA_Clipboard_item", Phrase{7, "Picture to Clipboard as bitmap"}, call<&PictureCommands::copyPicture>, nullptr, "Ctrl+Shift+C"},
    {"mnuEXPORT", "mnuEIKONA_arxeio_bmp_item", Phrase{8, "Picture as .bmp file"}, call<&PictureCommands::savePicture>},
    {"mnuEXPORT", "mnuDRAWING_DXF_item", Phrase{9, "Drawing as DXF file"}},
    {"mnuARXEIO", "mnusss1NEO"},
    {"mnuARXEIO", "mnuEKSODOSitem", Phrase{10, "Exit"}, call<&frmMain::exit>, nullptr, "Ctrl+Q"},

    {"menubar", commandPlace::editMenu, Phrase{1819, "Edit"}},
    {commandPlace::editMenu, commandPlace::undo, Phrase{1820, "Undo"}, call<&UndoCommands::undo>, nullptr, "Ctrl+Z"},
    {commandPlace::editMenu, commandPlace::redo, Phrase{1821, "Redo"}, call<&UndoCommands::redo>, nullptr, "Ctrl+Shift+Z; Ctrl+Y"},

    {"menubar", "mnuFOREAS", Phrase{11, "Model"}},
    same("EAI", "mnuFOREAS", "mnuOMADESitem", Phrase{12, "E,A,I Element Groups"}),
    same("Komboi", "mnuFOREAS", "mnuKOMBOIitem", Phrase{13, "Nodes"}),
    same("Stoixeia", "mnuFOREAS", "mnuSTOIXEIAitem", Phrase{14, "Elements"}),
    {"mnuFOREAS", "mnusss2b"},
    same("Epikombia", "mnuFOREAS", "mnuSIGKENTROMENAitem", Phrase{15, "Nodal Loads"}),
    same("Omoiomorfa", "mnuFOREAS", "mnuOMOIOMORFAitem", Phrase{16, "Elemental Loads"}),

    {"menubar", "mnuERGALEIA", Phrase{17, "Tools"}},
    {"mnuERGALEIA", "mnuMETAKINISIKOMBONitem", Phrase{18, "Move nodes"}, call<&WindowCommands::openMove>},
    {"mnuERGALEIA", "mnuSIGXONEFSIitem", Phrase{19, "Merge nodes"}, call<&WindowCommands::openMerge>},
    {"mnuERGALEIA", "mnuSSS13"},
    {"mnuERGALEIA", "mnuDIAIRESIitem", Phrase{20, "Divide elements"}, call<&WindowCommands::openDivide>},
    {"mnuERGALEIA", "mnuKYKLIKOitem", Phrase{21, "Create arc"}, call<&WindowCommands::openArc>},
    {"mnuERGALEIA", "mnuSSS14"},
    {"mnuERGALEIA", "mnuELEGXOSitem", Phrase{22, "Check"}},
    {"mnuELEGXOSitem", "mnuSIMP_KOMBitem", Phrase{23, "Coincident nodes"}, call<&WindowCommands::checkNodes>},
    {"mnuELEGXOSitem", "mnuSIMP_STOIXitem", Phrase{24, "Coincident elements"}, call<&WindowCommands::checkElements>},
    {"mnuERGALEIA", "mnusss3"},
    same("Epilisi", "mnuERGALEIA", commandPlace::analyze, Phrase{25, "Analyze"}, "F5"),
    {"mnuERGALEIA", "mnusss24"},
    {"mnuERGALEIA", "mnuIPOLOGISTISitem", Phrase{26, "Calculator"}, call<&startCalculator>},

    {"menubar", "mnuSXEDIASI", Phrase{27, "View"}},
    same("Foreas", "mnuSXEDIASI", "mnuFOREASitem", Phrase{11, "Model"}),
    same("M", "mnuSXEDIASI", "mnuDIAG_Mitem", Phrase{28, "[M] Diagram"}),
    same("Q", "mnuSXEDIASI", "mnuDIAG_Qitem", Phrase{29, "[Q] Diagram"}),
    same("N", "mnuSXEDIASI", "mnuDIAG_Nitem", Phrase{30, "[N] Diagram"}),
    same("Deform", "mnuSXEDIASI", "mnuDEFORMitem", Phrase{31, "Deformation"}),
    {"mnuSXEDIASI", "mnusss5"},
    same("Rithmiseis", "mnuSXEDIASI", "mnuRITHMISEISitem", Phrase{32, "View options"}, "F8"),

    {"menubar", commandPlace::reportMenu, Phrase{1617, "Report"}},
    {commandPlace::reportMenu, "mnuELEGXOS_ANALYSIS_item", Phrase{1618, "Check of the analysis"}, call<&WindowCommands::openCheck>, nullptr, "F7"},
    {commandPlace::reportMenu, "mnuTIMES_STOIXEIOU_item", Phrase{1853, "Values along an element"}, call<&WindowCommands::openValues>, nullptr, "Shift+F7"},
    {commandPlace::reportMenu, "mnuEIKONA_SVG_PDF_item", Phrase{1900, "Picture as SVG or PDF"}, call<&PictureCommands::saveVectorPicture>},
    {commandPlace::reportMenu, "mnuCALCULATION_item", Phrase{1920, "Calculation report as PDF"}, call<&WindowCommands::openCalculation>, nullptr, "Ctrl+Shift+P"},
    {commandPlace::reportMenu, "mnuVIMATA_ANALYSIS_item", Phrase{1971, "Steps of the analysis"}, call<&WindowCommands::openSteps>, nullptr, "Ctrl+F7"},

    {"menubar", "mnuBOITHIA", Phrase{33, "Help"}},
    {"mnuBOITHIA", "mnuCONTENTSitem", Phrase{34, "Contents"}, call<&frmMain::showHelp>},
    {"mnuBOITHIA", "mnuVeskoraWEBitem", Phrase{35, "Kalvorn Veskora ML on the web"}, call<&openWebPage>},
    {"mnuBOITHIA", "mnusss6"},
    {"mnuBOITHIA", "mnuPERIitem", Phrase{36, "About Kalvorn Veskora ML"}, call<&WindowCommands::showAbout>},

    {commandPlace::toolMenu, "mnuEKSODOS2item", Phrase{10, "Exit"}, call<&Hand::Reset_Pointer>, nullptr, "Esc"},
    {commandPlace::toolMenu, "mnusss10"},
    {commandPlace::toolMenu, "mnuPANitem", Phrase{37, "Move"}, take<PanTool>},
    {commandPlace::toolMenu, "mnuZOOMitem", Phrase{38, "Zoom"}, take<ZoomTool>},
    {commandPlace::toolMenu, "mnuWINDOWitem", Phrase{39, "Zoom Window"}, take<ZoomWindowTool>},
    {commandPlace::toolMenu, "mnusss11"},
    {commandPlace::toolMenu, "mnuPREVIOUSitem", Phrase{40, "Zoom Previous"}, call<&PictureCommands::Button_Zoom_Previous>, nullptr, "Alt+Left"},
    {commandPlace::toolMenu, "mnuEXTENDSitem", Phrase{41, "Zoom Extends"}, call<&PictureCommands::Button_Zoom_Best_Fit>, nullptr, "Ctrl+0"},

    entry("mnu1item", Phrase{137, "Node #"}, call<&WindowCommands::openNode>, About::node, itself),
    entry("mnu3item", Phrase{132, "Loads on node #"}, call<&WindowCommands::openNodeLoads>, About::node, itself),
    {.place = commandPlace::rowMenu, .name = "mnusss77", .about = About::both},
    entry("mnu2item", Phrase{133, "Element #"}, call<&WindowCommands::openElement>, About::element, itself),
    entry("mnu4item", Phrase{134, "Loads on element #"}, call<&WindowCommands::openElementLoads>, About::element, itself),
    {commandPlace::rowMenu, "RowSeparatorEdits"},
    entry("HoldRotation", Phrase{1705, "Hold the rotation"}, call<&RowCommands::holdRotation>, About::node),
    entry("HoldRotationsOfHinges", Phrase{1706, "Hold the rotation of all nodes where only hinges meet"}, call<&RowCommands::holdRotationsOfHinges>, About::node),
    entry("MoveHeight", Phrase{1707, "Move all nodes at this height"}, call<&WindowCommands::openMoveHeight>, About::node),
    entry("DeleteNode", Phrase{1708, "Delete node #"}, call<&RowCommands::deleteNode>, About::node, itself),
    {.place = commandPlace::rowMenu, .name = "RowSeparatorElement", .about = About::both},
    entry("HingeBothEnds", Phrase{1709, "Hinges at both ends"}, call<&RowCommands::hingeBothEnds>, About::element),
    entry("HingeGroup", Phrase{1710, "Hinges at both ends for all elements of this group"}, call<&RowCommands::hingeGroup>, About::element),
    entry("ShareLoads", Phrase{1711, "Same loads for all elements of this group"}, call<&RowCommands::shareLoads>, About::element),
    entry("DrawInGroup", Phrase{1712, "Draw new elements in group #"}, call<&RowCommands::drawInGroup>, About::element, groupOf),

    label("mnuArithmisi_kombon_item", Phrase{42, "Nodes numbering"}, &nai_arithmisi_kombon),
    label("mnuSintet_kombon_item", Phrase{43, "Node coordinates"}, &nai_sint_kombon),
    {commandPlace::labelMenu, "mnusss12"},
    label("mnuArithmisi_Stoixeion_item", Phrase{44, "Elements numbering"}, &nai_arithmisi_stoixeion),
    label("mnuOmades1_item", Phrase{45, "Element groups"}, &nai_omades),
    label("mnuMiki_item", Phrase{46, "Element lengths"}, &nai_miki),
    {commandPlace::labelMenu, "mnusss7"},
    label("mnuTimes_Sig_item", Phrase{47, "Nodal load values"}, &nai_times_fortiseon_si),
    label("mnuTimes_Om_item", Phrase{48, "Elemental load values"}, &nai_times_fortiseon_om),
    {commandPlace::labelMenu, "mnusss8"},
    label("mnuTimes_M_item", Phrase{49, "[M] values"}, &nai_times_M),
    label("mnuTimes_Q_item", Phrase{50, "[Q] values"}, &nai_times_Q),
    label("mnuTimes_N_item", Phrase{51, "[N] values"}, &nai_times_N),
    {commandPlace::labelMenu, "mnusss9"},
    {commandPlace::labelMenu, "mnuOles_item", Phrase{52, "All labels"}, call<&PictureCommands::showAllLabels>},
    {commandPlace::labelMenu, "mnuBasikes_item", Phrase{53, "Basic labels"}, call<&PictureCommands::showBasicLabels>},
    {commandPlace::labelMenu, "mnuKamia_item", Phrase{54, "No labels"}, call<&PictureCommands::showNoLabels>},
};
// clang-format on

} // namespace

std::span<const Command> commands()
{
    static const auto all = [] {
        std::array<Command, std::size(menus) + std::size(toolbar)> rows;
        std::ranges::copy(toolbar, std::ranges::copy(menus, rows.begin()).out);
        return rows;
    }();
    return all;
}

} // namespace veskora
