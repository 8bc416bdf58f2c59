#pragma once
/// @file
/// Fields that take numbers.

#include <optional>
#include <string>

class QLineEdit;
class QString;
class QWidget;

namespace veskora {

/// @p text with a point for each comma and a minus of the keyboard for each printed one; it is as
/// long as before, so that a caret stays where it is.
QString withPlainSigns(QString text);

/// Makes a decimal comma a point in @p field, typed or pasted, and a printed minus one of the
/// keyboard. Some keypads have no point.
void takeDecimalComma(QLineEdit *field);

/// The same with the separator of the user's region for both, as a field has that shows numbers
/// beside others of the region.
void takeRegionalSeparator(QLineEdit *field);
/// The number that such a field has; none where its text is not one from end to end.
std::optional<double> wholeTypedNumber(const QLineEdit *field);

/// The first such field of @p form whose number breaks off at a separator, as 1.234,56 does;
/// none if all can be taken.
QLineEdit *fieldCutAtSeparator(const QWidget *form);
/// What is said of it.
std::string cutAtSeparator();

/// The number that is typed in @p field.
double typedNumber(const QLineEdit *field);

} // namespace veskora
