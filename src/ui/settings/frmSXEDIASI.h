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
    /// A setting and the control that shows it.
    struct Binding
    {
        const Setting *setting;
        QWidget *control;
    };

    void setCaptions();
    void bindControls();
    void bind(StoreVariable setting, QWidget *control);
    void connectControls();
    void showValue(const Binding &binding, const SettingValue &value);
    void showAll(SettingValue (*valueOf)(const Setting &));
    SettingValue shown(const Binding &binding) const;

    bool apply();
    void storeDefaults();

    const std::unique_ptr<Ui::frmSXEDIASI> ui_;
    std::vector<Binding> bindings_;
};

} // namespace veskora
