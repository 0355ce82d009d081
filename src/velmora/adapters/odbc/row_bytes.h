#pragma once
// Rows as bytes, in memory or in a temporary file of this process.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/value.h"

namespace velmora::odbc {

std::string toBytes(const std::vector<sql::Row>& rows);

/// What toBytes gave; anything else is undefined.
std::vector<sql::Row> fromBytes(std::string_view bytes);

}  // namespace velmora::odbc
