#include "elimination.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

// One source, several instruction sets: the loader picks the widest vectors of the machine. Each
// lane does the same separate product and difference, so the width never shows in a result.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)                                \
    && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define VESKORA_VECTOR_CLONES __attribute__((target_clones("default", "avx2", "avx512f")))
#else
#define VESKORA_VECTOR_CLONES
#endif

namespace veskora {

namespace {

/// Pivot rows handled together: a target row is then loaded and stored once for four of them.
constexpr int panelRows = 8;

/// The pivot rows of a panel that touch one target row, in rising order, with their quotients.
struct Operands
{
    std::size_t count = 0;
    std::array<const double *, panelRows> rows;
    std::array<double, panelRows> quotients;
};

/// target[j] = ((target[j] - q0 row0[j]) - q1 row1[j]) - ...; the order of the differences is that
/// of the plain loops.
template <std::size_t Count>
[[gnu::always_inline]] inline void subtract(double *__restrict target, const Operands &operands,
                                            std::size_t from, std::size_t begin, std::size_t end)
{
    std::array<const double *, Count> rows;
    std::array<double, Count> quotients;
    for (std::size_t m = 0; m < Count; ++m) {
        rows[m] = operands.rows[from + m];
        quotients[m] = operands.quotients[from + m];
    }
    for (std::size_t j = begin; j < end; ++j) {
        double value = target[j];
        for (std::size_t m = 0; m < Count; ++m)
            value = value - quotients[m] * rows[m][j];
        target[j] = value;
    }
}

VESKORA_VECTOR_CLONES
void subtractRows(double *target, const Operands &operands, std::size_t begin, std::size_t end)
{
    std::size_t done = 0;
    for (; operands.count - done >= 4; done += 4)
        subtract<4>(target, operands, done, begin, end);
    switch (operands.count - done) {
    case 3:
        return subtract<3>(target, operands, done, begin, end);
    case 2:
        return subtract<2>(target, operands, done, begin, end);
    case 1:
        return subtract<1>(target, operands, done, begin, end);
    default:
        return;
    }
}

/// Whether a number among @p count is infinite or not a number: adding one to an exponent of all
/// ones carries into the sign bit.
VESKORA_VECTOR_CLONES
bool allFinite(const double *values, std::size_t count)
{
    constexpr std::uint64_t exponent = 0x7FF0000000000000;
    constexpr std::uint64_t one = 0x0010000000000000;
    std::uint64_t carried = 0;
    for (std::size_t j = 0; j < count; ++j)
        carried |= (std::bit_cast<std::uint64_t>(values[j]) & exponent) + one;
    return carried >> 63 == 0;
}

VESKORA_VECTOR_CLONES
bool holdsNegativeZero(const double *values, std::size_t count)
{
    constexpr std::uint64_t negativeZero = 0x8000000000000000;
    std::uint64_t found = 0;
    for (std::size_t j = 0; j < count; ++j)
        found |= std::bit_cast<std::uint64_t>(values[j]) == negativeZero ? 1U : 0U;
    return found != 0;
}

/// Sets @p bit in the byte of every column that is not 0.
VESKORA_VECTOR_CLONES
void markEntries(const double *values, std::uint8_t *marks, std::size_t begin, std::size_t end,
                 std::uint8_t bit)
{
    for (std::size_t j = begin; j < end; ++j)
        marks[j] = static_cast<std::uint8_t>(marks[j] | (values[j] != 0 ? bit : 0));
}

/// The elimination at work. Rows and columns count from 0 here.
class Elimination
{
public:
    Elimination(PinakasErgasias<maxDofs, maxDofs + 1> &A, std::span<double> b, std::span<double> x)
        : A_(A), b_(b), x_(x), n_(static_cast<int>(b.size()))
    {
        entries_.reserve(maxDofs);
        findEnds();
    }

    void forward()
    {
        for (int k = 0; k < n_;) {
            testRow(k);
            k = gatherEntries(k) ? eliminateSparse(k) : eliminatePanel(k);
        }
    }

    void backward()
    {
        for (int k = n_ - 1; k >= 0; --k) {
            const double *row = row_[at(k)];
            double sum = 0;
            for (int j = k + 1; j <= end_[at(k)]; ++j)
                sum = sum + x_[at(j)] * row[j];
            x_[at(k)] = tested(divide(b_[at(k)] - sum, row[k]));
        }
    }

private:
    static constexpr const char *overflowFacts = "Overflow in the solution of the equations";

    static std::size_t at(int index) { return static_cast<std::size_t>(index); }

    static double tested(double value)
    {
        if (!std::isfinite(value))
            throw Fault(overflowFacts);
        return value;
    }

    static double divide(double dividend, double divisor)
    {
        if (divisor == 0)
            throw Fault("Division by zero in the solution of the equations");
        return dividend / divisor;
    }

    /// Finds the last column of each row that is not +0. What lies behind it stays as it is under
    /// the plain loops too: x - q * 0 is x for every finite q and every x but -0. Sums that start
    /// from +0, as assembly does, never give -0; where one is found all the same, every row counts
    /// as full.
    void findEnds()
    {
        for (int k = 0; k < n_; ++k) {
            row_[at(k)] = A_.unmarked(k + 1).data();
            const auto [first, last] = A_.stretch(k + 1);
            const double *row = row_[at(k)];
            int end = std::max(std::min(last, n_) - 1, k);
            while (end > k && isPositiveZero(row[end]))
                --end;
            const int begin = std::max(first - 1, k);
            negativeZero_ =
                negativeZero_
                || (begin <= end && holdsNegativeZero(row + begin, at(end - begin + 1)));
            end_[at(k)] = end;
        }
        if (negativeZero_)
            std::fill_n(end_.begin(), n_, n_ - 1);
    }

    /// A number that stopped being finite on the way stays so until its row is the pivot row; an
    /// infinite pivot would hide itself in the quotients, as x / infinity is 0.
    void testRow(int k) const
    {
        if (!allFinite(row_[at(k)] + k, at(end_[at(k)] - k + 1)))
            throw Fault(overflowFacts);
    }

    /// Gathers the columns of the entries of row k in `entries_`, unless they are too many to be
    /// walked one by one. Leaving out its zeros is exact for the reason told at `findEnds`.
    bool gatherEntries(int k)
    {
        entries_.clear();
        if (negativeZero_)
            return false;
        constexpr int denseEnough = 6; // measured; the optimum is flat
        const int most = (end_[at(k)] - k) / denseEnough;
        for (int j = k + 1; j <= end_[at(k)] && static_cast<int>(entries_.size()) <= most; ++j)
            if (row_[at(k)][j] != 0)
                entries_.push_back(j);
        return static_cast<int>(entries_.size()) <= most;
    }

    /// Eliminates with row k alone, whose entries stand in `entries_`.
    /// @return the next pivot row
    int eliminateSparse(int k)
    {
        const double *pivotRow = row_[at(k)];
        for (auto target = entries_.begin(); target != entries_.end(); ++target) {
            const int i = *target;
            const double quotient = divide(pivotRow[i], pivotRow[k]);
            widen(i, end_[at(k)]);
            double *row = row_[at(i)];
            for (auto j = target; j != entries_.end(); ++j)
                row[*j] = row[*j] - quotient * pivotRow[*j];
            b_[at(i)] = b_[at(i)] - quotient * b_[at(k)];
        }
        return k + 1;
    }

    /// Eliminates with the rows from @p first on, several together.
    /// @return the next pivot row
    int eliminatePanel(int first)
    {
        const int last = std::min(first + panelRows, n_); // one behind the panel
        int reach = last - 1;
        for (int k = first; k < last; ++k) {
            if (k > first)
                testRow(k);
            reach = std::max(reach, end_[at(k)]);
            for (int i = k + 1; i < last; ++i)
                eliminate(i, k, k + 1);
        }
        marks_.fill(0);
        for (int k = first; k < last; ++k)
            markEntries(row_[at(k)], marks_.data(), at(last), at(end_[at(k)] + 1),
                        static_cast<std::uint8_t>(1U << (k - first)));
        for (int i = last; i <= reach; ++i)
            if (marks_[at(i)] != 0)
                eliminate(i, first, last);
        return last;
    }

    void widen(int i, int end)
    {
        end_[at(i)] = std::max(end_[at(i)], end);
        A_.markWritten(i + 1, i + 1, end_[at(i)] + 1);
    }

    /// Subtracts from row i its multiples of the pivot rows @p first to @p last - 1.
    void eliminate(int i, int first, int last)
    {
        Operands operands;
        int end = 0;
        for (int k = first; k < last; ++k) {
            const double *pivotRow = row_[at(k)];
            if (pivotRow[i] == 0)
                continue;
            const double quotient = divide(pivotRow[i], pivotRow[k]);
            operands.rows[operands.count] = pivotRow;
            operands.quotients[operands.count++] = quotient;
            end = std::max(end, end_[at(k)]);
            b_[at(i)] = b_[at(i)] - quotient * b_[at(k)];
        }
        if (operands.count == 0)
            return;
        widen(i, end);
        subtractRows(row_[at(i)], operands, at(i), at(end + 1));
    }

    PinakasErgasias<maxDofs, maxDofs + 1> &A_;
    std::span<double> b_;
    std::span<double> x_;
    int n_;
    std::array<double *, maxDofs> row_;
    std::array<int, maxDofs> end_; ///< last column of each row that may be other than +0
    bool negativeZero_ = false;
    std::array<std::uint8_t, maxDofs> marks_; ///< which rows of the panel have an entry in a column
    std::vector<int> entries_;                ///< columns of the pivot row, while it is sparse
};

} // namespace

void solveSymmetric(PinakasErgasias<maxDofs, maxDofs + 1> &A, std::span<double> b,
                    std::span<double> x)
{
    if (b.empty())
        subscriptFault(0, maxDofs, 0, maxDofs + 1);
    Elimination elimination(A, b, x);
    elimination.forward();
    elimination.backward();
}

} // namespace veskora
