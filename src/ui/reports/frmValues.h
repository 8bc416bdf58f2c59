#pragma once
/// @file
/// The window of the values along an element.

#include "AlongElement.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmValues;
}
QT_END_NAMESPACE

namespace veskora {

/// Stays over the main window, which goes on working. It shows results only while they are those of
/// the model there is, and says what must be told of them.
class frmValues : public QWidget
{
    Q_OBJECT
public:
    explicit frmValues(QWidget *parent);
    ~frmValues() override; // in the .cpp, where Ui::frmValues is complete

    /// Shows element @p e, or the nearest number that there is.
    void choose(int e);
    /// To be called when model, results or view options may have changed.
    void lookAgain();
    void showPicking(bool isOn);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void chosen(int e); ///< is shown now, 0 for none
    void pickWanted(bool isOn);
    void helpWanted();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void setCaptions();
    void connectParts();
    void limitSizes();
    void lookAtModel();
    void present();
    void tellNotice();
    void fillTable();
    void tellLargest();
    void showPlace(double x);
    void showValuesAt(double x);
    void takeTypedPlace();
    void goToRow(int row);
    void leaveRow();
    bool refuseWithoutValues();
    void copy(bool isWhole);
    void save();
    std::vector<std::string> cellsOf(const Station &station,
                                     const std::function<std::string(double)> &text) const;

    const std::unique_ptr<Ui::frmValues> ui_;
    std::optional<AlongElement> along_; ///< none while there are no results of the model
    std::vector<Station> stations_;
    std::array<int, 5> seen_{-1}; ///< what told the results when they were last shown
    double part_ = 0;             ///< the cursor's place, of the length
};

} // namespace veskora
