#pragma once
/// @file
/// Fields that take numbers.

#include <string>

class QLineEdit;
class QWidget;

namespace veskora {

/// Makes a decimal comma a point in @p field, typed or pasted, and a printed minus one of the
/// keyboard. Some keypads have no point.
void takeDecimalComma(QLineEdit *field);

/// The first such field of @p form whose number breaks off at a separator, as 1.234,56 does;
/// none if all can be taken.
QLineEdit *fieldCutAtSeparator(const QWidget *form);
/// What is said of it.
std::string cutAtSeparator();

/// The number that is typed in @p field.
double typedNumber(const QLineEdit *field);

} // namespace veskora
