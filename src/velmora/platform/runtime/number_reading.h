#pragma once
// The result of parsing a text as a number, before the caller decides how to treat a failure.

#include <string_view>

#include "velmora/platform/runtime/locale.h"

namespace velmora::runtime {

enum class Outcome { number, noNumber, tooLarge };

struct Reading {
    Outcome outcome = Outcome::noNumber;
    double value = 0;
    bool radix = false;  ///< written with &H or &O: a bit pattern, which may stand for a negative whole number
};

/// Parses the whole text as one number by the conventions of the locale; CDbl documents what is accepted.
Reading readNumber(std::string_view text, const Locale& locale);

/// The number parsed. Error 13 when the text is no number, 6 when it is too large.
double valueOf(const Reading& reading);

}  // namespace velmora::runtime
