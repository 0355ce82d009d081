#pragma once
// A text read as a number, before anybody has decided what a failure means.

#include <string_view>

#include "velmora/platform/runtime/locale.h"

namespace velmora::runtime {

enum class Outcome { number, noNumber, tooLarge };

struct Reading {
    Outcome outcome = Outcome::noNumber;
    double value = 0;
    bool radix = false;  ///< written with &H or &O: its bits may also be meant as a negative whole number
};

/// The whole text as one number by the conventions of the locale; what is accepted stands at CDbl.
Reading readNumber(std::string_view text, const Locale& locale);

/// The number that was read. Error 13 when there is none, 6 when it is too large.
double valueOf(const Reading& reading);

}  // namespace velmora::runtime
