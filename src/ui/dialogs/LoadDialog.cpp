#include "LoadDialog.h"

#include "MathFunc.h"
#include "NumberList.h"
#include "RowQueries.h"
#include "Text.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

#include <algorithm>

namespace veskora {

void LoadDialog::equipLoads(const QList<QLineEdit *> &fields, QLabel *caption, Texts texts)
{
    fields_ = fields;
    caption_ = caption;
    texts_ = std::move(texts);
    loadedRows_ = findChild<QListWidget *>("List1");
    equipNumbers();
    caption_->setText(qtText(texts_.loadedRows));
    equip();
    captionText_ = caption_->text(); // with its mnemonic, for every count

    constexpr int rowsInSight = 7;
    loadedRows_->setMinimumHeight(rowsInSight * loadedRows_->fontMetrics().lineSpacing());
    caption_->setText(captionText_ + " 000");
    resize(minimumSizeHint());

    chainEnter({loadedRows_, fields_.first()});
    QList<QWidget *> chain = {numbers()};
    chain.append(QList<QWidget *>(fields_.begin(), fields_.end()));
    chainEnter(chain);
    connect(numbers(), &NumberList::picked, this, &LoadDialog::showRow);
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

void LoadDialog::refill()
{
    if (rowCount() == 0)
        return reject(); // it would have no row to show
    fillLists();
    showRow(std::min(loaded(), rowCount()));
}

QWidget *LoadDialog::firstField() const
{
    return fields_.first();
}

void LoadDialog::fillLists()
{
    numbers()->fill(rowCount());
    listLoadedRows();
}

void LoadDialog::showLoaded()
{
    for (qsizetype i = 0; i < fields_.size(); ++i)
        showNonZero(fields_[i], loads(loaded())[static_cast<std::size_t>(i)]);
    const QSignalBlocker silent(loadedRows_);
    const auto items = loadedRows_->findItems(QString::number(loaded()), Qt::MatchExactly);
    loadedRows_->setCurrentItem(items.value(0));
}

/// An emptied list stands for the row that is shown.
bool LoadDialog::takeOther(bool isLeft)
{
    if (!isLeft && !(numbers()->currentText().trimmed().isEmpty() && loaded() <= rowCount()))
        return refuse(noSuchRow(), numbers());
    numbers()->showNumber(loaded());
    return true;
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

void LoadDialog::apply()
{
    for (QLineEdit *field : fields_)
        if (!typedSingle(field)) {
            refuseOverflow(field);
            return;
        }
    const std::span<float> values = loads(loaded());
    const bool wasLoaded = isLoaded(values);
    for (qsizetype i = 0; i < fields_.size(); ++i)
        values[static_cast<std::size_t>(i)] = typedSingle(fields_[i]).value();
    logLoads(texts_.lines, loaded(), values, wasLoaded);
    finish();
}

void LoadDialog::remove()
{
    const std::span<float> values = loads(loaded());
    if (!isLoaded(values)) {
        refuse(texts_.nothingToDelete + numberText(loaded()) + ".", numbers());
        return;
    }
    std::ranges::fill(values, 0.0F);
    logLoads(texts_.lines, loaded(), values, true);
    finish();
}

void LoadDialog::finish()
{
    listLoadedRows();
    showRow(loaded());
    modelChanged();
    focusAndSelect(numbers());
}

} // namespace veskora
