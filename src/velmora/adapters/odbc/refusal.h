#pragma once
// Why a connection could not be opened, in the user's words.

#include <string>
#include <vector>

#include "velmora/adapters/odbc/diagnostics.h"

namespace velmora::odbc {

/// The error (provider::failure) for what driver and server said of a connection that they refused: first which of the
/// possible reasons it is, then all that was said, without the connection string's password.
sql::DbError refusalOf(const std::vector<Diagnostic>& diagnostics, const std::string& connectionText);

}  // namespace velmora::odbc
