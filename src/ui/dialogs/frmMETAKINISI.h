#pragma once

#include "ModelDialog.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

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

protected:
    const std::unique_ptr<Ui::frmMETAKINISI> ui_;

private:
    void apply() override;
    void fillLists() final;
    /// None where it has refused what is entered.
    virtual std::optional<std::vector<int>> nodesToMove() const;
    /// Says that they were moved; @p by is ", dx=1, dy=0".
    virtual void tellMoved(const std::string &by);
};

/// Moves the nodes that it was opened for, which it shows in place of the lists.
class MoveGivenNodes : public frmMETAKINISI
{
    Q_OBJECT
public:
    using frmMETAKINISI::frmMETAKINISI;

    void openFor(std::vector<int> nodes);
    /// Goes: the numbers of its nodes may be those of others now.
    void refill() override { reject(); }

private:
    std::optional<std::vector<int>> nodesToMove() const override { return nodes_; }
    void tellMoved(const std::string &by) override;
    std::string numbersShown() const;

    std::vector<int> nodes_;
};

} // namespace veskora
