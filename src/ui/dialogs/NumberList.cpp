#include "NumberList.h"

#include "MathFunc.h"
#include "QtDesktop.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QValidator>

#include <cmath>

namespace veskora {

namespace {

/// Lets only the numbers of a list be typed; an emptied field waits for one.
class ExistingNumbers : public QValidator
{
public:
    explicit ExistingNumbers(NumberList *list) : QValidator(list), list_(list) {}

    State validate(QString &text, int &) const override
    {
        if (text.isEmpty())
            return Intermediate;
        return list_->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0 ? Acceptable
                                                                                     : Invalid;
    }

private:
    const NumberList *list_;
};

} // namespace

NumberList::NumberList(QWidget *parent) : QComboBox(parent)
{
    constexpr int digits = 5;
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setMinimumContentsLength(digits);
    // Leaving the field would otherwise pick the number typed, and a row load over what is typed
    // elsewhere.
    disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
    connect(this, &QComboBox::activated, this, [this](int index) { emit picked(index + 1); });
}

void NumberList::takeOnlyItems()
{
    setValidator(new ExistingNumbers(this));
}

void NumberList::fill(int last)
{
    const QSignalBlocker silent(this);
    const QString text = currentText();
    QStringList numbers;
    for (int number = 1; number <= last; ++number)
        numbers << QString::number(number);
    clear();
    addItems(numbers);
    setCurrentIndex(findText(text));
    setEditText(text);
}

void NumberList::showNumber(std::optional<int> number)
{
    const QSignalBlocker silent(this);
    const QString text = number ? QString::number(*number) : QString();
    setCurrentIndex(findText(text));
    setEditText(text);
}

double NumberList::number() const
{
    return Val(plainText(currentText()));
}

std::optional<int> NumberList::row() const
{
    const double typed = number();
    return isRowNumber(typed) && typed <= count() ? std::optional(static_cast<int>(typed))
                                                  : std::nullopt;
}

/// The arrow keys go on from what is typed, not from what was picked last.
void NumberList::selectTyped()
{
    if (const auto typed = row(); typed && *typed != currentIndex() + 1)
        showNumber(typed);
}

void NumberList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        selectTyped();
    QComboBox::keyPressEvent(event);
}

void NumberList::wheelEvent(QWheelEvent *event)
{
    selectTyped();
    QComboBox::wheelEvent(event);
}

bool isRowNumber(double number)
{
    return number >= 1 && number == std::floor(number) && std::isfinite(number);
}

} // namespace veskora
