#pragma once

#include "ModelDialog.h"

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmSigxonefsi;
}
QT_END_NAMESPACE

namespace veskora {

/// Makes one node of two: the elements of node B go to node A.
class frmSigxonefsi : public ModelDialog
{
    Q_OBJECT
public:
    explicit frmSigxonefsi(QWidget *parent = nullptr);
    ~frmSigxonefsi() override; // in the .cpp, where Ui::frmSigxonefsi is complete

private:
    void apply() override;
    bool deleteElementsBetween(int a, int b);
    void fillLists() final;

    const std::unique_ptr<Ui::frmSigxonefsi> ui_;
};

} // namespace veskora
