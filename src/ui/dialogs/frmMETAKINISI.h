#pragma once

#include "ModelDialog.h"

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmMETAKINISI;
}
QT_END_NAMESPACE

namespace veskora {

/// Moves a run of nodes by (dx, dy).
class frmMETAKINISI : public ModelDialog
{
    Q_OBJECT
public:
    explicit frmMETAKINISI(QWidget *parent = nullptr);
    ~frmMETAKINISI() override; // in the .cpp, where Ui::frmMETAKINISI is complete

private:
    void apply() override;
    void fillLists() final;

    const std::unique_ptr<Ui::frmMETAKINISI> ui_;
};

} // namespace veskora
