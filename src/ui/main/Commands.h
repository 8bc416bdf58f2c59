#pragma once
/// @file
/// The table of commands: all that stands in menus, pop-ups and the toolbar of the main window.

#include "Functions.h"

#include <span>
#include <tuple>

namespace veskora {

class FileCommands;
class frmMain;
class Hand;
class MessageLog;
class PictureCommands;
class RowCommands;
class StatusBar;
class UndoCommands;
class WindowCommands;

/// What a command may be a routine of.
using Rooms = std::tuple<frmMain &, Hand &, FileCommands &, UndoCommands &, PictureCommands &,
                         WindowCommands &, RowCommands &, MessageLog &, StatusBar &>;

/// What goes before a command runs.
enum class Clears {
    nothing,
    highlights, ///< what marks the row under the pointer
    tools       ///< these, and the tool at hand
};

/// The row under the pointer that an entry is about: without one the entry does not show.
enum class About { nothing, node, element, both };

/// Object names of what others than the table ask for.
namespace commandPlace {
inline constexpr const char *editMenu = "mnuEPEKSERGASIA";
inline constexpr const char *recentMenu = "mnuRECENT";
inline constexpr const char *toolbar = "Toolbar2";
inline constexpr const char *toolMenu = "mnuZoomakia";
inline constexpr const char *rowMenu = "mnuAorato";
inline constexpr const char *save = "mnuAPOTHIKEFSIitem";
inline constexpr const char *undo = "mnuUNDOitem";
inline constexpr const char *redo = "mnuREDOitem";
inline constexpr const char *analyze = "mnuEPILISIitem";
inline constexpr const char *reportMenu = "mnuANAFORES";
inline constexpr const char *labelMenu = "mnu_Aorato_Times";
} // namespace commandPlace

/// A row of the table. One with a caption that runs nothing is a menu where others stand in it, and
/// stays hidden where none does. One without a caption is a separator.
struct Command
{
    const char *place;   ///< object name of what it stands in; its rows stand in their order
    const char *name;    ///< object name of the action and of its button
    Phrase caption = {}; ///< of a tool button: its tool tip and description
    /// @param row  the number of the row that it is about, else 0
    void (*run)(Rooms &rooms, int row) = nullptr;
    const char *icon = nullptr;
    const char *keys = nullptr; ///< "; " between several
    Clears clears = Clears::nothing;
    bool *setting = nullptr; ///< has a check mark; the command flips it
    About about = About::nothing;
    int (*numbered)(int row) =
        nullptr; ///< the number behind the caption, of a row that it is about
};

/// All commands, in the order in which they stand.
std::span<const Command> commands();

} // namespace veskora
