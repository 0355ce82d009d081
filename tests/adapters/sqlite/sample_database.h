#pragma once
// A database in memory: the tables that the program's statements reach, and a few rows.

#include <memory>
#include <string>

#include "velmora/platform/sql/connection.h"

namespace velmora::test {

/// Now is 15 January 2026, 10:00.
std::unique_ptr<sql::Connection> openSampleDatabase();

/// All rows as text: values by "|", rows by "/"; texts as they are, numbers in shortest digits (a float with whole
/// value keeps ".0"), bits as "true" and "false", dates as 2026-01-15 10:00:00, null as NULL, bytes as 0x….
std::string shown(sql::Recordset rows);

}  // namespace velmora::test
