#pragma once
/// @file
/// Fields that take numbers.

#include <string>

class QLineEdit;
class QWidget;

namespace veskora {

/// Makes a decimal comma a point in @p field, typed or pasted. Some keypads have no other key.
void takeDecimalComma(QLineEdit *field);

/// The first such field of @p form whose number breaks off at a second separator, as 1.234,56 does;
/// none if all can be taken.
QLineEdit *fieldWithTwoSeparators(const QWidget *form);
/// What is said of it.
std::string twoSeparators();

/// The number that is typed in @p field.
double typedNumber(const QLineEdit *field);

} // namespace veskora
