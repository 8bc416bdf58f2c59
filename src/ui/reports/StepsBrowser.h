#pragma once
/// @file
/// The text of the steps in their window.

#include <QTextBrowser>

namespace veskora {

/// Gives what is copied of a table a tab between cells and a line for each row, beside the HTML of
/// it, and leaves larger and smaller letters to its window.
class StepsBrowser : public QTextBrowser
{
    Q_OBJECT
public:
    explicit StepsBrowser(QWidget *parent = nullptr);

signals:
    void zoomWanted(int steps); ///< above 0: larger letters

protected:
    QMimeData *createMimeDataFromSelection() const override;
    void wheelEvent(QWheelEvent *event) override;

private:
    int turned_ = 0; ///< by the wheel, in its units, and not yet a step
};

} // namespace veskora
