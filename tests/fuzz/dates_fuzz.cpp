// Any text read as a date, and any date under any mask. The first line of the input is the text, the rest the mask. A
// text that is no date gives the serial number that its first bytes make.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"

#include "expect.h"

namespace {

using namespace velmora::runtime;
using velmora::fuzz::expect;

std::optional<Date> dateOfText(std::string_view text) {
    try {
        const Date date = CDate(text);
        expect(IsDate(text), "what CDate reads is a date");
        return date;
    } catch (const RuntimeError& error) {
        expect(error.number() == typeMismatch, "a text that is no date is error 13");
        expect(!IsDate(text), "what CDate refuses is no date");
        return std::nullopt;
    }
}

/// The number stays as it is, or is brought among those of the dates, which are few among all numbers.
std::optional<Date> dateOfBytes(std::string_view text) {
    double serial = 0;
    std::memcpy(&serial, text.data(), std::min(text.size(), sizeof serial));
    if (std::isfinite(serial) && text.size() > sizeof serial) {
        serial = std::fmod(serial, 3e6);
    }
    try {
        return fromSerial(serial);
    } catch (const RuntimeError& error) {
        expect(error.number() == overflow, "a number that is no date is error 6");
        return std::nullopt;
    }
}

void expectSurvives(const Date& date) {
    const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(date.at)};
    expect(day.ok() && static_cast<int>(day.year()) >= 100 && static_cast<int>(day.year()) <= 9999,
           "the year is 100 to 9999");
    expect(fromSerial(toSerial(date)) == date, "a date survives as a number");
    expect(CDate(CStr(date)) == date, "CDate reads what CStr writes");
    expect(CDate(Format(date, "dd/mm/yyyy hh:nn:ss")) == date, "CDate reads the day first");
    expect(CDate(Format(date, "yyyy-mm-dd hh:nn:ss")) == date, "CDate reads the year first");
    const std::string digits = Format(date, "yyyymmddhhnnss");
    expect(digits.size() == 14 && digits.find_first_not_of("0123456789") == std::string::npos, "a stamp is 14 digits");
}

/// Each run of one letter becomes at most four digits, anything else is copied.
void expectFits(const Date& date, std::string_view mask) {
    const std::string shown = Format(date, mask);
    expect(shown.size() <= 4 * mask.size(), "no place of a mask takes more than four digits");
    expect(mask.find_first_of("dmyhnsDMYHNS") != std::string_view::npos || shown == mask,
           "a mask without places is copied");
    if (const std::optional<Date> again = dateOfText(shown)) {
        expectSurvives(*again);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view text = input.substr(0, input.find('\n'));
    const std::string_view mask = text.size() < input.size() ? input.substr(text.size() + 1) : std::string_view();
    std::optional<Date> date = dateOfText(text);
    if (!date) {
        date = dateOfBytes(text);
    }
    if (date) {
        expectSurvives(*date);
        expectFits(*date, mask);
    }
    return 0;
}
