#pragma once

#include "ModelDialog.h"

class QLabel;

namespace veskora {

class NumberList;

/// A dialog that adds rows to a table and edits them, one at a time: a number list with one number
/// more than there are rows, and a label that tells whether the number shown is a new row's.
///
/// A number behind the last row adds the next row, whatever it is. Both Apply and Delete leave the
/// dialog open.
class RowDialog : public ModelDialog
{
    Q_OBJECT
public:
    void openNew();
    void openRow(int row);

protected:
    using ModelDialog::ModelDialog;

    /// To be called once the form stands: its number list `Combo1`, the label `Label7` and the
    /// button `SSCommand1`, New, and the two texts of the label.
    void equipRows(const std::string &isNew, const std::string &existing);

    NumberList *numbers() const { return numbers_; }

    /// @name What the forms know of their table
    /// @{
    virtual int rowCount() const = 0;
    virtual void clearFields() = 0;
    virtual void loadFields(int row) = 0;
    /// Where typing goes on after New, Apply and Delete.
    virtual QWidget *firstField() const = 0;
    /// Whether the entries may be stored; speaks if not.
    virtual bool areEntriesValid() = 0;
    /// Writes the row and its log line; a new row raises the count.
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
    void fillLists();
    void showNew();
    void showRow(int row);
    void loadTyped();
    void showState();

    NumberList *numbers_ = nullptr;
    QLabel *state_ = nullptr;
    QString isNew_, existing_;
    int loaded_ = 0; ///< the row that the fields were loaded from, 0 for none
};

} // namespace veskora
