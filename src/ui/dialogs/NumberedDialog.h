#pragma once

#include "ModelDialog.h"

namespace veskora {

class NumberList;

/// A dialog that shows one row of a table, named by its number list `Combo1`.
///
/// The dialog knows which row it shows, and acts on that one alone. A number that is typed is taken
/// over when the list is left, by Enter, or at the latest when Apply or Delete is pressed; if the
/// press brings another row into sight, that is all it does.
class NumberedDialog : public ModelDialog
{
    Q_OBJECT
public:
    void openRow(int row);

protected:
    using ModelDialog::ModelDialog;

    /// To be called once the form stands.
    void equipNumbers();

    NumberList *numbers() const { return numbers_; }
    /// The row that the fields show; 0 for none that exists.
    int loaded() const { return loaded_; }

    /// Shows @p row in fields and list.
    void showRow(int row);
    /// Shows @p row, or 0 for none, and leaves the number in the list.
    void load(int row);

    /// @name What the forms know of their table
    /// @{
    virtual int rowCount() const = 0;
    /// Fills the fields from the row `loaded`.
    virtual void showLoaded() = 0;
    /// Where typing goes on.
    virtual QWidget *firstField() const = 0;
    /// Takes over a typed number that is none of an existing row.
    /// @param isLeft  the list was left, so that nothing can be asked any more
    /// @return false where it was refused
    virtual bool takeOther(bool isLeft) = 0;
    /// @}

    bool isReady(bool deletes) override;
    bool takeEntered(QWidget *field) override;

private:
    bool takeTyped(bool isLeft);

    NumberList *numbers_ = nullptr;
    int loaded_ = 0;
};

} // namespace veskora
