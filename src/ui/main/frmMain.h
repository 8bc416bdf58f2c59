#pragma once
/// @file
/// The main window: it owns the canvas, the message log and every command.

#include "CanvasWidget.h"
#include "Highlights.h"
#include "HTMLHelp.h"
#include "Pointers.h"
#include "QtDesktop.h"
#include "ToolkitTexts.h"

#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <array>
#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmMain;
}
QT_END_NAMESPACE

namespace veskora {

class frmApotelesmata;
class StatusPanel;

class frmMain : public QMainWindow, public MainWindowSurface
{
    Q_OBJECT
public:
    frmMain();
    ~frmMain() override; // in the .cpp, where Ui::frmMain is complete

    /// Brings the program up, from the file type to the window on the screen.
    /// @param commandLine  what stands behind the program's name, as it stands; a model file's path
    void start(const QString &commandLine);

    /// @name Commands
    /// @{
    void Button_Neo_arxeio();
    void Button_Anagnosi_Arxeiou();
    void Button_Apothikefsi_Arxeiou();
    void Button_Xeraki();
    void Button_Zoom();
    void Button_Zoom_Window();
    void Button_Zoom_Previous();
    void Button_Zoom_Best_Fit();
    void Button_EAI();
    void Button_Komboi();
    void Button_Stoixeia();
    void Button_Epikombia();
    void Button_Omoiomorfa();
    void Button_Foreas();
    void Button_M();
    void Button_Q();
    void Button_N();
    void Button_Deform();
    void Button_Rithmiseis();
    void Button_Apotelesmata();
    void Reset_Pointer(); ///< all tools off, cross pointer
    /// @}

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

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A label switch of the panel LABELS, its setting and its entry.
    struct LabelSwitch
    {
        bool *setting;
        QAction *entry;
    };

    // Building
    void buildToolbar();
    void buildStatusBar();
    void buildCanvasObjects();
    void buildPopups();
    QAction *popupEntry(QMenu *menu, const char *name, void (frmMain::*command)());
    void addLabelSwitch(const char *name, bool *setting);
    void connectCommands();
    bool isDragging() const;
    void setCaptions();
    void assignMenuMnemonics();

    // Start and end
    void logStartLines();
    void restoreGeometryFromSettings();
    void keepFrameOnScreen();
    void Apothikefsi_Geometrias();

    // Layout
    void arrange(int pictureHeight, int collapseTop, int collapseLeft);
    void arrangeForSize();
    void toggleLog();
    bool pressFocusedButton(QObject *watched, int key);
    bool askedForHelp(const QObject *watched, const QEvent &event);
    int innerWidth() const;  ///< twips
    int innerHeight() const; ///< twips, from under the menu bar, tool bar and status bar included

    // Files
    /// The save question before the model is left.
    /// @return whether the command goes on
    bool askToSave(bool closing);
    /// @return whether the model is on disk, in its file or in a recovery file
    bool saveBeforeLeaving(bool closing);
    void saveAs();
    void showFreshModel();

    // View
    void applyColours();
    void showPanels();
    void showMode(int mode);
    void showResults(int mode);
    void resizeDiagram(void (*change)());
    void setAllLabels(bool on);
    void setBasicLabels();
    void showLabelSwitches();

    // Tools
    bool isToolOn() const;
    void switchTool(bool &tool);
    void showToolPointer();
    void exitTools();

    // The mouse on the canvas, canvas centimetres
    void canvasPressed(Qt::MouseButton button, double x, double y);
    void canvasMoved(Qt::MouseButtons buttons, double x, double y);
    void canvasReleased(Qt::MouseButton button, double x, double y);
    void canvasDoubleClicked();
    bool moveView(double x, double y);
    void pressOnModel(double x, double y);
    void leftReleased(double x, double y);
    void endRelease();
    void giveUpDrag();
    void defineElementTo(double x, double y);
    void offerMainGroup();
    void addElement(int end);
    /// The new node's number, 0 when the table is full or the place cannot be told.
    int defineNode(double x, double y, bool atPress);
    void showCoordinates(double x, double y);
    void showRubberBand(double x, double y);
    /// The node and the element under the pointer, and their highlights.
    void hover(double x, double y);
    void forgetHover();
    /// Finds anew what lies under a pointer that rests: the rows or the view may have changed.
    void lookAgain();
    void pointerLeft();
    void popupClosed();
    void showPopup();

    // Model commands whose windows need rows to work on
    bool refuseWithoutNodes();
    bool refuseWithoutElements();
    template <typename Dialog, typename Open>
    void showDialog(Open open);
    void moveNodes();
    void mergeNodes();
    void divideElements();
    void createArc();

    void copyPicture();
    void savePicture();
    void startCalculator();
    void openWebPage();
    void showAbout();

    const std::unique_ptr<Ui::frmMain> ui_;

    StatusPanel *sint_ = nullptr;
    StatusPanel *aksones_ = nullptr;
    StatusPanel *kannabos_ = nullptr;
    StatusPanel *times_ = nullptr;
    QLabel *panel1_ = nullptr;
    QLabel *panel2_ = nullptr;
    QLabel *panel7_ = nullptr;

    QMenu *mnuZoomakia_ = nullptr;
    QMenu *mnuAorato_ = nullptr;
    QMenu *mnu_Aorato_Times_ = nullptr;
    std::vector<LabelSwitch> labelSwitches_;

    QLabel *Label1_ = nullptr;
    CanvasLabel *Label2_ = nullptr;
    std::unique_ptr<Highlights> highlights_;
    CanvasOverlay *Line1_ = nullptr;
    CanvasOverlay *Shape1_ = nullptr;
    QPushButton *Command1_ = nullptr;
    QPushButton *Command2_ = nullptr;
    QTimer Timer1_;
    ToolkitTexts toolkitTexts_;
    HTMLHelp help_;
    QPointer<frmApotelesmata> results_; ///< the one that is open, if any

    bool Xeraki_Energo = false;
    bool Zoom_Energo = false;
    bool Zoom_Window_Energo = false;
    bool Patimeno_Koumpi = false;  ///< the left button is down on the canvas
    bool Pano_Se_Kombo = false;    ///< the pointer is over node `Kombos_Deikti`
    bool Pano_Se_Stoixeio = false; ///< the pointer is over element `Stoixeio_Deikti`
    int Kombos_Deikti = 0;
    int Stoixeio_Deikti = 0;
    /// Set by the first press that defines a node in this run; until then no rubber band shows.
    bool Exei_Oristei_Kombos = false;
    float Teleftaio_X = 0, Teleftaio_Y = 0; ///< the pointer's last place, canvas cm
    bool pointerOnCanvas_ = false;
    QPointF pointer_;               ///< its last place on the screen
    std::array<int, 2> rowsSeen_{}; ///< nodes and elements at the last redraw
    Hourglass hourglass_;

    bool arranging_ = false;
    bool closed_ = false;
};

} // namespace veskora
