#pragma once

#include <QComboBox>

#include <optional>

namespace veskora {

/// A list of row numbers 1, 2, ... in which anything can be typed as well. Typed text never becomes
/// an item and is never completed. The wheel turns it only while it has the focus, so that a window
/// can be scrolled over it.
class NumberList : public QComboBox
{
    Q_OBJECT
public:
    explicit NumberList(QWidget *parent = nullptr);

    /// Lists 1 to @p last; the text stays. No signal.
    void fill(int last);
    /// Shows @p number, or nothing. No signal.
    void showNumber(std::optional<int> number);

    /// The number that the text begins with; 0 without one, or where a separator or a sign cuts it.
    double number() const;
    /// The same if it is one of the list.
    std::optional<int> row() const;

signals:
    /// Picked from the list, or reached with the arrow keys or the wheel.
    void picked(int number);
    /// The focus went on to another field of the window.
    void left();

protected:
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void selectTyped();
};

/// Whether @p number can be a row number: whole, and 1 or more.
bool isRowNumber(double number);

} // namespace veskora
