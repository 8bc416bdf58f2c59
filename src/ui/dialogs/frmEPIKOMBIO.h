#pragma once

#include "LoadDialog.h"

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmEPIKOMBIO;
}
QT_END_NAMESPACE

namespace veskora {

/// Nodal loads: forces along the global axes and a moment.
class frmEPIKOMBIO : public LoadDialog
{
    Q_OBJECT
public:
    explicit frmEPIKOMBIO(QWidget *parent = nullptr);
    ~frmEPIKOMBIO() override; // in the .cpp, where Ui::frmEPIKOMBIO is complete

private:
    int rowCount() const override;
    std::string noSuchRow() const override;
    std::span<float> loads(int n) const override;

    const std::unique_ptr<Ui::frmEPIKOMBIO> ui_;
};

} // namespace veskora
