#pragma once

#include "RowDialog.h"

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmStoixeia;
}
QT_END_NAMESPACE

namespace veskora {

class NumberList;

/// Elements: group, nodes i and j, hinges. Group and nodes must exist; beside their lists stand the
/// group's constants, and the nodes' places and distance.
class frmStoixeia : public RowDialog
{
    Q_OBJECT
public:
    explicit frmStoixeia(QWidget *parent = nullptr);
    ~frmStoixeia() override; // in the .cpp, where Ui::frmStoixeia is complete

private:
    int rowCount() const override;
    void clearFields() override; ///< the group stays: the next element often has the same
    void loadFields(int e) override;
    QWidget *firstField() const override;
    bool areEntriesValid() override { return elegxos_stoixeion(); }
    void store(int e, bool isNew) override;
    std::string nothingToDelete(const std::string &number) const override;
    bool deleteRow(int e) override;
    void fillOtherLists() override;

    bool elegxos_stoixeion();
    void showGroup();
    void showNodes();

    const std::unique_ptr<Ui::frmStoixeia> ui_;
};

} // namespace veskora
