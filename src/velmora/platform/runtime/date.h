#pragma once
// A point in time as the language holds it: local date and time to the second, no time zone.

#include <chrono>
#include <compare>

namespace velmora::runtime {

struct Date {
    std::chrono::sys_seconds at{};  ///< local time, counted as if it were UTC

    friend auto operator<=>(const Date&, const Date&) = default;

    /// The parts of a calendar date; the caller must ensure that they are valid.
    static Date of(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0) {
        using namespace std::chrono;
        return Date{sys_days{std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day}} +
                    hours{hour} + minutes{minute} + seconds{second}};
    }
};

}  // namespace velmora::runtime
