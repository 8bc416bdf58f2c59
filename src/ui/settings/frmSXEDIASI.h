#pragma once

#include "Registry.h"

#include <QDialog>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmSXEDIASI;
}
QT_END_NAMESPACE

namespace veskora {

/// The view options. Apply and OK change the running program's settings, Default writes what stands
/// in the dialog to the per-user store, Restore changes the dialog alone.
class frmSXEDIASI : public QDialog
{
    Q_OBJECT
public:
    explicit frmSXEDIASI(QWidget *parent = nullptr);
    ~frmSXEDIASI() override; // in the .cpp, where Ui::frmSXEDIASI is complete

    /// Tests the typed numbers in their order. The first that cannot be is refused, and its field
    /// shown and selected.
    /// @param ok  whether all are good
    void Elegxos_An_Einai_OK(bool &ok);

signals:
    /// The settings have changed: whoever shows them is to show them anew.
    void applied();

private:
    struct Row;
    std::vector<Row> rows() const;
    void equipControls();
    void setCaptions();
    void connectControls();
    static void showValue(const Row &row, const SettingValue &value);
    void showAll(SettingValue (*valueOf)(const Setting &));
    static SettingValue shown(const Row &row);
    void refuse(const Row &row, const std::string &text);

    bool apply();
    void storeDefaults();

    const std::unique_ptr<Ui::frmSXEDIASI> ui_;
    std::vector<Row> rows_;
};

} // namespace veskora
