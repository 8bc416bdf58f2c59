#include "ItemReader.h"

#include "Fault.h"
#include "MathFunc.h"

#include <cmath>

namespace veskora {

namespace {

/// No item of a file of ours comes near this; more of a longer one is not kept.
constexpr std::size_t longestItem = 4096;
constexpr std::size_t longestQuote = 40;

std::string quoted(const std::string &item)
{
    std::string text = "'";
    for (const char c : item.substr(0, longestQuote))
        text += static_cast<unsigned char>(c) < ' ' || c == '\x7f' ? '.' : c;
    return text + (item.size() > longestQuote ? "...'" : "'");
}

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
    if (c != endOfFile)
        ++at_;
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

std::string ItemReader::item()
{
    itemLine_ = line_;
    std::string text;
    int c = next();
    if (c == endOfFile)
        throw Fault(Fault::Kind::input,
                    "Input past end of file in line " + std::to_string(itemLine_));
    for (; !isSeparator(c); c = next())
        if (text.size() < longestItem)
            text += static_cast<char>(c);
    if (c == ',' && commaLine_ == 0)
        commaLine_ = line_;
    endItem(c);
    return text;
}

std::string ItemReader::quotableItem()
{
    const auto isBlank = [](int c) { return c == ' ' || c == '\t'; };
    itemLine_ = line_;
    std::string text;
    int c = next();
    if (c == endOfFile)
        throw Fault(Fault::Kind::input,
                    "Line " + std::to_string(itemLine_) + ": the file ends too early, without END");
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

void ItemReader::fail(const char *what, const std::string &item) const
{
    std::string facts =
        "Line " + std::to_string(itemLine_) + ": " + what + " expected, found " + quoted(item);
    // A decimal comma shifts all that follows, and the reader stumbles far behind it.
    if (commaLine_ != 0)
        facts += " (the comma in line " + std::to_string(commaLine_)
                 + " ended an item: the decimal separator is the point)";
    throw Fault(Fault::Kind::input, facts);
}

double ItemReader::asDouble(const std::string &item, const char *what) const
{
    const std::optional<double> value = numberFromWholeText(item);
    if (!value)
        fail(what, item);
    return *value;
}

float ItemReader::asSingle(const std::string &item, const char *what) const
{
    const std::optional<float> value = toSingle(asDouble(item, what));
    if (!value)
        fail(what, item);
    return *value;
}

int ItemReader::asInteger(const std::string &item, const char *what, int least, int most) const
{
    const double value = asDouble(item, what);
    if (!(value >= least && value <= most && value == std::floor(value)))
        fail(what, item);
    return static_cast<int>(value);
}

} // namespace veskora
