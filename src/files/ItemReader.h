#pragma once
/// @file
/// Text files item by item.

#include "FileSystem.h"

#include <array>
#include <string>

namespace veskora {

/// Reads items separated by commas and line ends (CR LF, LF or CR); an empty line is one empty
/// item, and what follows the last line end is no item. Items keep their blanks.
/// Every read past the end, and every item that is not what is asked for, is a `Fault` of kind
/// `input` that names the line.
class ItemReader
{
public:
    explicit ItemReader(const std::string &path) : file_(path) {}

    std::string item();
    void skip() { (void)item(); }

    /// @name The item last read, as a number
    /// @p what names it in the fault's text, as in "x coordinate".
    /// @{
    double asDouble(const std::string &item, const char *what) const;
    float asSingle(const std::string &item, const char *what) const;
    int asInteger(const std::string &item, const char *what, int least, int most) const;
    /// @}

private:
    [[noreturn]] void fail(const char *what, const std::string &item) const;

    static constexpr int endOfFile = -1;

    int next();
    int peek();

    InputFile file_;
    std::array<char, 16384> buffer_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    long line_ = 1;      ///< the reader stands in this line
    long itemLine_ = 1;  ///< the item last read stands in this one
    long commaLine_ = 0; ///< the first line that held a comma, 0 when none did
};

} // namespace veskora
