#pragma once
/// @file
/// What the canvas shows.

#include "Findings.h"

#include <QObject>

#include <cstdint>
#include <optional>

namespace veskora {

struct CanvasObjects;
class Hand;
class StatusBar;

/// The commands that change the picture and not the model: views, zoom, labels, sizes of diagrams,
/// and the picture's ways out.
class PictureCommands : public QObject
{
    Q_OBJECT
public:
    PictureCommands(CanvasObjects &canvas, Hand &hand, StatusBar &status);

    /// @name Views
    /// Those of results offer a new analysis first when the model has changed.
    /// @{
    void Button_Foreas();
    void Button_M();
    void Button_Q();
    void Button_N();
    void Button_Deform();
    /// @}

    /// Shows over the model what @p finding concerns, until the picture is made anew: how the
    /// structure moves, or the rows. One that concerns none leaves the view that there is.
    void showFinding(const Finding &finding);
    /// Paints the picture anew, without a finding.
    void paint();

    void Button_Zoom_Previous();
    void Button_Zoom_Best_Fit();

    void showAllLabels();
    void showBasicLabels();
    void showNoLabels();

    void copyPicture();
    void savePicture();
    /// Saves what the canvas shows, a finding over it too, as an SVG or a PDF file.
    void saveVectorPicture();

    /// Shows the colours and the switches of the settings; the picture is that from before.
    void showSettings();
    void showStart(); ///< the model view, in a window that is not shown yet
    /// Shows the model that there is now as if nothing had been shown before.
    void showNewModel();

private:
    void setMode(std::int16_t mode);
    void showResults(std::int16_t mode);
    void resizeDiagram(void (*change)());
    void drawFinding() const;

    CanvasObjects &canvas_;
    Hand &hand_;
    StatusBar &status_;
    std::optional<Finding> finding_; ///< over the picture
};

} // namespace veskora
