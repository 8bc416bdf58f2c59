#include "NumberList.h"

#include "MathFunc.h"
#include "Text.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include <cmath>

namespace veskora {

NumberList::NumberList(QWidget *parent) : QComboBox(parent)
{
    constexpr int digits = 5;
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setMinimumContentsLength(digits);
    setFocusPolicy(Qt::StrongFocus); // the wheel gives none
    // Qt would pick what is typed also when another window comes to the front.
    disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
    connect(this, &QComboBox::activated, this, [this](int index) {
        emit picked(index + 1);
        lineEdit()->selectAll();
    });
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
    const std::string text = plainText(currentText());
    // "2-20" is a load that was typed behind the number, and no wish for row 2.
    const bool hasSign = text.find('+') != text.npos || text.find('-', 1) != text.npos;
    return hasSign || breaksOffAtSeparator(text) ? 0 : Val(text);
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
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        selectTyped();
        break;
    default:
        break;
    }
    QComboBox::keyPressEvent(event);
}

void NumberList::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    selectTyped();
    QComboBox::wheelEvent(event);
}

void NumberList::focusOutEvent(QFocusEvent *event)
{
    QComboBox::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason
        && reason != Qt::MenuBarFocusReason)
        emit left();
}

bool isRowNumber(double number)
{
    return number >= 1 && number == std::floor(number) && std::isfinite(number);
}

} // namespace veskora

#include "moc_NumberList.cpp"
