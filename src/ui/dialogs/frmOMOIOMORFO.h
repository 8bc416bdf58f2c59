#pragma once

#include "LoadDialog.h"

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmOMOIOMORFO;
}
QT_END_NAMESPACE

namespace veskora {

/// Uniform elemental loads: forces per unit of the element's length, along the global axes.
class frmOMOIOMORFO : public LoadDialog
{
    Q_OBJECT
public:
    explicit frmOMOIOMORFO(QWidget *parent = nullptr);
    ~frmOMOIOMORFO() override; // in the .cpp, where Ui::frmOMOIOMORFO is complete

private:
    int rowCount() const override;
    std::string noSuchRow() const override;
    std::span<float> loads(int e) const override;

    const std::unique_ptr<Ui::frmOMOIOMORFO> ui_;
};

} // namespace veskora
