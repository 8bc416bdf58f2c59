#pragma once
/// @file
/// Numbers of about 32 decimal digits, each the sum of two Doubles, for machines whose long double
/// is no longer than a Double. The algorithms are exact only where no operation is fused, which the
/// flags of all targets see to.
/// Sources: T. J. Dekker, A floating-point technique for extending the available precision, Numer.
/// Math. 18 (1971); D. E. Knuth, The Art of Computer Programming, vol. 2, 4.2.2; the square root by
/// A. H. Karp, P. Markstein, ACM Trans. Math. Softw. 23 (1997).

#include <cmath>
#include <compare>
#include <limits>
#include <type_traits>

namespace veskora {

class DoubleDouble
{
public:
    constexpr DoubleDouble() = default;
    constexpr DoubleDouble(double value) : high_(value) {}

    explicit constexpr operator double() const { return high_; } ///< the nearest

    friend constexpr DoubleDouble operator-(DoubleDouble a) { return {-a.high_, -a.low_}; }
    friend constexpr DoubleDouble operator+(DoubleDouble a, DoubleDouble b)
    {
        const DoubleDouble high = sum(a.high_, b.high_), low = sum(a.low_, b.low_);
        const DoubleDouble carried = ordered(high.high_, high.low_ + low.high_);
        return ordered(carried.high_, carried.low_ + low.low_);
    }
    friend constexpr DoubleDouble operator-(DoubleDouble a, DoubleDouble b) { return a + -b; }
    friend constexpr DoubleDouble operator*(DoubleDouble a, DoubleDouble b)
    {
        const DoubleDouble high = product(a.high_, b.high_);
        return ordered(high.high_, high.low_ + (a.high_ * b.low_ + a.low_ * b.high_));
    }
    /// Long division by three digits that are Doubles.
    friend constexpr DoubleDouble operator/(DoubleDouble a, DoubleDouble b)
    {
        const double first = a.high_ / b.high_;
        DoubleDouble rest = a - b * first;
        const double second = rest.high_ / b.high_;
        rest -= b * second;
        return ordered(first, second) + rest.high_ / b.high_;
    }
    constexpr DoubleDouble &operator+=(DoubleDouble b) { return *this = *this + b; }
    constexpr DoubleDouble &operator-=(DoubleDouble b) { return *this = *this - b; }
    constexpr DoubleDouble &operator*=(DoubleDouble b) { return *this = *this * b; }
    constexpr DoubleDouble &operator/=(DoubleDouble b) { return *this = *this / b; }

    /// The high parts decide, as a low part is at most half a unit of their last place.
    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy 14 takes its own 0 for a pointer
    friend constexpr auto operator<=>(const DoubleDouble &, const DoubleDouble &) = default;

    friend constexpr DoubleDouble abs(DoubleDouble a) { return a.high_ < 0 ? -a : a; }
    friend bool isfinite(DoubleDouble a) { return std::isfinite(a.high_); }
    friend DoubleDouble sqrt(DoubleDouble a)
    {
        if (!(a.high_ > 0))
            return std::sqrt(a.high_);
        const double root = std::sqrt(a.high_);
        return ordered(root, (a - product(root, root)).high_ / (2 * root));
    }

private:
    constexpr DoubleDouble(double high, double low) : high_(high), low_(low) {}

    /// a + b without error, |a| >= |b|.
    static constexpr DoubleDouble ordered(double a, double b)
    {
        const double s = a + b;
        return {s, b - (s - a)};
    }
    /// a + b without error.
    static constexpr DoubleDouble sum(double a, double b)
    {
        const double s = a + b, ofB = s - a;
        return {s, (a - (s - ofB)) + (b - ofB)};
    }
    /// a * b without error.
    static constexpr DoubleDouble product(double a, double b)
    {
        const double p = a * b;
        const DoubleDouble x = halves(a), y = halves(b);
        return {p,
                ((x.high_ * y.high_ - p) + x.high_ * y.low_ + x.low_ * y.high_) + x.low_ * y.low_};
    }
    /// 26 bits and the rest.
    static constexpr DoubleDouble halves(double a)
    {
        constexpr double splitter = 134217729; // 2^27 + 1
        const double shifted = splitter * a, high = shifted - (shifted - a);
        return {high, a - high};
    }

    double high_ = 0, low_ = 0;
};

/// The number type of the extended precision.
using Extended =
    std::conditional_t<(std::numeric_limits<long double>::digits >= 64), long double, DoubleDouble>;

} // namespace veskora
