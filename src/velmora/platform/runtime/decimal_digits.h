#pragma once
// Shared by the parsing, formatting and rounding of numbers: exact products with powers of ten, and the decimal value
// of a double. Internal to the number files; all other code includes numbers.h.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmora::runtime {

inline constexpr int significantDigits = 15;

/// Powers of ten that a double represents exactly.
inline constexpr std::array<double, 23> exactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                    1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr double exactPower(int power) {
    return exactPowers[static_cast<std::size_t>(power)];
}

/// Error 6 for infinities and NaN.
void requireFinite(double value);

/// The exact product of a number and a power of ten: the nearest double and the rounding error. Only for products below
/// 2^52, where halves are representable.
class Scaled {
  public:
    Scaled(double value, int power) : value_(value), factor_(exactPower(power)) {
        const double product = value_ * factor_;
        below_ = static_cast<double>(static_cast<std::int64_t>(product));
        below_ -= below_ > product ? 1 : 0;
        rest_ = product - below_;
    }

    /// The nearest whole number, half to even; the rounding error decides only where the product looks like a half.
    double halfEven() const {
        const bool odd = (static_cast<std::int64_t>(below_) & 1) != 0;
        return rest_ > 0.5 || (rest_ == 0.5 && (lost() > 0 || (lost() == 0 && odd))) ? below_ + 1 : below_;
    }

    /// The same for a non-negative number, half up.
    double halfAway() const { return rest_ > 0.5 || (rest_ == 0.5 && lost() >= 0) ? below_ + 1 : below_; }

  private:
    double lost() const { return std::fma(value_, factor_, -(value_ * factor_)); }

    double value_;
    double factor_;
    double below_;
    double rest_;
};

/// Fifteen digits of a positive number, rounded half up: `whole` × 10^(exponent - 14), 10^14 <= whole < 10^15.
struct FifteenDigits {
    std::uint64_t whole;
    int exponent;
};

/// The usual sizes, whose fifteen digits come of one exact product.
inline bool isOfUsualSize(double size) {
    return size >= 1e-7 && size < 1e15;
}

/// Only for a number of usual size.
FifteenDigits fifteenDigits(double size);

/// A double as the language shows it: d.ddd × 10^exponent with at most 15 digits and no trailing zeros. Zero has no
/// digits and no sign.
struct Decimal {
    bool negative = false;
    int exponent = 0;
    int count = 0;
    std::array<char, 24> digits{};

    void dropTrailingZeros() {
        while (count > 0 && digits[static_cast<std::size_t>(count - 1)] == '0') {
            --count;
        }
        if (count == 0) {
            negative = false;
            exponent = 0;
        }
    }

    /// The digit with the weight 10^position.
    char at(int position) const {
        const int index = exponent - position;
        return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
    }

    /// Number of decimals.
    int decimals() const { return std::max(0, count - 1 - exponent); }
};

/// Rounds to `decimals` decimals, half away from zero.
void roundAway(Decimal& number, int decimals);

/// Rounded to 15 digits, half away from zero. Error 6 for infinities and NaN.
Decimal toDecimal(double value);

/// The double nearest to the decimal. Error 6 when it is too large.
double toDouble(const Decimal& number);

}  // namespace velmora::runtime
