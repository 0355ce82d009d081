#pragma once
// Conversions between texts and the other types, as the server makes them.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/date.h"

namespace velmora::tsql {

/// A text as a whole number: blanks around it, a sign, digits. None for any other text, the empty one included.
std::optional<std::int64_t> wholeFromText(std::string_view text);

/// A text as a number, with a decimal point and perhaps an exponent.
std::optional<double> numberFromText(std::string_view text);

/// A text as a bit: a whole number, of which all but 0 are 1, or True or False in any case.
std::optional<bool> bitFromText(std::string_view text);

/// A number as text: six significant digits, exponents of three digits: 12.5, 123457, 1e+006.
std::string textFromReal(double value);

/// A number with so many places after the point.
std::string textFromDecimal(double value, int scale);

/// A text as a point in time, day first: dd/mm/yyyy or dd-mm-yyyy or dd.mm.yyyy, yyyymmdd, yyyy-mm-dd, each perhaps
/// with hh:mm or hh:mm:ss behind; a blank text is the first of January 1900. None outside the years 1753 to 9999.
std::optional<runtime::Date> dateFromText(std::string_view text);

/// YYYY-MM-DD HH:MM:SS, as style 120 writes it; none for any other text.
std::string isoText(const runtime::Date& date);
std::optional<runtime::Date> dateFromIso(std::string_view text);

/// A date as text under a style of CONVERT: 103, 112, 120. None for another style.
std::optional<std::string> textFromDate(const runtime::Date& date, std::int64_t style);

/// Half away from zero at a place after the point; a negative place lies before it.
double roundedTo(double value, std::int64_t places);

}  // namespace velmora::tsql
