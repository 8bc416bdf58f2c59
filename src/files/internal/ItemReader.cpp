#include "ItemReader.h"

#include "Fault.h"
#include "MathFunc.h"
#include "PrintableText.h"

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

constexpr std::size_t longestItem = 4096; ///< with its separator; none of ours comes near it
constexpr std::size_t longestQuote = 40;

} // namespace

int ItemReader::peek()
{
    if (at_ == filled_) {
        at_ = 0;
        filled_ = file_.read(buffer_.data(), buffer_.size());
        if (filled_ == 0)
            return endOfFile;
    }
    return static_cast<unsigned char>(buffer_[at_]);
}

int ItemReader::next()
{
    const int c = peek();
    if (c == endOfFile)
        return c;
    ++at_;
    ++itemLength_;
    if (isItemTooLong())
        refuse("an item longer than " + std::to_string(longestItem) + " bytes");
    return c;
}

bool ItemReader::isSeparator(int c)
{
    return c == endOfFile || c == ',' || c == '\r' || c == '\n';
}

void ItemReader::endItem(int separator)
{
    if (separator == '\r' && peek() == '\n')
        (void)next();
    if (separator == '\r' || separator == '\n')
        ++line_;
}

bool ItemReader::isItemTooLong() const
{
    return itemLength_ > longestItem;
}

void ItemReader::beginItem()
{
    itemLine_ = line_;
    itemLength_ = 0;
}

std::string ItemReader::item()
{
    beginItem();
    std::string text;
    int c = next();
    if (c == endOfFile)
        throw Fault("Input past end of file in line " + std::to_string(itemLine_));
    for (; !isSeparator(c); c = next())
        text += static_cast<char>(c);
    if (c == ',' && commaLine_ == 0)
        commaLine_ = line_;
    endItem(c);
    return text;
}

bool ItemReader::follows(std::string_view text)
{
    beginItem();
    return std::ranges::all_of(text,
                               [this](char c) { return next() == static_cast<unsigned char>(c); });
}

std::string ItemReader::quotableItem()
{
    const auto isBlank = [](int c) { return c == ' ' || c == '\t'; };
    beginItem();
    std::string text;
    int c = next();
    if (c == endOfFile)
        throw Fault("Line " + std::to_string(itemLine_) + ": the file ends too early, without END");
    while (isBlank(c))
        c = next();
    if (c == '"') {
        for (c = next(); c != '"'; c = next()) {
            if (c == endOfFile || c == '\r' || c == '\n')
                fail("a closing quotation mark", text);
            text += static_cast<char>(c);
        }
        for (c = next(); isBlank(c);)
            c = next();
        if (!isSeparator(c))
            fail("a comma or the line's end behind a quoted text",
                 std::string(1, static_cast<char>(c)));
    } else {
        for (; !isSeparator(c); c = next())
            text += static_cast<char>(c);
        while (!text.empty() && isBlank(text.back()))
            text.pop_back();
    }
    endItem(c);
    return text;
}

void ItemReader::skipByteOrderMark()
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    (void)peek();
    if (std::string_view(buffer_.data(), filled_).starts_with(mark))
        at_ = mark.size();
}

std::string ItemReader::quoted(const std::string &item)
{
    std::string text = "'";
    return (text += printableText(item, longestQuote)) += "'";
}

void ItemReader::refuse(const std::string &facts) const
{
    std::string text = "Line " + std::to_string(itemLine_) + ": " + facts;
    // A decimal comma shifts all that follows, and the reader stumbles far behind it.
    if (commaLine_ != 0)
        text += " (the comma in line " + std::to_string(commaLine_)
                + " ended an item: the decimal separator is the point)";
    throw Fault(text);
}

void ItemReader::fail(std::string_view what, const std::string &item) const
{
    refuse(std::string(what) + " expected, found " + quoted(item));
}

double ItemReader::asDouble(const std::string &item, std::string_view what) const
{
    const std::optional<double> value = numberFromWholeText(item);
    if (!value)
        fail(what, item);
    return *value;
}

float ItemReader::asSingle(const std::string &item, std::string_view what) const
{
    const std::optional<float> value = toSingle(asDouble(item, what));
    if (!value)
        fail(what, item);
    return *value;
}

int ItemReader::asInteger(const std::string &item, std::string_view what, int least, int most) const
{
    const double value = asDouble(item, what);
    if (!(value >= least && value <= most && value == std::floor(value)))
        fail(what, item);
    return static_cast<int>(value);
}

std::int16_t ItemReader::asCount(const std::string &item, const std::string &rows, int most) const
{
    const std::string what = "the number of " + rows;
    if (asDouble(item, what) > most)
        refuse("at most " + std::to_string(most) + " " + rows + ", found " + quoted(item));
    return static_cast<std::int16_t>(asInteger(item, what, 0, most));
}

int ItemReader::asRow(const std::string &item, const std::string &row, int count) const
{
    const std::optional<double> number = numberFromWholeText(item);
    if (!number || *number != std::floor(*number))
        fail("a " + row + " of the model", item);
    if (*number < 1 || *number > count)
        refuse(row + " " + numberText(*number) + " of " + std::to_string(count));
    return static_cast<int>(*number);
}

} // namespace veskora
