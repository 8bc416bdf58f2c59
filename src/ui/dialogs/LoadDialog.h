#pragma once

#include "NumberedDialog.h"
#include "RowLines.h"

#include <span>

class QLabel;
class QListWidget;

namespace veskora {

/// A dialog for the loads of rows that exist, one row at a time: the number list `Combo1`, a field
/// for each component, and the list `List1` of the rows that hold a load.
class LoadDialog : public NumberedDialog
{
    Q_OBJECT
public:
    void openFirst();
    void refill() override;

protected:
    using NumberedDialog::NumberedDialog;

    /// The dialog's own sentences; a row number goes behind all but the first.
    struct Texts
    {
        std::string loadedRows;
        LoadWords lines;
        std::string nothingToDelete;
    };

    /// To be called once the form stands. @p fields are those of the components Fx, Fy and M, as
    /// many as a row has; @p caption is that of `List1`.
    void equipLoads(const QList<QLineEdit *> &fields, QLabel *caption, Texts texts);

    /// The cells of a row that are loads.
    virtual std::span<float> loads(int row) const = 0;
    /// What is said of a number in the list that no row has.
    virtual std::string noSuchRow() const = 0;

    void apply() override;
    void applyAndGoOn() override;
    void remove() override;

private:
    QWidget *firstField() const override;
    void fillLists() override;
    void showLoaded() override;
    bool takeOther(bool isLeft) override;
    void listLoadedRows();
    void store(int next, QWidget *field);
    void finish(const std::string &done, int next, QWidget *field);

    QListWidget *loadedRows_ = nullptr;
    QLabel *caption_ = nullptr;
    QString captionText_;
    QList<QLineEdit *> fields_;
    Texts texts_;
};

} // namespace veskora
