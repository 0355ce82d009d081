// Round, Redondear, Int and the division that never yields an infinity.

#include <array>
#include <charconv>
#include <cmath>

#include "velmora/platform/runtime/decimal_digits.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::runtime {

namespace {

// Doubles from here on are whole numbers.
constexpr double twoTo52 = 4503599627370496.0;

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
