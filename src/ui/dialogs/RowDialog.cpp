#include "RowDialog.h"

#include "MathFunc.h"
#include "NumberList.h"
#include "Text.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace veskora {

void RowDialog::equipRows(const std::string &isNew, const std::string &existing)
{
    isNew_ = qtText(isNew);
    existing_ = qtText(existing);
    equipNumbers();
    state_ = findChild<QLabel *>("Label7");
    // The window keeps its width when the state changes.
    const auto width = [this](const QString &text) {
        return state_->fontMetrics().horizontalAdvance(text);
    };
    state_->setMinimumWidth(std::max(width(isNew_), width(existing_)));

    connect(numbers(), &NumberList::picked, this, [this](int number) {
        if (number > rowCount())
            showNew();
        else
            showRow(number);
    });
    connect(findChild<QPushButton *>("SSCommand1"), &QPushButton::clicked, this, [this] {
        showNew();
        focusAndSelect(firstField());
    });
    equip();
}

void RowDialog::refill()
{
    fillLists();
    showNew();
}

void RowDialog::openNew()
{
    refill();
    focusAndSelect(firstField());
    exec();
}

void RowDialog::fillLists()
{
    numbers()->fill(rowCount() + 1);
    fillOtherLists();
}

void RowDialog::showNew()
{
    numbers()->showNumber(rowCount() + 1);
    load(0);
}

void RowDialog::showLoaded()
{
    if (loaded() == 0)
        clearFields();
    else
        loadFields(loaded());
    state_->setText(loaded() == 0 ? isNew_ : existing_);
}

/// The number stays as it is: behind the last row any will do, and Apply refuses what is none.
bool RowDialog::takeOther(bool)
{
    if (numbers()->number() > rowCount() && loaded() != 0)
        load(0);
    return true;
}

void RowDialog::apply()
{
    if (!areEntriesValid())
        return;
    const bool isNew = loaded() == 0;
    const int row = isNew ? rowCount() + 1 : loaded();
    store(row, isNew);
    modelChanged();
    fillLists();
    if (row == rowCount())
        showNew();
    else
        showRow(row + 1);
    focusAndSelect(firstField());
}

void RowDialog::remove()
{
    const double number = numbers()->number();
    if (loaded() == 0 || number != loaded()) {
        refuse(nothingToDelete(numberText(number)), numbers());
        return;
    }
    if (!deleteRow(loaded()))
        return;
    modelChanged();
    refill();
    focusAndSelect(firstField());
}

} // namespace veskora

#include "moc_RowDialog.cpp"
