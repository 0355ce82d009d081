#include "velmora/adapters/tsql/conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::tsql {

namespace {

using runtime::Date;

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool allDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

/// Chosen C-201: an empty text is no number, as on every engine of ours; the server alone would take it for 0.
/// from_chars takes no plus sign, and words such as "inf" that are no number here.
template <typename Number>
std::optional<Number> parsed(std::string_view text) {
    text = trimmed(text);
    if (text.size() > 1 && text.front() == '+' && (isDigit(text[1]) || text[1] == '.')) {
        text.remove_prefix(1);
    }
    if (text.empty() || text.find_first_not_of("0123456789.+-eE") != std::string_view::npos) {
        return std::nullopt;
    }
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

int digits(std::string_view text) {
    int value = 0;
    for (const char c : text) {
        value = value * 10 + (c - '0');
    }
    return value;
}

std::optional<Date> dateOf(int year, int month, int day, int hour, int minute, int second) {
    const std::chrono::year_month_day calendar{std::chrono::year{year},
                                               std::chrono::month{static_cast<unsigned>(month)},
                                               std::chrono::day{static_cast<unsigned>(day)}};
    if (!calendar.ok() || year < 1753 || year > 9999 || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    return Date::of(year, static_cast<unsigned>(month), static_cast<unsigned>(day), hour, minute, second);
}

struct Clock {
    int hour = 0, minute = 0, second = 0;
};

/// hh:mm or hh:mm:ss, thousandths of a second dropped; an empty text is midnight.
std::optional<Clock> clockFromText(std::string_view text) {
    Clock clock;
    if (text.empty()) {
        return clock;
    }
    if (const auto point = text.find('.'); point != std::string_view::npos) {
        if (!allDigits(text.substr(point + 1))) {
            return std::nullopt;
        }
        text = text.substr(0, point);
    }
    std::array<int*, 3> parts = {&clock.hour, &clock.minute, &clock.second};
    std::size_t count = 0;
    for (;;) {
        const auto colon = text.find(':');
        const std::string_view part = text.substr(0, colon);
        if (count == parts.size() || !allDigits(part) || part.size() > 2) {
            return std::nullopt;
        }
        *parts[count++] = digits(part);
        if (colon == std::string_view::npos) {
            return count >= 2 ? std::optional(clock) : std::nullopt;
        }
        text.remove_prefix(colon + 1);
    }
}

struct Calendar {
    int year = 0, month = 0, day = 0;
};

std::optional<Calendar> calendarFromText(std::string_view text) {
    if (allDigits(text) && text.size() == 8) {
        return Calendar{digits(text.substr(0, 4)), digits(text.substr(4, 2)), digits(text.substr(6, 2))};
    }
    const auto first = text.find_first_of("/-.");
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    const auto second = text.find(text[first], first + 1);
    if (second == std::string_view::npos) {
        return std::nullopt;
    }
    const std::array<std::string_view, 3> parts = {text.substr(0, first), text.substr(first + 1, second - first - 1),
                                                   text.substr(second + 1)};
    if (!std::all_of(parts.begin(), parts.end(), [](std::string_view p) { return allDigits(p) && p.size() <= 4; })) {
        return std::nullopt;
    }
    // Chosen C-200: yyyy-mm-dd is year, month, day; a server told to read days first may take the middle for the day.
    if (parts[0].size() == 4) {
        return Calendar{digits(parts[0]), digits(parts[1]), digits(parts[2])};
    }
    Calendar calendar{digits(parts[2]), digits(parts[1]), digits(parts[0])};
    if (parts[2].size() <= 2) {
        calendar.year += calendar.year < 50 ? 2000 : 1900;
    } else if (parts[2].size() != 4) {
        return std::nullopt;
    }
    return calendar;
}

void appendPadded(std::string& text, int value, std::size_t width) {
    std::array<char, 12> buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    const auto length = static_cast<std::size_t>(end - buffer.data());
    text.append(width > length ? width - length : 0, '0');
    text.append(buffer.data(), length);
}

struct Parts {
    explicit Parts(const Date& date)
        : day(std::chrono::floor<std::chrono::days>(date.at)),
          time(date.at - std::chrono::floor<std::chrono::days>(date.at)) {}
    std::chrono::year_month_day day;
    std::chrono::hh_mm_ss<std::chrono::seconds> time;

    int year() const { return static_cast<int>(day.year()); }
    int month() const { return static_cast<int>(static_cast<unsigned>(day.month())); }
    int dayOfMonth() const { return static_cast<int>(static_cast<unsigned>(day.day())); }
};

}  // namespace

std::optional<std::int64_t> wholeFromText(std::string_view text) {
    return parsed<std::int64_t>(text);
}

std::optional<double> numberFromText(std::string_view text) {
    return parsed<double>(text);
}

std::optional<bool> bitFromText(std::string_view text) {
    const std::string folded = runtime::UCase(runtime::Trim(text));
    if (const auto value = wholeFromText(folded)) {
        return *value != 0;
    }
    return folded == "TRUE" || folded == "FALSE" ? std::optional(folded == "TRUE") : std::nullopt;
}

std::string textFromReal(double value) {
    // Kept K-200: a float cast to text keeps six significant digits, as on the server, so a length of a million reads
    // 1e+006. Statements build the measures of purchase lists from it.
    std::array<char, 32> buffer;
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 6);
    std::string text(buffer.data(), end);
    if (const auto exponent = text.find('e'); exponent != std::string::npos) {
        const std::size_t missing = 3 - std::min<std::size_t>(3, text.size() - exponent - 2);
        text.insert(exponent + 2, missing, '0');
    }
    return text;
}

std::string textFromDecimal(double value, int scale) {
    std::array<char, 400> buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), roundedTo(value, scale),
                                            std::chars_format::fixed, scale);
    return std::string(buffer.data(), end);
}

std::optional<Date> dateFromText(std::string_view text) {
    text = trimmed(text);
    if (text.empty()) {
        return Date::of(1900, 1, 1);
    }
    const auto gap = text.find_first_of(" T");
    const std::string_view clockText =
        gap == std::string_view::npos ? std::string_view() : trimmed(text.substr(gap + 1));
    const auto calendar = calendarFromText(text.substr(0, gap));
    const auto clock = clockFromText(clockText);
    if (!calendar || !clock) {
        return std::nullopt;
    }
    return dateOf(calendar->year, calendar->month, calendar->day, clock->hour, clock->minute, clock->second);
}

std::string isoText(const Date& date) {
    const Parts parts(date);
    std::string text;
    text.reserve(19);
    appendPadded(text, parts.year(), 4);
    text += '-';
    appendPadded(text, parts.month(), 2);
    text += '-';
    appendPadded(text, parts.dayOfMonth(), 2);
    text += ' ';
    appendPadded(text, static_cast<int>(parts.time.hours().count()), 2);
    text += ':';
    appendPadded(text, static_cast<int>(parts.time.minutes().count()), 2);
    text += ':';
    appendPadded(text, static_cast<int>(parts.time.seconds().count()), 2);
    return text;
}

std::optional<Date> dateFromIso(std::string_view text) {
    static constexpr std::string_view pattern = "0000-00-00 00:00:00";
    if (text.size() != pattern.size()) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '0' ? !isDigit(text[i]) : text[i] != pattern[i]) {
            return std::nullopt;
        }
    }
    return dateOf(digits(text.substr(0, 4)), digits(text.substr(5, 2)), digits(text.substr(8, 2)),
                  digits(text.substr(11, 2)), digits(text.substr(14, 2)), digits(text.substr(17, 2)));
}

std::optional<std::string> textFromDate(const Date& date, std::int64_t style) {
    const Parts parts(date);
    std::string text;
    switch (style) {
        case 103:
            appendPadded(text, parts.dayOfMonth(), 2);
            text += '/';
            appendPadded(text, parts.month(), 2);
            text += '/';
            appendPadded(text, parts.year(), 4);
            return text;
        case 112:
            appendPadded(text, parts.year(), 4);
            appendPadded(text, parts.month(), 2);
            appendPadded(text, parts.dayOfMonth(), 2);
            return text;
        case 120:
            return isoText(date);
        default:
            return std::nullopt;
    }
}

double roundedTo(double value, std::int64_t places) {
    if (!std::isfinite(value) || places > 15) {
        return value;
    }
    if (places >= 0) {
        return runtime::Redondear(value, static_cast<int>(places));
    }
    if (places < -300) {
        return 0;
    }
    const double unit = std::pow(10.0, static_cast<double>(-places));
    return runtime::Redondear(value / unit, 0) * unit;
}

}  // namespace velmora::tsql
