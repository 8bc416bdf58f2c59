#pragma once
/// @file
/// Numbers: reading them from text, narrowing, rounding, and turning them into text.
///
/// None of this depends on the locale of the process.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veskora {

/// The number that a text begins with: blanks, a sign, digits, one point, an exponent behind E or
/// e; or "&H" and up to eight hexadecimal digits, read as a signed 32-bit word. What follows is
/// ignored, and a text without digits gives 0. Beyond a Double's range the result is infinite; but
/// what `numberText` makes of the largest Doubles, which is beyond it, is the largest one.
double Val(std::string_view text);

/// The same; none where there are no digits.
std::optional<double> leadingNumber(std::string_view text);

/// Whether the number that `Val` takes from @p text ends where a further point stands, as in
/// "1.234.56", or blanks or apostrophes that more digits follow, as in "210 000 000" and "2.1 E8",
/// and so is not the number that was meant.
bool breaksOffAtSeparator(std::string_view text);

/// The number that @p text is as a whole, blanks around it aside; none where it is anything else,
/// infinite, or beyond a Double's range.
std::optional<double> numberFromWholeText(std::string_view text);

/// The numbers that @p text lists as in "1-3, 7", in its order, blanks aside; none where it is
/// anything else or one of them is not from 1 to @p last.
std::optional<std::vector<int>> rowsFromList(std::string_view text, int last);

/// @p value as the Single that the tables store; none where a Single cannot hold it.
std::optional<float> toSingle(double value);

/// Rounds to @p decimals decimals, ties to the even integer of the last place. The power of ten is
/// a Single and the product a signed 32-bit integer; a product beyond it gives 0.
double Stroggylopoiisi(double value, std::int16_t decimals);

/// Direction angle of the vector (@p dx, @p dy), radians from 0 up to 2 pi; 0 for the zero vector.
double Gonia_Dianysmatos(double dx, double dy);

/// Radians to degrees with 15 digits of pi, so that the angles of both vertical directions come out
/// a little above 90 and 270.
double Se_Moires(double angle);

/// @p x rounded to a whole multiple of @p step, and to one of the grid's.
double Stroggylopoiisi_Bima(double x, double step);
double Kannabos_Sintetagmeni(double x);

/// Distance of point (@p px, @p py) from the infinite line through two points; not a number where
/// the two are one.
double Apostasi_Apo_Eutheia(double x1, double y1, double x2, double y2, double px, double py);

/// Default number text: up to 7 significant digits of a Single, 15 of a Double, no trailing zeros,
/// exponent form when the size demands it (2.1E+08); -0 is 0. The separator is always the point.
std::string numberText(float value);
std::string numberText(double value);
std::string numberText(int value);

/// @p value as the default number text, with @p digits significant digits; "inf" and "nan" as they
/// are.
std::string roundedText(double value, int digits);

/// The digits of `numberText` with one blank before a number that is not negative and without the
/// zero before a decimal point: " .5", "-.25", " 1000".
std::string signedNumberText(float value);
std::string signedNumberText(double value);

/// The decimal separator of the user's regional settings; "." where none is told.
std::string regionalDecimalSeparator();

/// The number text @p text with @p separator in place of its point.
std::string withSeparator(std::string text, const std::string &separator);

} // namespace veskora
