#pragma once

#include "Kanvas.h"

#include <QStatusBar>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace veskora {

class StatusPanel;

/// The status bar: coordinates, switches, and what the canvas shows.
class StatusBar : public QStatusBar
{
    Q_OBJECT
public:
    explicit StatusBar(QWidget *parent);

    /// Captions and descriptions in the language there is.
    void setCaptions();
    /// Shows the switches as the settings are.
    void showSettings();
    /// Shows the model coordinates of a place on the canvas, unless they are switched off.
    void showPlace(const Point &at);
    void showMode();
    /// Tells the group of new elements where it is not the main one.
    void showGroup();

signals:
    void settingChanged();                  ///< the picture is to be made anew
    void labelsWanted(const QPoint &place); ///< on the screen, above the panel

private:
    StatusPanel *panel(const char *name) const;

    QLabel *x_ = nullptr;
    QLabel *y_ = nullptr;
    QLabel *mode_ = nullptr;
    QLabel *group_ = nullptr;
};

} // namespace veskora
