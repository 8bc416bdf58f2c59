#include "LoadDialog.h"

#include "Functions.h"
#include "MathFunc.h"
#include "NumberList.h"
#include "QtDesktop.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

#include <algorithm>
#include <array>

namespace veskora {

namespace {

bool isLoaded(std::span<const float> values)
{
    return std::ranges::any_of(values, [](float value) { return value != 0; });
}

} // namespace

void LoadDialog::equipLoads(const QList<QLineEdit *> &fields, QLabel *caption, Texts texts)
{
    fields_ = fields;
    caption_ = caption;
    texts_ = std::move(texts);
    numbers_ = findChild<NumberList *>("Combo1");
    loadedRows_ = findChild<QListWidget *>("List1");
    numbers_->takeOnlyItems();
    caption_->setText(qtText(texts_.loadedRows));
    equip();
    captionText_ = caption_->text(); // with its mnemonic, for every count

    constexpr int rowsInSight = 7;
    loadedRows_->setMinimumHeight(rowsInSight * loadedRows_->fontMetrics().lineSpacing());
    caption_->setText(captionText_ + " 000");
    resize(minimumSizeHint());

    chainEnter({loadedRows_, fields_.first()});
    QList<QWidget *> chain = {numbers_};
    chain.append(QList<QWidget *>(fields_.begin(), fields_.end()));
    chainEnter(chain);
    connect(numbers_, &NumberList::picked, this, &LoadDialog::showRow);
    connect(numbers_, &NumberList::entered, this, [this] { showRow(row()); });
    const auto choose = [this] {
        if (const QListWidgetItem *item = loadedRows_->currentItem())
            showRow(item->text().toInt());
    };
    connect(loadedRows_, &QListWidget::currentRowChanged, this, choose);
    connect(loadedRows_, &QListWidget::itemClicked, this, choose);
}

void LoadDialog::openFirst()
{
    openRow(1);
}

void LoadDialog::openRow(int row)
{
    numbers_->fill(rowCount());
    listLoadedRows();
    showRow(row);
    lead(fields_.first());
    exec();
}

/// The row that the list shows; an emptied list goes back to the row that was loaded last.
int LoadDialog::row()
{
    const int shown = numbers_->row().value_or(loaded_);
    numbers_->showNumber(shown);
    return shown;
}

void LoadDialog::showRow(int row)
{
    numbers_->showNumber(row);
    loaded_ = row;
    for (std::size_t i = 0; QLineEdit * field : fields_)
        showNonZero(field, loads(row)[i++]);
    const QSignalBlocker silent(loadedRows_);
    const auto items = loadedRows_->findItems(QString::number(row), Qt::MatchExactly);
    loadedRows_->setCurrentItem(items.value(0));
}

void LoadDialog::listLoadedRows()
{
    const QSignalBlocker silent(loadedRows_);
    loadedRows_->clear();
    for (int row = 1; row <= rowCount(); ++row)
        if (isLoaded(loads(row)))
            loadedRows_->addItem(QString::number(row));
    caption_->setText(captionText_ + ' ' + QString::number(loadedRows_->count()));
}

std::string LoadDialog::valuesText(std::span<const float> values)
{
    static constexpr std::array<const char *, 3> names = {", Fx= ", ", Fy= ", ", M= "};
    std::string text;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i] != 0)
            text += names[i] + numberText(values[i]);
    return text;
}

void LoadDialog::apply()
{
    for (QLineEdit *field : fields_)
        if (!typedSingle(field)) {
            refuseOverflow(field);
            return;
        }
    const int row = this->row();
    const std::span<float> values = loads(row);
    const bool wasLoaded = isLoaded(values);
    for (std::size_t i = 0; const QLineEdit *field : fields_)
        values[i++] = typedSingle(field).value();
    const std::string number = numberText(row);
    if (isLoaded(values))
        Grammi_Log((wasLoaded ? texts_.changed : texts_.isNew) + number + valuesText(values),
                   logColour::navy);
    else if (wasLoaded)
        Grammi_Log(texts_.erased + number, logColour::navy);
    finish(row);
}

void LoadDialog::remove()
{
    const int row = this->row();
    const std::span<float> values = loads(row);
    if (!isLoaded(values)) {
        refuse(texts_.nothingToDelete + numberText(row) + ".", numbers_);
        return;
    }
    std::ranges::fill(values, 0.0F);
    Grammi_Log(texts_.erased + numberText(row), logColour::navy);
    finish(row);
}

void LoadDialog::finish(int row)
{
    listLoadedRows();
    showRow(row);
    modelChanged();
    lead(numbers_);
}

} // namespace veskora
