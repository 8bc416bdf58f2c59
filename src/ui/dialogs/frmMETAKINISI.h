#pragma once

#include "ModelDialog.h"

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmMETAKINISI;
}
QT_END_NAMESPACE

namespace veskora {

/// Moves a run of nodes, or those that it was opened for, by (dx, dy).
class frmMETAKINISI : public ModelDialog
{
    Q_OBJECT
public:
    explicit frmMETAKINISI(QWidget *parent = nullptr);
    ~frmMETAKINISI() override; // in the .cpp, where Ui::frmMETAKINISI is complete

    /// Shows @p nodes in place of the lists.
    void openFor(std::vector<int> nodes);
    /// The numbers of the rows that it was opened for may be those of others now.
    void refill() override;

private:
    void apply() override;
    void fillLists() final;
    std::optional<std::vector<int>> nodesToMove() const;

    const std::unique_ptr<Ui::frmMETAKINISI> ui_;
    std::vector<int> nodes_; ///< that it was opened for, if it was
};

} // namespace veskora
