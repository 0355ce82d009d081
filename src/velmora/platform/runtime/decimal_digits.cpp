#include "velmora/platform/runtime/decimal_digits.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <system_error>

#include "velmora/platform/runtime/characters.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::runtime {

namespace {

constexpr auto lowestWhole = static_cast<std::uint64_t>(exactPower(significantDigits - 1));

/// A double of usual size, by exact scaling instead of a digit search.
Decimal toDecimalByScaling(double value) {
    auto [whole, exponent] = fifteenDigits(std::abs(value));
    constexpr std::uint64_t half = 10'000'000;
    if (whole % half == 0) {
        whole /= half;
    }
    while (whole % 10 == 0) {
        whole /= 10;
    }
    Decimal result;
    result.negative = value < 0;
    result.exponent = exponent;
    const char* const end = std::to_chars(result.digits.data(), result.digits.data() + result.digits.size(), whole).ptr;
    result.count = static_cast<int>(end - result.digits.data());
    return result;
}

/// Any double, from its exact decimal expansion, which has at most 767 digits.
Decimal toDecimalByExpansion(double value) {
    std::array<char, 800> buffer;
    const char* const end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, 766).ptr;
    const char* at = buffer.data();
    Decimal result;
    if (*at == '-') {
        result.negative = true;
        ++at;
    }
    for (; *at != 'e'; ++at) {
        if (isDigit(*at) && result.count <= significantDigits) {
            result.digits[static_cast<std::size_t>(result.count++)] = *at;
        }
    }
    ++at;
    const bool below = *at == '-';
    std::from_chars(at + 1, end, result.exponent);
    result.exponent = below ? -result.exponent : result.exponent;
    roundAway(result, significantDigits - 1 - result.exponent);
    result.dropTrailingZeros();
    return result;
}

}  // namespace

FifteenDigits fifteenDigits(double size) {
    // First estimate of the decimal exponent from the binary one, 0.301 digits per bit; it may be one too low.
    constexpr int mantissaBits = 52;
    constexpr int bias = 1023;
    const int binary = static_cast<int>(std::bit_cast<std::uint64_t>(size) >> mantissaBits) - bias;
    int exponent = (binary * 1233) >> 12;
    if (size * exactPower(significantDigits - 1 - exponent) >= exactPower(significantDigits)) {
        ++exponent;
    }
    auto whole = static_cast<std::uint64_t>(Scaled(size, significantDigits - 1 - exponent).halfAway());
    if (whole == lowestWhole * 10) {
        whole = lowestWhole;
        ++exponent;
    }
    return {.whole = whole, .exponent = exponent};
}

void requireFinite(double value) {
    if (!std::isfinite(value)) {
        raise(overflow);
    }
}

void roundAway(Decimal& number, int decimals) {
    const int keep = number.exponent + 1 + decimals;
    if (keep >= number.count) {
        return;
    }
    const bool up = keep >= 0 && number.digits[static_cast<std::size_t>(keep)] >= '5';
    number.count = std::max(keep, 0);
    if (up) {
        while (number.count > 0 && number.digits[static_cast<std::size_t>(number.count - 1)] == '9') {
            --number.count;
        }
        if (number.count == 0) {
            number.digits[0] = '1';
            number.count = 1;
            ++number.exponent;
        } else {
            ++number.digits[static_cast<std::size_t>(number.count - 1)];
        }
    }
    number.dropTrailingZeros();
}

Decimal toDecimal(double value) {
    requireFinite(value);
    if (value == 0) {
        return {};
    }
    return isOfUsualSize(std::abs(value)) ? toDecimalByScaling(value) : toDecimalByExpansion(value);
}

double toDouble(const Decimal& number) {
    double whole = 0;
    for (int i = 0; i < number.count; ++i) {
        whole = whole * 10 + (number.digits[static_cast<std::size_t>(i)] - '0');
    }
    // Fifteen digits and these powers are exact, so one division or multiplication gives the nearest double.
    const int scale = number.exponent + 1 - number.count;
    const int power = std::abs(scale);
    double result = 0;
    if (power < static_cast<int>(exactPowers.size())) {
        result = scale < 0 ? whole / exactPower(power) : whole * exactPower(power);
    } else {
        std::array<char, 40> buffer;
        char* at = std::copy_n(number.digits.data(), number.count, buffer.data());
        *at++ = 'e';
        at = std::to_chars(at, buffer.data() + buffer.size(), scale).ptr;
        if (std::from_chars(buffer.data(), at, result).ec == std::errc::result_out_of_range && scale > 0) {
            raise(overflow);
        }
    }
    return number.negative ? -result : result;
}

}  // namespace velmora::runtime
