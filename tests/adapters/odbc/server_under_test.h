#pragma once
// The database server that tests may use: VELMORA_TEST_DSN holds its connection string, or the name of a file with it.

#include <optional>
#include <string>

namespace velmora::test {

/// None when no server was named.
std::optional<std::string> testServer();

/// Removes all tables of the server's database and of its documents' catalogue whose names begin with "T_".
void dropTestTables(const std::string& server);

/// Removes all tables of both.
void dropAllTables(const std::string& server);

}  // namespace velmora::test
