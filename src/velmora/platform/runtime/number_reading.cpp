#include "velmora/platform/runtime/number_reading.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

#include "velmora/platform/runtime/characters.h"
#include "velmora/platform/runtime/decimal_digits.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/plain_number.h"

namespace velmora::runtime {

namespace {

int digitValue(char c) {
    const char lower = small(c);
    if (isDigit(lower)) {
        return lower - '0';
    }
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 99;
}

/// The digits behind &H or &O, up to 64 bits.
Reading readRadix(std::string_view text, int base) {
    if (text.empty()) {
        return {};
    }
    std::uint64_t bits = 0;
    bool tooLarge = false;
    for (const char c : text) {
        const int digit = digitValue(c);
        if (digit >= base) {
            return {};
        }
        const auto factor = static_cast<std::uint64_t>(base);
        tooLarge = tooLarge || bits > std::numeric_limits<std::uint64_t>::max() / factor;
        bits = bits * factor + static_cast<std::uint64_t>(digit);
    }
    return {tooLarge ? Outcome::tooLarge : Outcome::number, static_cast<double>(bits), true};
}

int radixOf(std::string_view text) {
    if (text.size() < 2 || text[0] != '&') {
        return 0;
    }
    switch (small(text[1])) {
        case 'h':
            return 16;
        case 'o':
            return 8;
        default:
            return 0;
    }
}

/// Parses one number from left to right by the conventions of a locale.
class NumberReader {
  public:
    NumberReader(std::string_view text, const Locale& locale) : rest_(text), locale_(locale) {}

    Reading read() {
        skipBlanks();
        if (const int base = radixOf(rest_); base != 0) {
            const auto digits = std::find_if_not(rest_.begin() + 2, rest_.end(), isLetterOrDigit);
            const auto length = static_cast<std::size_t>(digits - rest_.begin());
            const Reading result = readRadix(rest_.substr(2, length - 2), base);
            rest_.remove_prefix(length);
            skipBlanks();
            return rest_.empty() ? result : Reading{};
        }
        while (takeLeading()) {
        }
        PlainNumber number(rest_.size());
        if (!takeBody(number)) {
            return {};
        }
        while (takeTrailing()) {
        }
        if (!rest_.empty() || (opened_ && (!closed_ || sign_ != 0))) {
            return {};
        }
        Reading result = number.value();
        if (opened_ || sign_ == '-') {
            result.value = -result.value;
        }
        return result;
    }

  private:
    void skipBlanks() {
        constexpr std::string_view hardBlank = "\u00a0";
        for (;;) {
            if (!rest_.empty() && isBlank(rest_.front())) {
                rest_.remove_prefix(1);
            } else if (rest_.starts_with(hardBlank)) {
                rest_.remove_prefix(hardBlank.size());
            } else {
                return;
            }
        }
    }

    bool take(char c) {
        if (rest_.empty() || rest_.front() != c) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    bool takeSign() {
        if (rest_.empty() || sign_ != 0 || (rest_.front() != '-' && rest_.front() != '+')) {
            return false;
        }
        sign_ = rest_.front();
        rest_.remove_prefix(1);
        return true;
    }

    bool takeCurrency() {
        if (currency_ || locale_.currency.empty() || !rest_.starts_with(locale_.currency)) {
            return false;
        }
        rest_.remove_prefix(locale_.currency.size());
        currency_ = true;
        return true;
    }

    bool takeLeading() {
        skipBlanks();
        if (!opened_ && take('(')) {
            opened_ = true;
            return true;
        }
        return takeSign() || takeCurrency();
    }

    bool takeTrailing() {
        skipBlanks();
        if (opened_ && !closed_ && take(')')) {
            closed_ = true;
            return true;
        }
        return takeSign() || takeCurrency();
    }

    bool takeBody(PlainNumber& number) {
        bool fraction = false;
        for (; !rest_.empty(); rest_.remove_prefix(1)) {
            const char c = rest_.front();
            if (isDigit(c)) {
                number.digit(c);
            } else if (c == locale_.decimal && !fraction) {
                number.point();
                fraction = true;
            } else if (c != locale_.thousands || fraction || number.empty()) {
                break;
            }
        }
        return !number.empty() && takeExponent(number);
    }

    bool takeExponent(PlainNumber& number) {
        if (rest_.empty() || (small(rest_.front()) != 'e' && small(rest_.front()) != 'd')) {
            return true;
        }
        rest_.remove_prefix(1);
        const bool negative = take('-');
        if (!negative) {
            take('+');
        }
        const auto length =
            static_cast<std::size_t>(std::find_if_not(rest_.begin(), rest_.end(), isDigit) - rest_.begin());
        number.exponent(negative, rest_.substr(0, length));
        rest_.remove_prefix(length);
        return length > 0;
    }

    std::string_view rest_;
    const Locale& locale_;
    char sign_ = 0;
    bool opened_ = false;
    bool closed_ = false;
    bool currency_ = false;
};

/// The usual text: a minus, up to fifteen digits and a decimal sign among them, nothing else. Digits and power are
/// exact then, and their quotient is the nearest double.
std::optional<double> readUsual(std::string_view text, char decimal) {
    const bool negative = text.starts_with('-');
    std::int64_t whole = 0;
    int digits = 0;
    int decimals = 0;
    bool fraction = false;
    for (const char c : text.substr(negative ? 1 : 0)) {
        if (isDigit(c)) {
            whole = whole * 10 + (c - '0');
            decimals += fraction ? 1 : 0;
            if (++digits > significantDigits) {
                return std::nullopt;
            }
        } else if (c == decimal && !fraction) {
            fraction = true;
        } else {
            return std::nullopt;
        }
    }
    if (digits == 0) {
        return std::nullopt;
    }
    const double value = static_cast<double>(whole) / exactPower(decimals);
    return negative ? -value : value;
}

}  // namespace

Reading readNumber(std::string_view text, const Locale& locale) {
    if (const auto usual = readUsual(text, locale.decimal)) {
        return {Outcome::number, *usual};
    }
    return NumberReader(text, locale).read();
}

double valueOf(const Reading& reading) {
    switch (reading.outcome) {
        case Outcome::number:
            return reading.value;
        case Outcome::tooLarge:
            raise(overflow);
        case Outcome::noNumber:
            break;
    }
    raise(typeMismatch);
}

}  // namespace velmora::runtime
