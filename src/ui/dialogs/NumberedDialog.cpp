#include "NumberedDialog.h"

#include "NumberList.h"

namespace veskora {

void NumberedDialog::equipNumbers()
{
    numbers_ = findChild<NumberList *>("Combo1");
    connect(numbers_, &NumberList::left, this, [this] { takeTyped(true); });
}

void NumberedDialog::openRow(int row)
{
    fillLists();
    showRow(row);
    focusAndSelect(firstField());
    exec();
}

void NumberedDialog::showRow(int row)
{
    numbers_->showNumber(row);
    load(row);
}

void NumberedDialog::load(int row)
{
    loaded_ = row;
    showLoaded();
}

bool NumberedDialog::takeTyped(bool isLeft)
{
    const double number = numbers_->number();
    if (!isRowNumber(number) || number > rowCount())
        return takeOther(isLeft);
    const int row = static_cast<int>(number);
    if (row == loaded_)
        numbers_->showNumber(row); // what was typed behind it goes
    else
        showRow(row);
    return true;
}

bool NumberedDialog::isReady(bool deletes)
{
    const int before = loaded_;
    if (!takeTyped(false))
        return false;
    if (loaded_ == before || (deletes && loaded_ == 0)) // which Delete refuses
        return true;
    focusAndSelect(firstField());
    return false;
}

bool NumberedDialog::takeEntered(QWidget *field)
{
    return field != numbers_ || takeTyped(false);
}

} // namespace veskora

#include "moc_NumberedDialog.cpp"
