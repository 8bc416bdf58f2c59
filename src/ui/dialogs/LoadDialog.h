#pragma once

#include "ModelDialog.h"

#include <span>

class QLabel;
class QListWidget;

namespace veskora {

class NumberList;

/// A dialog for the loads of rows that exist, one row at a time: the number list `Combo1`, a field
/// for each component, and the list `List1` of the rows that hold a load.
class LoadDialog : public ModelDialog
{
    Q_OBJECT
public:
    void openFirst();
    void openRow(int row);

protected:
    using ModelDialog::ModelDialog;

    /// The dialog's own sentences; a row number goes behind all but the first.
    struct Texts
    {
        std::string loadedRows, isNew, changed, erased, nothingToDelete;
    };

    /// To be called once the form stands. @p fields are those of the components Fx, Fy and M, as
    /// many as a row has; @p caption is that of `List1`.
    void equipLoads(const QList<QLineEdit *> &fields, QLabel *caption, Texts texts);

    virtual int rowCount() const = 0;
    /// The cells of a row that are loads.
    virtual std::span<float> loads(int row) const = 0;

    void apply() override;
    void remove() override;

private:
    int row();
    void showRow(int row);
    void listLoadedRows();
    void finish(int row);
    static std::string valuesText(std::span<const float> values);

    NumberList *numbers_ = nullptr;
    QListWidget *loadedRows_ = nullptr;
    QLabel *caption_ = nullptr;
    QString captionText_;
    QList<QLineEdit *> fields_;
    Texts texts_;
    int loaded_ = 1; ///< the row that the fields were loaded from
};

} // namespace veskora
