#pragma once
// The statements that look for proposals, in T-SQL. Each uses an index that docs/indexes.sql lists, the primary key, or
// stays within a range of it.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/finding/wanted.h"

namespace velmora::finding {

/// At most this many rows come from one statement.
inline constexpr int mostRows = 200;
/// At most this many customers are looked up by their names.
inline constexpr int mostCustomers = 20;

/// The proposals with the highest numbers.
std::string latestStatement();
std::string numberStatement(std::int32_t number);
/// A save stores two decimals of pitch and module, so a size matches what is stored of it.
std::string toothingStatement(const WantedToothing& toothing);
/// The proposals of a customer by the number.
std::string customerStatement(std::int32_t code);
/// The customers, as CLI_COD, whose name or commercial name contains every word.
std::string customersStatement(const std::vector<std::string>& words);
/// The proposals with a number above `after` whose customer, reference or order of the customer contains each word.
std::string textStatement(const std::vector<std::string>& words, std::int64_t after);

/// A T-SQL literal that LIKE finds wherever the word stands, whatever its case and accents; quotes and the signs of
/// patterns stand for themselves.
std::string containing(std::string_view word);

}  // namespace velmora::finding
