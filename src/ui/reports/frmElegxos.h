#pragma once
/// @file
/// The window of the check of the analysis.

#include "CheckText.h"
#include "Moment.h"

#include <QWidget>

#include <memory>
#include <string>
#include <vector>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmElegxos;
}
QT_END_NAMESPACE

namespace veskora {

/// Stays over the main window, which goes on working. What it shows is of the moment when it was
/// last refreshed; where model or results have become others since, it says so, and shows no rows
/// of the model that was.
class frmElegxos : public QWidget
{
    Q_OBJECT
public:
    explicit frmElegxos(QWidget *parent);
    ~frmElegxos() override; // in the .cpp, where Ui::frmElegxos is complete

    /// Checks the model as it stands and picks the first finding.
    void refresh();

signals:
    /// @p finding is to be seen on the canvas; it is of the model there is.
    void picked(const veskora::Finding &finding);
    void refreshWanted();
    void helpWanted();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void setCaptions();
    void connectParts();
    void lookAtModel();
    void pick();
    void copy();
    void save();

    /// Of one moment.
    struct Check
    {
        Moment moment;
        std::vector<Finding> findings;
        std::vector<FindingText> texts; ///< of each
        std::string document;           ///< all of them
    };

    const std::unique_ptr<Ui::frmElegxos> ui_;
    std::unique_ptr<const Check> check_; ///< none before `refresh`
};

} // namespace veskora
