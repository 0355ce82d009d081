#pragma once
// The digits of a number, collected while a text is parsed.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

#include "velmora/platform/runtime/number_reading.h"

namespace velmora::runtime {

/// A plain number with a decimal point, collected for from_chars. Texts of usual length need no heap allocation.
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
            // Underflow is zero, overflow an error; from_chars reports both alike.
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

}  // namespace velmora::runtime
