#pragma once
/// @file
/// The main window: its building, its layout, its start and its end.

#include "CanvasObjects.h"
#include "FileCommands.h"
#include "Hand.h"
#include "Hourglass.h"
#include "HTMLHelp.h"
#include "JournalKeeper.h"
#include "KeyFilter.h"
#include "Menus.h"
#include "PictureCommands.h"
#include "QtDesktop.h"
#include "RecentMenu.h"
#include "RowCommands.h"
#include "ToolkitTexts.h"
#include "UndoCommands.h"
#include "WindowCommands.h"

#include <QMainWindow>

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmMain;
}
QT_END_NAMESPACE

namespace veskora {

/// What the user does goes to the rooms: the mouse on the canvas to the hand, commands to the
/// routines that their table names. What they change comes back here as a redraw.
class frmMain : public QMainWindow, public MainWindowSurface
{
    Q_OBJECT
public:
    frmMain();
    ~frmMain() override; // in the .cpp, where Ui::frmMain is complete

    /// Brings the program up, from the file type to the window on the screen.
    /// @param commandLine  what stands behind the program's name, as it stands; a model file's path
    void start(const QString &commandLine);

    void exit() { close(); }
    void showHelp() { help_.showContents(); }

    /// A message on the canvas that goes after five seconds.
    void Stigmiaio_Minima(const std::string &text);

    /// @name For the desktop
    /// @{
    QWidget *widget() override { return this; }
    void insertLog(const std::string &text, std::uint32_t colour, bool bold) override;
    void setCaption(const std::string &text) override;
    void setPointer(Pointer pointer) override;
    void setAnalysing(bool isOn) override;
    void repaintMainWindow() override { repaint(); }
    void repaintLog() override;
    void redraw() override;
    /// @}

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    static std::unique_ptr<Ui::frmMain> makeUi(frmMain *window);
    void equipToolbar();
    void connectRooms();
    void setCaptions();
    void openExample(const QString &name);

    // Layout
    void arrange(int pictureHeight, int collapseTop, int collapseLeft);
    void arrangeForSize();
    void toggleLog();
    int innerWidth() const;  ///< twips
    int innerHeight() const; ///< twips, from under the menu bar, tool bar and status bar included

    const std::unique_ptr<Ui::frmMain> ui_;
    CanvasObjects canvas_;
    Hand hand_;
    PictureCommands picture_;
    FileCommands files_;
    JournalKeeper journal_;
    UndoCommands undo_;
    HTMLHelp help_;
    WindowCommands windows_;
    RowCommands rows_;
    Menus menus_;
    RecentMenu recent_;
    KeyFilter keys_;
    ToolkitTexts toolkitTexts_;
    Hourglass hourglass_;

    bool arranging_ = false;
    bool closed_ = false;
};

} // namespace veskora
