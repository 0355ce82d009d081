#pragma once
// Dates of the language: parsed from text, day first, and formatted as text.

#include <string>
#include <string_view>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/runtime/locale.h"

namespace velmora::runtime {

/// Text to date: day/month/year first, then other orders that are valid: "12/31/2024", "2024-05-06" (the year may come
/// first where it cannot be a day), "31 dic 2024", "12/2024" for the first of the month; a time alone belongs to
/// 1899-12-30. Two-digit years are 1950 to 2049; a text without a year is not a date. Error 13 when the text is no
/// date.
Date CDate(std::string_view text);

/// True exactly when CDate accepts the text.
bool IsDate(std::string_view text);

/// Default text of a date: "15/01/2026", followed by the time unless it is midnight: "15/01/2026 9:05:00".
std::string CStr(const Date& date);

/// A date under a mask: `dd/mm/yyyy`, `yyyymmddhhnn` and other arrangements of dd, mm, yyyy, hh, nn, ss. A single
/// letter omits the leading zero, yy gives two digits, mm directly after hh means minutes. Other characters are copied.
std::string Format(const Date& date, std::string_view mask);

/// A date as a number: days since 1899-12-30, the time of day as the fraction. Before that day the fraction still
/// counts forward: -1.25 is 1899-12-29 6:00.
double toSerial(const Date& date);

/// The date of a serial number, to the second. Error 6 outside the years 100 to 9999.
Date fromSerial(double serial);

}  // namespace velmora::runtime
