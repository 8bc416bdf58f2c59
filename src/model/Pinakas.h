#pragma once
/// @file
/// Tables of fixed size whose rows and columns count from 1.

#include "Fault.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace veskora {

[[noreturn]] inline void subscriptFault(int row, int rows, int column, int columns)
{
    throw Fault("Subscript (" + std::to_string(row) + ", " + std::to_string(column)
                + ") out of range in a table of " + std::to_string(rows) + " by "
                + std::to_string(columns));
}

/// A table of @p Rows by @p Columns values, all 0 at the start. An index out of range is a `Fault`
/// in every build; a loop over many columns takes a row first.
///
/// @tparam FirstRow  the number of the first row, 1 nearly everywhere
template <typename T, int Rows, int Columns = 1, int FirstRow = 1>
class Pinakas
{
public:
    static constexpr int rows = Rows;
    static constexpr int columns = Columns;

    T &operator()(int row, int column = 1) { return cells_[index(row, column)]; }
    const T &operator()(int row, int column = 1) const { return cells_[index(row, column)]; }

    /// One row; element 0 of the span is column 1.
    std::span<T, Columns> row(int row)
    {
        return std::span<T, Columns>(&cells_[index(row, 1)], Columns);
    }
    std::span<const T, Columns> row(int row) const
    {
        return std::span<const T, Columns>(&cells_[index(row, 1)], Columns);
    }

    /// Makes every cell 0.
    void clear() { cells_.fill(T{}); }

    /// Moves every row behind @p row up to @p last one place down and makes row @p last 0, all in
    /// the columns up to @p lastColumn.
    void removeRow(int row, int last, int lastColumn = Columns)
    {
        if (row > last)
            subscriptFault(row, Rows, 1, Columns);
        for (int k = row; k <= last; ++k)
            for (int column = 1; column <= lastColumn; ++column)
                (*this)(k, column) = k < last ? (*this)(k + 1, column) : T{};
    }

private:
    static std::size_t index(int row, int column)
    {
        if (row < FirstRow || row >= FirstRow + Rows || column < 1 || column > Columns) [[unlikely]]
            subscriptFault(row, Rows, column, Columns);
        return static_cast<std::size_t>(row - FirstRow) * Columns
               + static_cast<std::size_t>(column - 1);
    }

    std::array<T, static_cast<std::size_t>(Rows) * Columns> cells_{};
};

/// A large table of Doubles that remembers which stretch of each row was written, so that clearing
/// it and walking its non-zero part cost what is used and not what is dimensioned. What it holds is
/// what a table created afresh would hold.
template <int Rows, int Columns>
class PinakasErgasias
{
public:
    static constexpr int rows = Rows;
    static constexpr int columns = Columns;

    /// The columns of one row that may hold anything but +0; empty when first > last.
    struct Stretch
    {
        int first;
        int last;
    };

    double operator()(int row, int column) const { return cells_[index(row, column)]; }
    /// A cell to write.
    double &operator()(int row, int column)
    {
        double &cell = cells_[index(row, column)];
        widen(row, column, column);
        return cell;
    }

    Stretch stretch(int row) const
    {
        (void)index(row, 1);
        const Used &used = used_[static_cast<std::size_t>(row - 1)];
        return {Columns + 1 - used.fromEnd, used.last};
    }

    /// Columns @p first to @p last of a row, to be written; empty when first > last.
    std::span<double> write(int row, int first, int last)
    {
        if (first > last)
            return {};
        double *cell = &cells_[index(row, first)];
        (void)index(row, last);
        widen(row, first, last);
        return {cell, static_cast<std::size_t>(last - first + 1)};
    }

    /// Columns @p first to @p last of a row; empty when first > last.
    std::span<const double> read(int row, int first, int last) const
    {
        if (first > last)
            return {};
        const double *cell = &cells_[index(row, first)];
        (void)index(row, last);
        return {cell, static_cast<std::size_t>(last - first + 1)};
    }

    /// The whole row for a routine that tells by `markWritten` which part it writes.
    std::span<double, Columns> unmarked(int row)
    {
        return std::span<double, Columns>(&cells_[index(row, 1)], Columns);
    }
    void markWritten(int row, int first, int last) { (void)write(row, first, last); }

    /// Makes every cell 0.
    void clear()
    {
        for (int row = 1; row <= Rows; ++row) {
            const auto [first, last] = stretch(row);
            std::ranges::fill(write(row, first, last), 0.0);
            used_[static_cast<std::size_t>(row - 1)] = Used{};
        }
    }

private:
    // Rows begin on a cache line.
    static constexpr std::size_t pitch = (static_cast<std::size_t>(Columns) + 7) / 8 * 8;

    static std::size_t index(int row, int column)
    {
        if (row < 1 || row > Rows || column < 1 || column > Columns) [[unlikely]]
            subscriptFault(row, Rows, column, Columns);
        return static_cast<std::size_t>(row - 1) * pitch + static_cast<std::size_t>(column - 1);
    }

    void widen(int row, int first, int last)
    {
        Used &used = used_[static_cast<std::size_t>(row - 1)];
        used.fromEnd = std::max(used.fromEnd, Columns + 1 - first);
        used.last = std::max(used.last, last);
    }

    /// The stretch of a row, the first column counted from the end: a table that was never written
    /// is all zero bits, and the program's file need not hold it.
    struct Used
    {
        int fromEnd = 0;
        int last = 0;
    };

    alignas(64) std::array<double, Rows * pitch> cells_{};
    std::array<Used, Rows> used_{};
};

/// Whether @p value is +0 to the bit; -0 is not.
inline bool isPositiveZero(double value)
{
    return std::bit_cast<std::uint64_t>(value) == 0;
}

} // namespace veskora
