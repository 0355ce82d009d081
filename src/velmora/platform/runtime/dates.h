#pragma once
// Dates of the language: from text, day first, and to text.

#include <string>
#include <string_view>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/runtime/locale.h"

namespace velmora::runtime {

/// Text to date: day/month/year first, then what else can be meant: "12/31/2024", "2024-05-06" (the year may come
/// first where it cannot be a day), "31 dic 2024", "12/2024" for the first of the month; a time alone is of
/// 1899-12-30. Two-digit years are 1950 to 2049; a text that names no year is no date. Error 13 when the text is none.
Date CDate(std::string_view text);

/// True exactly when CDate accepts the text.
bool IsDate(std::string_view text);

/// Default text of a date: "15/01/2026", with the time behind it unless it is midnight: "15/01/2026 9:05:00".
std::string CStr(const Date& date);

/// A date under a mask: `dd/mm/yyyy`, `yyyymmddhhnn` and other arrangements of dd, mm, yyyy, hh, nn, ss; a single
/// letter leaves the leading zero out, yy shows two digits, mm right behind hh are minutes. Other characters stay.
std::string Format(const Date& date, std::string_view mask);

/// A date as a number: days since 1899-12-30, the time of day as the fraction (which goes forward also before that
/// day).
double toSerial(const Date& date);

/// The date of such a number, to the second. Error 6 outside the years 100 to 9999.
Date fromSerial(double serial);

}  // namespace velmora::runtime
