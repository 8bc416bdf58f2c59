#pragma once

#include "RowDialog.h"

#include <array>
#include <memory>

class QCheckBox;

QT_BEGIN_NAMESPACE
namespace Ui {
class frmKomboi;
}
QT_END_NAMESPACE

namespace veskora {

/// Nodes: coordinates, constraints and spring constants. A direction has either a constraint or a
/// spring: what the user sets takes the other away. A row that was loaded with both shows both.
class frmKomboi : public RowDialog
{
    Q_OBJECT
public:
    explicit frmKomboi(QWidget *parent = nullptr);
    ~frmKomboi() override; // in the .cpp, where Ui::frmKomboi is complete

private:
    int rowCount() const override;
    void clearFields() override;
    void loadFields(int n) override;
    QWidget *firstField() const override;
    bool areEntriesValid() override { return elegxos_kombon(); }
    void store(int n, bool isNew) override;
    std::string nothingToDelete(const std::string &number) const override;
    bool deleteRow(int n) override;

    bool elegxos_kombon();
    void eikones(); ///< shows the picture of the support that the checks make
    void setSupport(std::string_view code);
    void stepSupport();
    std::string code() const;

    const std::unique_ptr<Ui::frmKomboi> ui_;
    const std::array<QLineEdit *, 3> springs_; ///< in the order of the table's columns, as
    const std::array<QCheckBox *, 3> checks_;  ///< these are
};

} // namespace veskora
