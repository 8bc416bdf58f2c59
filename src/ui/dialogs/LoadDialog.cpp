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
    equipNote();
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
    const bool isEmpty = numbers()->currentText().trimmed().isEmpty();
    if (!isLeft && !(isEmpty && loaded() <= rowCount()))
        return refuse(noSuchRow(), numbers());
    if (!isEmpty)
        note(noSuchRow());
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
    store(loaded(), numbers());
}

/// Behind the last row the number list waits, as after Apply.
void LoadDialog::applyAndGoOn()
{
    if (loaded() < rowCount())
        store(loaded() + 1, firstField());
    else
        apply();
}

/// Stores what is typed for the row shown; typing goes on in @p field with the row @p next.
void LoadDialog::store(int next, QWidget *field)
{
    for (QLineEdit *typed : fields_)
        if (!typedSingle(typed)) {
            refuseOverflow(typed);
            return;
        }
    const std::span<float> values = loads(loaded());
    const bool wasLoaded = isLoaded(values);
    for (qsizetype i = 0; i < fields_.size(); ++i)
        values[static_cast<std::size_t>(i)] = typedSingle(fields_[i]).value();
    finish(loadsLine(texts_.lines, loaded(), values, wasLoaded), next, field);
}

void LoadDialog::remove()
{
    const std::span<float> values = loads(loaded());
    if (!isLoaded(values)) {
        refuse(texts_.nothingToDelete + numberText(loaded()) + ".", numbers());
        return;
    }
    std::ranges::fill(values, 0.0F);
    finish(loadsLine(texts_.lines, loaded(), values, true), loaded(), numbers());
}

void LoadDialog::finish(const std::string &done, int next, QWidget *field)
{
    listLoadedRows();
    showRow(next);
    modelChanged();
    showDone(done, field);
}

} // namespace veskora

#include "moc_LoadDialog.cpp"
