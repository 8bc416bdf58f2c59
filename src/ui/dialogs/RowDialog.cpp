#include "RowDialog.h"

#include "MathFunc.h"
#include "NumberList.h"
#include "QtDesktop.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace veskora {

void RowDialog::equipRows(const std::string &isNew, const std::string &existing)
{
    isNew_ = qtText(isNew);
    existing_ = qtText(existing);
    numbers_ = findChild<NumberList *>("Combo1");
    state_ = findChild<QLabel *>("Label7");
    // The window keeps its width when the state changes.
    const auto width = [this](const QString &text) {
        return state_->fontMetrics().horizontalAdvance(text);
    };
    state_->setMinimumWidth(std::max(width(isNew_), width(existing_)));

    connect(numbers_, &QComboBox::editTextChanged, this, &RowDialog::showState);
    connect(numbers_, &NumberList::entered, this, &RowDialog::loadTyped);
    connect(numbers_, &NumberList::picked, this, [this](int number) {
        if (number > rowCount())
            showNew();
        else
            showRow(number);
    });
    connect(findChild<QPushButton *>("SSCommand1"), &QPushButton::clicked, this, [this] {
        showNew();
        lead(firstField());
    });
    equip();
}

void RowDialog::openNew()
{
    fillLists();
    showNew();
    lead(firstField());
    exec();
}

void RowDialog::openRow(int row)
{
    fillLists();
    showRow(row);
    lead(firstField());
    exec();
}

void RowDialog::fillLists()
{
    numbers_->fill(rowCount() + 1);
    fillOtherLists();
}

void RowDialog::showNew()
{
    numbers_->showNumber(rowCount() + 1);
    loaded_ = 0;
    clearFields();
    showState();
}

void RowDialog::showRow(int row)
{
    numbers_->showNumber(row);
    loaded_ = row;
    loadFields(row);
    showState();
}

/// The number that was typed stays as it is: behind the last row any number will do.
void RowDialog::loadTyped()
{
    const double number = numbers_->number();
    if (!isRowNumber(number))
        return;
    if (number <= rowCount()) {
        showRow(static_cast<int>(number));
    } else if (loaded_ != 0) {
        loaded_ = 0;
        clearFields();
    }
}

void RowDialog::showState()
{
    const double number = numbers_->number();
    state_->setText(isRowNumber(number) && number <= rowCount() ? existing_ : isNew_);
}

void RowDialog::apply()
{
    if (!areEntriesValid())
        return;
    const double number = numbers_->number();
    const bool isNew = number > rowCount();
    const int row = isNew ? rowCount() + 1 : static_cast<int>(number);
    store(row, isNew);
    modelChanged();
    fillLists();
    if (row == rowCount())
        showNew();
    else
        showRow(row + 1);
    lead(firstField());
}

void RowDialog::remove()
{
    const double number = numbers_->number();
    if (!isRowNumber(number) || number > rowCount()) {
        refuse(nothingToDelete(numberText(number)), numbers_);
        return;
    }
    if (!deleteRow(static_cast<int>(number)))
        return;
    modelChanged();
    fillLists();
    showNew();
    lead(firstField());
}

} // namespace veskora
