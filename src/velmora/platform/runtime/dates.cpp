#include "velmora/platform/runtime/dates.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>

#include "velmora/platform/runtime/characters.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::runtime {

namespace {

constexpr std::chrono::sys_days dayZero = std::chrono::year{1899} / std::chrono::December / 30;
constexpr int leastYear = 100;
constexpr int greatestYear = 9999;
constexpr std::int64_t secondsOfDay = 86400;

constexpr std::array<std::string_view, 12> months{"enero",      "febrero", "marzo",     "abril",
                                                  "mayo",       "junio",   "julio",     "agosto",
                                                  "septiembre", "octubre", "noviembre", "diciembre"};

constexpr bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

struct Parts {
    std::chrono::year_month_day day;
    std::chrono::hh_mm_ss<std::chrono::seconds> time;
};

Parts takeApart(const Date& date) {
    const auto day = std::chrono::floor<std::chrono::days>(date.at);
    return {std::chrono::year_month_day{day}, std::chrono::hh_mm_ss{date.at - day}};
}

// ---- from text

struct Token {
    enum class Kind { number, month, midday, slash, colon, end } kind = Kind::end;
    int value = 0;       ///< the number; 1 to 12 for a month; 0 or 12 for AM and PM
    int digits = 0;      ///< number of digits it was written with
    bool apart = false;  ///< preceded by a blank
};

/// The longest date: day, month, year, hour, minute, second, AM/PM and the separators between them.
constexpr std::size_t mostTokens = 12;

struct Tokens {
    std::array<Token, mostTokens + 1> list{};  ///< always terminated by an `end`
    std::size_t count = 0;
};

std::optional<Token> readWord(std::string_view word) {
    const std::string lower = LCase(word);
    if (lower == "am" || lower == "pm") {
        return Token{Token::Kind::midday, lower == "am" ? 0 : 12};
    }
    for (std::size_t i = 0; i < months.size(); ++i) {
        if (lower == months[i] || lower == months[i].substr(0, 3) || (lower == "sept" && i == 8)) {
            return Token{Token::Kind::month, static_cast<int>(i) + 1};
        }
    }
    return std::nullopt;
}

std::optional<Token> readToken(std::string_view& rest) {
    const auto length = [&](auto belongs) {
        return static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), belongs) - rest.begin());
    };
    std::optional<Token> token;
    std::size_t size = 1;
    if (isDigit(rest.front())) {
        size = length(isDigit);
        token = Token{Token::Kind::number, 0, static_cast<int>(size)};
        if (size > 4) {
            return std::nullopt;
        }
        std::from_chars(rest.data(), rest.data() + size, token->value);
    } else if (isLetter(rest.front())) {
        size = length(isLetter);
        token = readWord(rest.substr(0, size));
    } else if (rest.front() == '/' || rest.front() == '-') {
        token = Token{Token::Kind::slash};
    } else if (rest.front() == ':') {
        token = Token{Token::Kind::colon};
    }
    rest.remove_prefix(size);
    return token;
}

std::optional<Tokens> readTokens(std::string_view text) {
    Tokens tokens;
    bool apart = false;
    while (!text.empty()) {
        if (text.front() == ' ') {
            apart = true;
            text.remove_prefix(1);
            continue;
        }
        auto token = readToken(text);
        if (!token || tokens.count == mostTokens) {
            return std::nullopt;
        }
        token->apart = apart;
        apart = false;
        tokens.list[tokens.count++] = *token;
    }
    return tokens;
}

bool canBeDay(const Token& token) {
    return token.digits <= 2 && token.value >= 1 && token.value <= 31;
}

std::optional<int> yearOf(const Token& token) {
    if (token.digits <= 2) {
        return token.value < 50 ? 2000 + token.value : 1900 + token.value;
    }
    return token.value >= leastYear ? std::optional(token.value) : std::nullopt;
}

std::optional<std::chrono::sys_days> makeDay(const Token& year, int month, int day) {
    const auto written = yearOf(year);
    if (!written) {
        return std::nullopt;
    }
    const std::chrono::year_month_day result{std::chrono::year{*written},
                                             std::chrono::month{static_cast<unsigned>(month)},
                                             std::chrono::day{static_cast<unsigned>(day)}};
    return result.ok() ? std::optional(std::chrono::sys_days{result}) : std::nullopt;
}

std::optional<std::chrono::sys_days> makeDay(const Token& year, const Token& month, const Token& day) {
    if (month.digits > 2 || day.digits > 2) {
        return std::nullopt;
    }
    return makeDay(year, month.value, day.value);
}

/// The first order of the three parts that gives a valid date. A year may come first only where the number cannot be a
/// day: otherwise a slip such as 31/02/24 would silently become a day of 2031.
std::optional<std::chrono::sys_days> dayOf(const Token& a, const Token& b, const Token& c) {
    if (canBeDay(a)) {
        const auto dayFirst = makeDay(c, b, a);
        return dayFirst ? dayFirst : makeDay(c, a, b);
    }
    const auto monthNext = makeDay(a, b, c);
    return monthNext ? monthNext : makeDay(a, c, b);
}

std::optional<std::chrono::sys_days> dayOf(const Token& a, const Token& b) {
    if (canBeDay(b)) {
        return canBeDay(a) ? std::nullopt : makeDay(a, b.value, 1);
    }
    return a.digits <= 2 ? makeDay(b, a.value, 1) : std::nullopt;
}

/// A date whose month is named; of the two numbers beside it, one is the day and one the year, in whichever order is
/// valid.
std::optional<std::chrono::sys_days> dayOfNamedMonth(int month, const Token* numbers, std::size_t count) {
    if (count == 1) {
        return canBeDay(numbers[0]) ? std::nullopt : makeDay(numbers[0], month, 1);
    }
    if (count != 2) {
        return std::nullopt;
    }
    return canBeDay(numbers[0])   ? makeDay(numbers[1], month, numbers[0].value)
           : canBeDay(numbers[1]) ? makeDay(numbers[0], month, numbers[1].value)
                                  : std::nullopt;
}

/// Numbers and at most one month name, separated by a sign or a blank.
std::optional<std::chrono::sys_days> readDay(const Token* at, const Token* end) {
    std::array<Token, 3> numbers{};
    std::size_t count = 0;
    int month = 0;
    bool separated = true;
    for (; at != end; ++at) {
        if (at->kind == Token::Kind::slash) {
            if (separated) {
                return std::nullopt;
            }
            separated = true;
            continue;
        }
        if (!separated && !at->apart) {
            return std::nullopt;
        }
        separated = false;
        if (at->kind == Token::Kind::month && month == 0) {
            month = at->value;
        } else if (at->kind == Token::Kind::number && count < numbers.size()) {
            numbers[count++] = *at;
        } else {
            return std::nullopt;
        }
    }
    if (separated) {
        return std::nullopt;
    }
    if (month != 0) {
        return dayOfNamedMonth(month, numbers.data(), count);
    }
    return count == 3   ? dayOf(numbers[0], numbers[1], numbers[2])
           : count == 2 ? dayOf(numbers[0], numbers[1])
                        : std::nullopt;
}

struct TimeReading {
    std::chrono::seconds time{};
    std::size_t tokens = 0;  ///< number of tokens used; 0 when this is not a time
    bool valid = true;
};

/// h:m or h:m:s, with or without AM/PM behind it; with AM/PM the hour alone is enough.
TimeReading readTime(const Token* at) {
    const Token* const first = at;
    std::array<int, 3> parts{};
    std::size_t count = 0;
    bool valid = true;
    if (at->kind != Token::Kind::number) {
        return {};
    }
    parts[count++] = at++->value;
    while (at->kind == Token::Kind::colon) {
        valid = valid && count < parts.size() && at[1].kind == Token::Kind::number && at[1].digits <= 2;
        if (!valid) {
            return {{}, 1, false};
        }
        parts[count++] = at[1].value;
        at += 2;
    }
    if (at->kind == Token::Kind::midday) {
        valid = parts[0] >= 1 && parts[0] <= 12;
        parts[0] = parts[0] % 12 + at->value;
        ++at;
    } else if (count == 1) {
        return {};
    }
    valid = valid && first->digits <= 2 && parts[0] < 24 && parts[1] < 60 && parts[2] < 60;
    return {std::chrono::hours{parts[0]} + std::chrono::minutes{parts[1]} + std::chrono::seconds{parts[2]},
            static_cast<std::size_t>(at - first), valid};
}

std::optional<Date> readDate(std::string_view text) {
    const auto tokens = readTokens(text);
    if (!tokens || tokens->count == 0) {
        return std::nullopt;
    }
    const Token* const first = tokens->list.data();
    const Token* const end = first + tokens->count;
    // The time is first or last, separated from the date by a blank.
    for (const Token* at = first; at != end; ++at) {
        const TimeReading time = readTime(at);
        if (time.tokens == 0) {
            continue;
        }
        const Token* const behind = at + time.tokens;
        if (!time.valid || (at != first && (behind != end || !at->apart)) || (behind != end && !behind->apart)) {
            return std::nullopt;
        }
        if (at == first && behind == end) {
            return Date{dayZero + time.time};
        }
        const auto day = at == first ? readDay(behind, end) : readDay(first, at);
        return day ? std::optional(Date{*day + time.time}) : std::nullopt;
    }
    const auto day = readDay(first, end);
    return day ? std::optional(Date{*day}) : std::nullopt;
}

// ---- to text

void append(std::string& text, int value, std::size_t width) {
    std::array<char, 16> buffer;
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    const auto length = static_cast<std::size_t>(end - buffer.data());
    text.append(length < width ? width - length : 0, '0');
    text.append(buffer.data(), length);
}

}  // namespace

Date CDate(std::string_view text) {
    const auto date = readDate(text);
    if (!date) {
        raise(typeMismatch);
    }
    return *date;
}

bool IsDate(std::string_view text) {
    return readDate(text).has_value();
}

std::string CStr(const Date& date) {
    const auto day = std::chrono::floor<std::chrono::days>(date.at);
    if (day == dayZero) {
        return Format(date, "h:nn:ss");
    }
    return Format(date, day == date.at ? "dd/mm/yyyy" : "dd/mm/yyyy h:nn:ss");
}

std::string Format(const Date& date, std::string_view mask) {
    const Parts parts = takeApart(date);
    const int year = static_cast<int>(parts.day.year());
    std::string result;
    result.reserve(mask.size() + 4);
    char before = 0;
    for (std::size_t at = 0; at < mask.size();) {
        char letter = small(mask[at]);
        const std::size_t end = std::min(mask.find_first_not_of(mask.substr(at, 1), at), mask.size());
        const std::size_t width = std::min<std::size_t>(end - at, 2);
        if (letter == 'm' && before == 'h') {
            letter = 'n';
        }
        switch (letter) {
            case 'd':
                append(result, static_cast<int>(static_cast<unsigned>(parts.day.day())), width);
                break;
            case 'm':
                append(result, static_cast<int>(static_cast<unsigned>(parts.day.month())), width);
                break;
            case 'y':
                if (end - at > 2) {
                    append(result, year, 4);
                } else {
                    append(result, year % 100, 2);
                }
                break;
            case 'h':
                append(result, static_cast<int>(parts.time.hours().count()), width);
                break;
            case 'n':
                append(result, static_cast<int>(parts.time.minutes().count()), width);
                break;
            case 's':
                append(result, static_cast<int>(parts.time.seconds().count()), width);
                break;
            default:
                result += mask.substr(at, end - at);
                break;
        }
        if (letter >= 'a' && letter <= 'z') {
            before = letter;
        }
        at = end;
    }
    return result;
}

double toSerial(const Date& date) {
    const auto day = std::chrono::floor<std::chrono::days>(date.at);
    const auto days = static_cast<double>((day - dayZero).count());
    const double time = static_cast<double>((date.at - day).count()) / static_cast<double>(secondsOfDay);
    return days < 0 ? days - time : days + time;
}

Date fromSerial(double serial) {
    constexpr double mostDays = 4e6;
    if (!(std::abs(serial) < mostDays)) {
        raise(overflow);
    }
    const double days = std::trunc(serial);
    const double time = std::round(std::abs(serial - days) * static_cast<double>(secondsOfDay));
    const Date date{dayZero + std::chrono::days{static_cast<int>(days)} +
                    std::chrono::seconds{static_cast<std::int64_t>(time)}};
    const int year = static_cast<int>(takeApart(date).day.year());
    if (year < leastYear || year > greatestYear) {
        raise(overflow);
    }
    return date;
}

}  // namespace velmora::runtime
