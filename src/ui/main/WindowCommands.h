#pragma once
/// @file
/// The commands that open a window.

#include "frmApotelesmata.h"

#include <QPointer>
#include <QWidget>

namespace veskora {

struct CanvasObjects;
class frmElegxos;
class frmSteps;
class frmValues;
class Hand;
class HTMLHelp;
class PictureCommands;

/// Opens the dialogs of the model, the view options, the results, the check, the calculation
/// report, the steps of the analysis and the about box.
/// Where a dialog would have no rows to work on, it is refused with a word.
class WindowCommands
{
public:
    WindowCommands(QWidget *window, CanvasObjects &canvas, Hand &hand, PictureCommands &picture,
                   HTMLHelp &help);
    ~WindowCommands(); // closes the windows that are open

    void Button_EAI();
    void Button_Komboi();
    void Button_Stoixeia();
    void Button_Epikombia();
    void Button_Omoiomorfa();
    /// @name On the row of that number, unless it has gone
    /// @{
    void openNode(int n);
    void openNodeLoads(int n);
    void openElement(int e);
    void openElementLoads(int e);
    void openMoveHeight(int n); ///< moves all nodes as high as that
    /// @}

    void openMove();
    void openMerge();
    void openDivide();
    void openArc();
    void checkNodes();
    void checkElements();

    void Button_Rithmiseis();
    void Button_Apotelesmata();
    void openCheck(); ///< where it is open already, it checks anew
    /// Refused without results. Where it is open already, it comes to the front.
    void openValues();
    void openCalculation();
    void openSteps(); ///< where they are open already, they are shown anew
    void showAbout();

    /// To be called when model or results may have changed.
    void lookAgain();

private:
    template <typename Dialog, typename Open>
    void showDialog(Open open);
    void showReport(QWidget *report);

    QWidget *const window_;
    CanvasObjects &canvas_;
    Hand &hand_;
    PictureCommands &picture_;
    HTMLHelp &help_;
    ResultsPlace resultsPlace_;
    /// @name Those that are open
    /// @{
    QPointer<frmApotelesmata> results_;
    QPointer<frmElegxos> check_;
    QPointer<frmValues> values_;
    QPointer<frmSteps> steps_;
    /// @}
};

} // namespace veskora
