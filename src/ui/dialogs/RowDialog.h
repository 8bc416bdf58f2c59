#pragma once

#include "NumberedDialog.h"

class QLabel;

namespace veskora {

/// A dialog that adds rows to a table and edits them, one at a time: a number list with one number
/// more than there are rows, and a label that tells whether the row shown is a new one.
///
/// A number behind the last row adds the next row, whatever it is. Both Apply and Delete leave the
/// dialog open.
class RowDialog : public NumberedDialog
{
    Q_OBJECT
public:
    void openNew();
    void refill() override;

protected:
    using NumberedDialog::NumberedDialog;

    /// To be called once the form stands: its number list `Combo1`, the label `Label7` and the
    /// button `SSCommand1`, New, and the two texts of the label.
    void equipRows(const std::string &isNew, const std::string &existing);

    /// @name What the forms know of their table
    /// @{
    virtual void clearFields() = 0;
    virtual void loadFields(int row) = 0;
    /// Whether the entries may be stored; speaks if not.
    virtual bool areEntriesValid() = 0;
    /// Writes the row and its log line; a new row then raises the count.
    virtual void store(int row, bool isNew) = 0;
    /// What Delete says without a row @p number.
    virtual std::string nothingToDelete(const std::string &number) const = 0;
    /// @return whether the row was deleted
    virtual bool deleteRow(int row) = 0;
    /// Fills the lists that the form has besides the number list.
    virtual void fillOtherLists() {}
    /// @}

    void apply() override;
    void remove() override;

private:
    void fillLists() override;
    void showLoaded() override;
    bool takeOther(bool isLeft) override;
    void showNew();

    QLabel *state_ = nullptr;
    QString isNew_, existing_;
};

} // namespace veskora
