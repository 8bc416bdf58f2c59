#pragma once

#include "RowDialog.h"

#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class frmOmades;
}
QT_END_NAMESPACE

namespace veskora {

/// E,A,I element groups. A group that elements belong to cannot be deleted.
class frmOmades : public RowDialog
{
    Q_OBJECT
public:
    explicit frmOmades(QWidget *parent = nullptr);
    ~frmOmades() override; // in the .cpp, where Ui::frmOmades is complete

private:
    int rowCount() const override;
    void clearFields() override;
    void loadFields(int g) override;
    QWidget *firstField() const override;
    bool areEntriesValid() override { return elegxos_omadon(); }
    void store(int g, bool isNew) override;
    std::string nothingToDelete(const std::string &number) const override;
    bool deleteRow(int g) override;

    bool elegxos_omadon();

    const std::unique_ptr<Ui::frmOmades> ui_;
};

} // namespace veskora
