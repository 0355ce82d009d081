#include "velmora/platform/runtime/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <type_traits>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::runtime {

namespace {

constexpr int significantDigits = 15;

/// Powers of ten that a double holds exactly.
constexpr std::array<double, 23> exactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                             1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr double exactPower(int power) {
    return exactPowers[static_cast<std::size_t>(power)];
}

constexpr double twoTo52 = 4503599627370496.0;

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr char small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isLetterOrDigit(char c) {
    return isDigit(c) || (small(c) >= 'a' && small(c) <= 'z');
}

void requireFinite(double value) {
    if (!std::isfinite(value)) {
        raise(overflow);
    }
}

/// A number times a power of ten, exactly: the double nearest to the product, and what that lost. Only for products
/// below 2^52, where a half can still be told.
class Scaled {
  public:
    Scaled(double value, int power) {
        const double factor = exactPower(power);
        const double product = value * factor;
        lost_ = std::fma(value, factor, -product);
        below_ = std::floor(product);
        rest_ = product - below_;
    }

    /// The nearest whole number; the loss decides only where the product looks like a half.
    double halfEven() const {
        const bool odd = (static_cast<std::int64_t>(below_) & 1) != 0;
        return rest_ > 0.5 || (rest_ == 0.5 && (lost_ > 0 || (lost_ == 0 && odd))) ? below_ + 1 : below_;
    }

    /// The same for a number that is not negative, a half going up.
    double halfAway() const { return rest_ > 0.5 || (rest_ == 0.5 && lost_ >= 0) ? below_ + 1 : below_; }

  private:
    double lost_;
    double below_;
    double rest_;
};

// ---- the decimal value of a double

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

    /// The digit that stands for 10^position.
    char at(int position) const {
        const int index = exponent - position;
        return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
    }

    /// How many digits stand behind the decimal sign.
    int decimals() const { return std::max(0, count - 1 - exponent); }
};

/// Half away from zero at so many decimals.
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

/// A double between 1E-07 and 1E+15, the usual case, without any digits being searched for.
Decimal toDecimalByScaling(double value) {
    const double size = std::abs(value);
    // A first guess of the decimal exponent from the binary one, 0.301 digits a bit; it may lie one off.
    Decimal result;
    result.negative = value < 0;
    result.exponent = static_cast<int>(std::floor(std::ilogb(size) * 0.30103));
    if (size * exactPower(significantDigits - 1 - result.exponent) >= exactPower(significantDigits)) {
        ++result.exponent;
    }
    auto whole = static_cast<std::uint64_t>(Scaled(size, significantDigits - 1 - result.exponent).halfAway());
    constexpr auto limit = static_cast<std::uint64_t>(exactPower(significantDigits));
    if (whole == limit) {
        whole /= 10;
        ++result.exponent;
    }
    const char* const end = std::to_chars(result.digits.data(), result.digits.data() + result.digits.size(), whole).ptr;
    result.count = static_cast<int>(end - result.digits.data());
    result.dropTrailingZeros();
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

Decimal toDecimal(double value) {
    requireFinite(value);
    if (value == 0) {
        return {};
    }
    const double size = std::abs(value);
    return size >= 1e-7 && size < 1e15 ? toDecimalByScaling(value) : toDecimalByExpansion(value);
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

// ---- text to number

enum class Outcome { number, noNumber, tooLarge };

struct Reading {
    Outcome outcome = Outcome::noNumber;
    double value = 0;
    bool radix = false;  ///< written with &H or &O: its bits may also be meant as a negative whole number
};

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

/// A plain number with a decimal point, collected for from_chars. Texts of usual length stay on the stack.
class PlainNumber {
  public:
    explicit PlainNumber(std::size_t length) {
        if (length + 2 > stack_.size()) {
            heap_.resize(length + 2);
            at_ = heap_.data();
        }
        first_ = at_;
    }
    PlainNumber(const PlainNumber&) = delete;
    PlainNumber& operator=(const PlainNumber&) = delete;

    void digit(char c) {
        if (c != '0' || started_) {
            started_ = true;
            magnitude_ += behindPoint_ ? 0 : 1;
        } else if (behindPoint_) {
            --magnitude_;
        }
        *at_++ = c;
        ++digits_;
    }

    void point() {
        if (digits_ == 0) {
            *at_++ = '0';
        }
        *at_++ = '.';
        behindPoint_ = true;
    }

    void exponent(bool negative, std::string_view digits) {
        *at_++ = 'e';
        if (negative) {
            *at_++ = '-';
        }
        at_ = std::copy(digits.begin(), digits.end(), at_);
        std::int64_t value = 0;
        for (const char c : digits) {
            value = std::min<std::int64_t>(value * 10 + (c - '0'), 1'000'000'000'000);
        }
        magnitude_ += negative ? -value : value;
    }

    bool empty() const { return digits_ == 0; }

    Reading value() const {
        if (!started_) {
            return {Outcome::number, 0.0};
        }
        double result = 0;
        const auto read = std::from_chars(first_, at_, result);
        if (read.ec == std::errc::result_out_of_range || std::isinf(result)) {
            // Too small is zero, too large is an error; from_chars does not tell which.
            return magnitude_ > 0 ? Reading{Outcome::tooLarge} : Reading{Outcome::number, 0.0};
        }
        return {Outcome::number, result};
    }

  private:
    std::array<char, 96> stack_;
    std::string heap_;
    char* at_ = stack_.data();
    char* first_ = nullptr;
    std::size_t digits_ = 0;
    bool started_ = false;  ///< a digit other than 0 has been seen
    bool behindPoint_ = false;
    std::int64_t magnitude_ = 0;  ///< the value lies below 10^magnitude
};

/// Reads one number from the left to the right, by the conventions of a locale.
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

Reading read(std::string_view text, const Locale& locale) {
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

// ---- whole numbers

template <typename Whole>
Whole toWholeType(double value) {
    using Limits = std::numeric_limits<Whole>;
    if (!(value > static_cast<double>(Limits::min()) - 1 && value < static_cast<double>(Limits::max()) + 1)) {
        raise(overflow);
    }
    const double whole = Scaled(value, 0).halfEven();
    if (whole < static_cast<double>(Limits::min()) || whole > static_cast<double>(Limits::max())) {
        raise(overflow);
    }
    return static_cast<Whole>(whole);
}

/// &HFFFF is -1 in 16 bits: a text of bits fills the type, sign included.
template <typename Whole>
Whole toWholeType(std::string_view text, const Locale& locale) {
    const Reading reading = read(text, locale);
    const double value = valueOf(reading);
    using Bits = std::make_unsigned_t<Whole>;
    if (reading.radix && value <= static_cast<double>(std::numeric_limits<Bits>::max())) {
        return static_cast<Whole>(static_cast<Bits>(value));
    }
    return toWholeType<Whole>(value);
}

// ---- masks

struct NumberMask {
    int leastWhole = 0;     ///< digits shown at least before the decimal sign
    int leastDecimals = 0;  ///< and behind it
    int mostDecimals = 0;
    bool point = false;
    bool grouped = false;
    std::string_view before;  ///< what stands around the digits, as it is
    std::string_view behind;
};

NumberMask parseMask(std::string_view mask) {
    NumberMask result;
    constexpr std::string_view placeholders = "0#,.";
    const std::size_t first = mask.find_first_of(placeholders);
    if (first == std::string_view::npos) {
        result.before = mask;
        return result;
    }
    const std::size_t end = std::min(mask.find_first_not_of(placeholders, first), mask.size());
    result.before = mask.substr(0, first);
    result.behind = mask.substr(end);
    for (const char c : mask.substr(first, end - first)) {
        if (c == '.') {
            result.point = true;
        } else if (c == ',') {
            result.grouped = true;
        } else if (result.point) {
            ++result.mostDecimals;
            result.leastDecimals = c == '0' ? result.mostDecimals : result.leastDecimals;
        } else {
            result.leastWhole += c == '0' || result.leastWhole > 0 ? 1 : 0;
        }
    }
    return result;
}

std::string write(const Decimal& number, const NumberMask& mask, const Locale& locale) {
    std::string result;
    const int whole = std::max(mask.leastWhole, number.count > 0 ? number.exponent + 1 : 0);
    result.reserve(mask.before.size() + mask.behind.size() + static_cast<std::size_t>(std::max(whole, 0)) * 4 / 3 +
                   static_cast<std::size_t>(mask.mostDecimals) + 4);
    if (number.negative) {
        result += '-';
    }
    result += mask.before;
    for (int position = whole - 1; position >= 0; --position) {
        result += number.at(position);
        if (mask.grouped && position > 0 && position % 3 == 0) {
            result += locale.thousands;
        }
    }
    if (mask.point) {
        result += locale.decimal;
        const int decimals = std::clamp(number.decimals(), mask.leastDecimals, mask.mostDecimals);
        for (int position = 1; position <= decimals; ++position) {
            result += number.at(-position);
        }
    }
    result += mask.behind;
    return result;
}

bool isDateMask(std::string_view mask) {
    return mask.find_first_of("dmyhnsDMYHNS") != std::string_view::npos &&
           mask.find_first_of("0#") == std::string_view::npos;
}

}  // namespace

double CDbl(std::string_view text, const Locale& locale) {
    return valueOf(read(text, locale));
}

bool IsNumeric(std::string_view text, const Locale& locale) {
    return read(text, locale).outcome == Outcome::number;
}

std::string CStr(double value, const Locale& locale) {
    const Decimal number = toDecimal(value);
    if (number.count == 0) {
        return "0";
    }
    std::array<char, 40> buffer;
    char* at = buffer.data();
    if (number.negative) {
        *at++ = '-';
    }
    const bool plain =
        number.exponent < significantDigits && number.exponent >= -4 && number.decimals() <= significantDigits;
    const int whole = plain ? std::max(number.exponent, 0) : number.exponent;
    const int last = number.exponent - number.count + 1;
    for (int position = whole; position >= (plain ? std::min(last, 0) : last); --position) {
        *at++ = number.at(position);
        if (position == (plain ? 0 : whole) && position > last) {
            *at++ = locale.decimal;
        }
    }
    if (!plain) {
        *at++ = 'E';
        *at++ = number.exponent < 0 ? '-' : '+';
        const int exponent = std::abs(number.exponent);
        if (exponent < 10) {
            *at++ = '0';
        }
        at = std::to_chars(at, buffer.data() + buffer.size(), exponent).ptr;
    }
    return std::string(buffer.data(), at);
}

std::string CStr(std::int64_t value) {
    std::array<char, 24> buffer;
    return std::string(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
}

std::string shortest(double value) {
    requireFinite(value);
    if (value == 0) {
        return "0";
    }
    const double size = std::abs(value);
    const auto form = size >= 1e-5 && size < 1e15 ? std::chars_format::fixed : std::chars_format::scientific;
    std::array<char, 40> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form);
    return std::string(buffer.data(), written.ptr);
}

std::string Format(double value, std::string_view mask, const Locale& locale) {
    if (mask.empty()) {
        return CStr(value, locale);
    }
    if (isDateMask(mask)) {
        return Format(fromSerial(value), mask);
    }
    const NumberMask parsed = parseMask(mask);
    Decimal number = toDecimal(value);
    roundAway(number, parsed.mostDecimals);
    return write(number, parsed, locale);
}

std::string Format(std::string_view text, std::string_view mask, const Locale& locale) {
    if (isDateMask(mask) && IsDate(text)) {
        return Format(CDate(text), mask);
    }
    const Reading reading = read(text, locale);
    if (reading.outcome != Outcome::number) {
        return std::string(text);
    }
    return Format(reading.value, mask, locale);
}

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
        // The quotient of two exact numbers is the double nearest to the decimal. Adding zero takes the sign off zero.
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

std::int16_t CInt(double value) {
    return toWholeType<std::int16_t>(value);
}

std::int16_t CInt(std::string_view text, const Locale& locale) {
    return toWholeType<std::int16_t>(text, locale);
}

std::int32_t CLng(double value) {
    return toWholeType<std::int32_t>(value);
}

std::int32_t CLng(std::string_view text, const Locale& locale) {
    return toWholeType<std::int32_t>(text, locale);
}

double Val(std::string_view text) {
    std::string packed;
    packed.reserve(text.size());
    std::ranges::copy_if(text, std::back_inserter(packed),
                         [](char c) { return c != ' ' && c != '\t' && c != '\n' && c != '\r'; });
    const std::string_view rest = packed;
    std::size_t at = !rest.empty() && (rest[0] == '-' || rest[0] == '+') ? 1 : 0;
    const bool negative = at == 1 && rest[0] == '-';
    PlainNumber number(rest.size());
    bool fraction = false;
    for (; at < rest.size(); ++at) {
        if (isDigit(rest[at])) {
            number.digit(rest[at]);
        } else if (rest[at] == '.' && !fraction) {
            number.point();
            fraction = true;
        } else {
            break;
        }
    }
    if (number.empty()) {
        return 0;
    }
    if (at < rest.size() && (small(rest[at]) == 'e' || small(rest[at]) == 'd')) {
        std::size_t first = at + 1;
        const bool below = first < rest.size() && rest[first] == '-';
        first += first < rest.size() && (below || rest[first] == '+') ? 1 : 0;
        const std::size_t end = std::min(rest.find_first_not_of("0123456789", first), rest.size());
        if (end > first) {
            number.exponent(below, rest.substr(first, end - first));
        }
    }
    const double value = valueOf(number.value());
    return negative ? -value : value;
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
