#include "MathFunc.h"

#include "Metablites.h"
#include "Settings.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <langinfo.h>
#include <limits>
#include <locale.h>
#include <utility>

namespace veskora {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view withoutLeadingBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A decimal number at the start of a text, scanned by hand: `std::from_chars` would take "inf" and
/// "nan", and refuses a plus sign.
struct Decimal
{
    bool negative = false;
    std::string_view magnitude; ///< digits, point and exponent; empty when there is no digit
    std::size_t length = 0;     ///< of all of it, the sign included
};

Decimal scanDecimal(std::string_view text)
{
    Decimal decimal;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        decimal.negative = text[at++] == '-';
    const std::size_t start = at;
    bool digits = false;
    const auto skipDigits = [&] {
        bool any = false;
        for (; at < text.size() && isDigit(text[at]); ++at)
            any = true;
        return any;
    };
    digits = skipDigits();
    if (at < text.size() && text[at] == '.') {
        ++at;
        digits = skipDigits() || digits;
    }
    if (!digits)
        return decimal;
    if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
        const std::size_t mantissaEnd = at++;
        if (at < text.size() && (text[at] == '+' || text[at] == '-'))
            ++at;
        if (!skipDigits())
            at = mantissaEnd;
    }
    decimal.magnitude = text.substr(start, at - start);
    decimal.length = at;
    return decimal;
}

/// The decimal exponent of a magnitude that is out of a Double's range, and its mantissa.
struct Scaled
{
    std::string_view mantissa;
    long exponent;
};

Scaled scaled(std::string_view magnitude)
{
    const std::size_t e = magnitude.find_first_of("Ee");
    long exponent = 0;
    if (e != std::string_view::npos) {
        std::string_view digits = magnitude.substr(e + 1);
        const bool negative = digits.front() == '-';
        if (!isDigit(digits.front()))
            digits.remove_prefix(1);
        constexpr long beyondAnyText = 1'000'000'000'000;
        if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec
            != std::errc())
            exponent = beyondAnyText;
        exponent = negative ? -exponent : exponent;
    }
    return {magnitude.substr(0, e), exponent};
}

/// Whether a magnitude out of a Double's range is too large; else it is too small.
bool isHuge(const Scaled &number)
{
    const std::size_t first = number.mantissa.find_first_of("123456789");
    const std::size_t point = std::min(number.mantissa.find('.'), number.mantissa.size());
    const long leading =
        first < point ? static_cast<long>(point - first) : -static_cast<long>(first - point - 1);
    return leading + number.exponent > 0;
}

/// The text of the largest Doubles is rounded up to 15 digits, beyond the largest of them.
bool isTextOfLargest(const Scaled &number)
{
    const std::string tenth =
        std::string(number.mantissa) + "E" + std::to_string(number.exponent - 1);
    double value = 0;
    return std::from_chars(tenth.data(), tenth.data() + tenth.size(), value).ec == std::errc()
           && value <= 1.79769313486232E+307;
}

double magnitudeOutOfRange(const Scaled &number)
{
    if (!isHuge(number))
        return 0;
    return isTextOfLargest(number) ? std::numeric_limits<double>::max()
                                   : std::numeric_limits<double>::infinity();
}

double convert(const Decimal &decimal)
{
    double value = 0;
    const std::string_view magnitude = decimal.magnitude;
    const auto [end, error] =
        std::from_chars(magnitude.data(), magnitude.data() + magnitude.size(), value);
    if (error == std::errc::result_out_of_range)
        value = magnitudeOutOfRange(scaled(magnitude));
    return decimal.negative ? -value : value;
}

std::optional<double> hexadecimalWord(std::string_view digits)
{
    constexpr std::size_t wordDigits = 8;
    std::uint32_t word = 0;
    digits = digits.substr(0, wordDigits);
    if (std::from_chars(digits.data(), digits.data() + digits.size(), word, 16).ec != std::errc())
        return std::nullopt;
    return std::bit_cast<std::int32_t>(word);
}

template <typename Number>
std::string general(Number value, int digits)
{
    if (value == 0)
        return "0"; // of either sign
    std::array<char, 40> buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::general, digits);
    std::string text(buffer.data(), end);
    if (const std::size_t e = text.find('e'); e != std::string::npos)
        text[e] = 'E';
    return text;
}

std::string withSignPlace(std::string text)
{
    const bool negative = text.front() == '-';
    if (!negative)
        text.insert(text.begin(), ' ');
    if (text.compare(1, 2, "0.") == 0)
        text.erase(1, 1);
    return text;
}

} // namespace

std::optional<double> leadingNumber(std::string_view text)
{
    text = withoutLeadingBlanks(text);
    if (text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h'))
        return hexadecimalWord(text.substr(2));
    const Decimal decimal = scanDecimal(text);
    return decimal.magnitude.empty() ? std::nullopt : std::optional(convert(decimal));
}

double Val(std::string_view text)
{
    return leadingNumber(text).value_or(0);
}

bool breaksOffAtSeparator(std::string_view text)
{
    text = withoutLeadingBlanks(text);
    const std::size_t end = scanDecimal(text).length;
    if (end == 0 || end == text.size())
        return false;
    text.remove_prefix(end);
    if (text.front() == '.')
        return true;
    const std::size_t before = text.size();
    // Blanks, also a no-break, a thin, a figure and a narrow no-break one; the two apostrophes.
    for (const std::string_view separator :
         {" ", "\t", "\u00A0", "\u2007", "\u2009", "\u202F", "'", "\u2019"})
        while (text.starts_with(separator))
            text.remove_prefix(separator.size());
    if (text.size() == before)
        return false;
    if (text.starts_with('E') || text.starts_with('e')) { // an exponent belongs to the number too
        text.remove_prefix(1);
        if (text.starts_with('-') || text.starts_with('+'))
            text.remove_prefix(1);
    }
    return !text.empty() && isDigit(text.front());
}

std::optional<double> numberFromWholeText(std::string_view text)
{
    text = withoutLeadingBlanks(text);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    const Decimal decimal = scanDecimal(text);
    if (decimal.magnitude.empty() || decimal.length != text.size())
        return std::nullopt;
    const double value = convert(decimal);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<std::vector<int>> rowsFromList(std::string_view text, int last)
{
    const auto take = [&](int least) {
        text = withoutLeadingBlanks(text);
        int row = 0;
        const auto [rest, fault] = std::from_chars(text.data(), text.data() + text.size(), row);
        text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
        text = withoutLeadingBlanks(text);
        return fault == std::errc() && row >= least && row <= last ? row : 0;
    };
    const auto skip = [&](char sign) {
        const bool isThere = text.starts_with(sign);
        text.remove_prefix(isThere ? 1 : 0);
        return isThere;
    };
    std::vector<int> rows;
    do {
        const int first = take(1);
        const int end = first != 0 && skip('-') ? take(first) : first;
        if (end == 0)
            return std::nullopt;
        for (int row = first; row <= end; ++row)
            rows.push_back(row);
    } while (skip(','));
    return text.empty() ? std::optional(rows) : std::nullopt;
}

std::optional<float> toSingle(double value)
{
    const auto single = static_cast<float>(value);
    return std::isfinite(single) ? std::optional(single) : std::nullopt;
}

double Stroggylopoiisi(double value, std::int16_t decimals)
{
    const auto power = static_cast<float>(std::pow(10.0, decimals));
    const double product = std::nearbyint(value * power); // the rounding mode is never changed
    if (!(product >= std::numeric_limits<std::int32_t>::min()
          && product <= std::numeric_limits<std::int32_t>::max())
        || power == 0)
        return 0;
    return static_cast<std::int32_t>(product) / static_cast<double>(power);
}

double Gonia_Dianysmatos(double dx, double dy)
{
    const double quarter = std::atan(1.0); // of pi
    if (dx == 0)
        return dy == 0 ? 0 : dy > 0 ? 2 * quarter : 6 * quarter;
    const double angle = std::atan(dy / dx);
    if (dx < 0)
        return angle + 4 * quarter;
    return dy < 0 ? angle + 8 * quarter : angle;
}

double Se_Moires(double angle)
{
    return 180 * angle / 3.14159265358979;
}

double Stroggylopoiisi_Bima(double x, double step)
{
    return Stroggylopoiisi(x / step, 0) * step;
}

double Kannabos_Sintetagmeni(double x)
{
    return Stroggylopoiisi_Bima(x, kannab);
}

double Apostasi_Apo_Eutheia(double x1, double y1, double x2, double y2, double px, double py)
{
    const double A = y1 - y2;
    const double B = x2 - x1;
    const double C = x1 * y2 - x2 * y1;
    return std::abs(A * px + B * py + C) / std::sqrt(A * A + B * B);
}

std::string numberText(float value)
{
    return general(value, 7);
}

std::string numberText(double value)
{
    return general(value, 15);
}

std::string numberText(int value)
{
    return std::to_string(value);
}

std::string roundedText(double value, int digits)
{
    std::array<char, 32> text;
    const char *end = std::to_chars(text.data(), text.data() + text.size(), value,
                                    std::chars_format::scientific, digits - 1)
                          .ptr;
    const std::string_view rounded(text.data(), static_cast<std::size_t>(end - text.data()));
    return std::isfinite(value) ? numberText(Val(rounded)) : std::string(rounded);
}

std::string signedNumberText(float value)
{
    return withSignPlace(numberText(value));
}

std::string signedNumberText(double value)
{
    return withSignPlace(numberText(value));
}

namespace {

/// The separator of the region that the environment names.
std::string separatorOfEnvironment()
{
    // A locale of its own: the process's is that of all threads.
    const locale_t region = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (region == nullptr) // one that the system lacks
        return ".";
    std::string separator = ::nl_langinfo_l(RADIXCHAR, region);
    ::freelocale(region);
    return separator.empty() ? "." : separator;
}

} // namespace

std::string regionalDecimalSeparator()
{
    // Each report asks several times, and the system reads its files anew each time.
    static thread_local std::string knownFor = "\n", separator;
    std::string environment;
    for (const char *name : {"LC_ALL", "LC_NUMERIC", "LANG", "LOCPATH"})
        if (const char *value = std::getenv(name))
            (environment += value) += '\n';
        else
            environment += '\n';
    if (std::exchange(knownFor, environment) != environment)
        separator = separatorOfEnvironment();
    return separator;
}

std::string withSeparator(std::string text, const std::string &separator)
{
    if (separator == ".")
        return text;
    if (const std::size_t point = text.find('.'); point != std::string::npos)
        text.replace(point, 1, separator);
    return text;
}

} // namespace veskora
