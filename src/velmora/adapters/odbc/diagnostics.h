#pragma once
// What a driver says of a call that failed, as an error with the data provider's number.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/odbc/handles.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::odbc {

struct Diagnostic {
    std::string state;  ///< SQLSTATE, five characters
    int native = 0;     ///< the server's own number
    std::string text;   ///< without the names of driver and manager in front
};

/// All records of the handle's last call, the most important one first, as the driver orders them.
std::vector<Diagnostic> diagnosticsOf(SQLSMALLINT kind, SQLHANDLE handle);

/// The data provider's number: by the server's number where SQLSTATE says too little, else by SQLSTATE; a connection
/// that is lost and whatever is not known is provider::failure.
long providerNumber(const Diagnostic& diagnostic);

/// True for the SQLSTATE of a connection that is no longer there.
bool isLoss(std::string_view state);

/// The SQLSTATE of a statement that the server has not answered in time.
bool isTimeout(std::string_view state);

/// Numbers of the server that the adapter itself reacts to.
namespace native {
inline constexpr int deadlockVictim = 1205;
inline constexpr int lockTimeout = 1222;
}  // namespace native

/// The error of the first record that is one. A deadlock's victim is told that it may try again.
sql::DbError errorOf(const std::vector<Diagnostic>& diagnostics, std::string_view statement);

}  // namespace velmora::odbc
