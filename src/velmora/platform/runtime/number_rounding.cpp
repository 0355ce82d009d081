// Round, Redondear, Int and the division that never yields an infinity.

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

#include "velmora/platform/runtime/decimal_digits.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::runtime {

namespace {

// Doubles from here on are whole numbers.
constexpr double twoTo52 = 4503599627370496.0;

constexpr std::array<std::uint64_t, 16> wholePowers{1,
                                                    10,
                                                    100,
                                                    1'000,
                                                    10'000,
                                                    100'000,
                                                    1'000'000,
                                                    10'000'000,
                                                    100'000'000,
                                                    1'000'000'000,
                                                    10'000'000'000,
                                                    100'000'000'000,
                                                    1'000'000'000'000,
                                                    10'000'000'000'000,
                                                    100'000'000'000'000,
                                                    1'000'000'000'000'000};

/// `whole` × 10^-decimals, the nearest double: both operands are exact. For at most fifteen digits and 22 decimals.
double withDecimals(std::uint64_t whole, int decimals) {
    const auto number = static_cast<double>(whole);
    return decimals >= 0 ? number / exactPower(decimals) : number * exactPower(-decimals);
}

/// Redondear of a positive number of usual size, without a digit written down.
double roundUsual(double size, int decimals) {
    const auto [whole, exponent] = fifteenDigits(size);
    const int known = significantDigits - 1 - exponent;
    if (known <= decimals) {
        return withDecimals(whole, known);
    }
    const std::int64_t dropped = std::int64_t{known} - decimals;
    if (dropped > significantDigits) {
        return 0;
    }
    const std::uint64_t unit = wholePowers[static_cast<std::size_t>(dropped)];
    return withDecimals((whole + unit / 2) / unit, decimals);
}

/// Redondear of a positive number, without its fifteen digits: they differ from the number by less than a part in 10^14
/// and therefore decide only where the product lies as near as that to a half. None in that case and for a large
/// number.
std::optional<double> roundFarFromHalf(double size, int decimals) {
    constexpr double largest = 1e12;
    constexpr double doubt = 1e-14;
    if (decimals < 0 || decimals > significantDigits) {
        return std::nullopt;
    }
    const double power = exactPower(decimals);
    const double product = size * power;
    if (!(product < largest)) {
        return std::nullopt;
    }
    const auto below = static_cast<double>(static_cast<std::int64_t>(product));
    const double beyondHalf = product - below - 0.5;
    if (std::abs(beyondHalf) <= product * doubt) {
        return std::nullopt;
    }
    return (beyondHalf > 0 ? below + 1 : below) / power;
}

double withSignOf(double value, double size) {
    return value < 0 && size != 0 ? -size : size;
}

}  // namespace

double Round(double value, int decimals) {
    if (decimals < 0 || decimals > significantDigits) {
        raise(invalidProcedureCall);
    }
    requireFinite(value);
    if (std::abs(value) >= twoTo52) {
        return value;
    }
    const double power = exactPower(decimals);
    if (std::abs(value * power) < twoTo52) {
        // Both operands are exact, so their quotient is the double nearest to the decimal. Adding 0.0 turns -0.0 into
        // 0.0.
        return Scaled(value, decimals).halfEven() / power + 0.0;
    }
    std::array<char, 64> buffer;
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    double result = 0;
    std::from_chars(buffer.data(), written.ptr, result);
    return result;
}

double Redondear(double value, int decimals) {
    const double size = std::abs(value);
    if (const auto rounded = roundFarFromHalf(size, decimals)) {
        return withSignOf(value, *rounded);
    }
    if (isOfUsualSize(size)) {
        return withSignOf(value, roundUsual(size, decimals));
    }
    Decimal number = toDecimal(value);
    roundAway(number, decimals);
    return toDouble(number);
}

double Int(double value) {
    return std::floor(value);
}

double divide(double a, double b) {
    if (b == 0 && a != 0) {
        raise(divisionByZero);
    }
    const double result = a / b;
    requireFinite(result);
    return result;
}

}  // namespace velmora::runtime
