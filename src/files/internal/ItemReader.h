#pragma once
/// @file
/// Text files item by item.

#include "FileSystem.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace veskora {

/// Reads items separated by commas and line ends (CR LF, LF or CR); an empty line is one empty
/// item, and what follows the last line end is no item. Items keep their blanks.
/// Every read past the end, every item that is not what is asked for, and one longer than any that
/// the program writes, is a `Fault` that names the line.
class ItemReader
{
public:
    explicit ItemReader(const std::string &path) : file_(path) {}

    std::string item();
    void skip() { (void)item(); }
    /// Whether @p text begins the next item, and if so reads it; else it has read some of that. The
    /// end of the file, and any item, however long, are a no and no fault.
    bool follows(std::string_view text);
    /// Whether the last fault was that the item is longer than any that the program writes.
    bool isItemTooLong() const;

    /// The next item, which may be a text between quotation marks on one line; blanks around it do
    /// not count. Inside the marks a comma separates nothing.
    std::string quotableItem();
    /// At the beginning of a file: what some editors put before UTF-8.
    void skipByteOrderMark();

    /// @name The item last read, as a number
    /// @p what names it in the fault's text, as in "x coordinate".
    /// @{
    double asDouble(const std::string &item, std::string_view what) const;
    float asSingle(const std::string &item, std::string_view what) const;
    int asInteger(const std::string &item, std::string_view what, int least, int most) const;
    /// How many @p rows ("nodes") follow, @p most at most.
    std::int16_t asCount(const std::string &item, const std::string &rows, int most) const;
    /// The number of a @p row ("node") of @p count.
    int asRow(const std::string &item, const std::string &row, int count) const;
    /// @}

    /// Throws the fault that @p item, the item last read, is not @p what.
    [[noreturn]] void fail(std::string_view what, const std::string &item) const;

private:
    static constexpr int endOfFile = -1;

    int next();
    int peek();
    static bool isSeparator(int c);
    static std::string quoted(const std::string &item);
    /// Throws a fault of the line in which the item last read stands.
    [[noreturn]] void refuse(const std::string &facts) const;
    void beginItem();
    void endItem(int separator);

    InputFile file_;
    std::array<char, 16384> buffer_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    std::size_t itemLength_ = 0; ///< bytes read since the item began
    long line_ = 1;              ///< the reader stands in this line
    long itemLine_ = 1;          ///< the item last read stands in this one
    long commaLine_ = 0;         ///< the first line that held a comma, 0 when none did
};

} // namespace veskora
