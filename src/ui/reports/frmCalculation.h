#pragma once
/// @file
/// The form of the calculation report.

#include "CalculationReport.h"

#include <QDialog>

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmCalculation;
}
QT_END_NAMESPACE

namespace veskora {

/// Asks what the report is to have, which the next one begins with, and makes it. Cancel, while it
/// is being made, leaves the file that was chosen as it was, and the form open.
class frmCalculation : public QDialog
{
    Q_OBJECT
public:
    explicit frmCalculation(QWidget *parent);
    ~frmCalculation() override; // in the .cpp, where Ui::frmCalculation is complete

    void accept() override;
    void reject() override;

signals:
    /// The user wants to see the file.
    void openWanted(const QString &path);

private:
    void setCaptions();
    void recall();
    void remember() const;
    CalculationOptions chosen() const;
    std::string made();

    const std::unique_ptr<Ui::frmCalculation> ui_;
    bool isWorking_ = false, isCancelled_ = false;
};

} // namespace veskora
