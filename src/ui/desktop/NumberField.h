#pragma once
/// @file
/// Fields that take numbers.

class QLineEdit;

namespace veskora {

/// Makes a decimal comma a point in @p field, typed or pasted. Some keypads have no other key.
void takeDecimalComma(QLineEdit *field);

/// The number that is typed in @p field.
double typedNumber(const QLineEdit *field);

} // namespace veskora
