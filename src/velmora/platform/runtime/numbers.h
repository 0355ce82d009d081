#pragma once
// Numbers of the language: parsing, formatting, rounding, masks. Independent of the process's locale.

#include <cstdint>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/locale.h"

namespace velmora::runtime {

/// Text to number by the locale. Accepted: surrounding blanks; a sign before or after; thousands dots anywhere left of
/// the comma except at the very start, all ignored (so "1.5" is 15); exponent e or d; a currency sign; parentheses
/// (without a sign) for a negative number; whole numbers as &H1F or &O17. Underflow gives 0. Errors: 13 when the text
/// is no number, 6 when it is too large.
double CDbl(std::string_view text, const Locale& locale = esES);

/// True exactly when CDbl accepts the text.
bool IsNumeric(std::string_view text, const Locale& locale = esES);

/// Default text of a number: at most 15 significant digits, no trailing zeros, the locale's decimal sign; exponent form
/// from 1E+15, below 0,0001 and where more than 15 decimals would be needed. Error 6 for infinities and NaN.
std::string CStr(double value, const Locale& locale = esES);
std::string CStr(std::int64_t value);

/// The shortest digits that parse back to the same double, with a decimal point; used for numbers in a range query.
/// Error 6 for infinities and NaN.
std::string shortest(double value);

/// A number under a mask: `0.00`, `#0.00`, `#,##0.00`, `###,###,##0.00`, `#,###,##0.00`, `#,##0.0000`, `000`, `000000`,
/// `#0.` and zeros. Text around the digits is copied, an empty mask is CStr, a date mask formats the number as a date.
/// Halves are rounded away from zero on the decimal value of the double (its 15-digit text); a value that rounds to
/// zero has no minus sign. Error 6 for infinities and NaN.
std::string Format(double value, std::string_view mask, const Locale& locale = esES);

/// A text under a mask: a numeric text is converted first, and so is the text of a date under a date mask; any other
/// text is returned unchanged.
std::string Format(std::string_view text, std::string_view mask, const Locale& locale = esES);

/// The language's rounding: half to even, decided on the exact binary value of the double (0.5 and 2.5 are halves;
/// 1.005 is not, it lies below one). `decimals` 0 to 15, else error 5; error 6 for infinities and NaN.
double Round(double value, int decimals = 0);

/// Half away from zero on the decimal value of the double (its 15-digit text): 1.005 gives 1.01, 2.675 gives 2.68.
/// The result never has more than those 15 digits. Error 6 for infinities and NaN.
double Redondear(double value, int decimals);

/// To 16 or 32 bits, half to even; &H and &O in a text give the bit pattern, so &HFFFF is -1 in 16 bits. Errors: 6
/// outside the range, 13 for a text that is no number.
std::int16_t CInt(double value);
std::int16_t CInt(std::string_view text, const Locale& locale = esES);
std::int32_t CLng(double value);
std::int32_t CLng(std::string_view text, const Locale& locale = esES);

/// The number at the start of a text, with a decimal point whatever the locale; 0 when there is none. Blanks and line
/// ends are skipped everywhere ("1 2 mm" is 12). Error 6 when it is too large.
double Val(std::string_view text);

/// The greatest whole number not above the value.
double Int(double value);

/// a / b; error 11 when b is zero, error 6 for 0/0, never an infinity.
double divide(double a, double b);

}  // namespace velmora::runtime
