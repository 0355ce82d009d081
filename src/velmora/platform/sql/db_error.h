#pragma once
// The database's errors: run-time errors with the data provider's number and further details.

#include <string>

#include "velmora/platform/runtime/errors.h"

namespace velmora::sql {

/// Numbers of the data provider, as signed 32-bit values.
namespace provider {
inline constexpr long missingTable = static_cast<int>(0x80040E37u);
inline constexpr long syntax = static_cast<int>(0x80040E14u);      ///< also: unknown column, unsupported construct
inline constexpr long constraint = static_cast<int>(0x80040E2Fu);  ///< NOT NULL, key, foreign key
inline constexpr long conversion = static_cast<int>(0x80040E07u);  ///< a value that does not fit its column's type
inline constexpr long truncation = static_cast<int>(0x80040E57u);  ///< a text too long for its column
inline constexpr long rowGone = static_cast<int>(0x80040E38u);     ///< the row to be written no longer exists
inline constexpr long noTransaction =
    static_cast<int>(0x8004D00Eu);  ///< commit or rollback without an open transaction
inline constexpr long transactionOpen = static_cast<int>(0x8004D013u);  ///< a second transaction begun inside the first
inline constexpr long timeout = static_cast<int>(0x80040E31u);          ///< another writer holds the database
inline constexpr long failure = static_cast<int>(0x80004005u);          ///< connection lost, disk full, file read-only
}  // namespace provider

/// Raised by every operation of a connection and a recordset that reaches the engine.
class DbError : public runtime::RuntimeError {
  public:
    struct Details {
        std::string sqlState{};   ///< five characters, empty when the engine gives none
        int nativeCode = 0;       ///< the engine's own error number
        std::string statement{};  ///< the text of the statement, empty when there was none
    };

    DbError(long number, std::string description) : DbError(number, std::move(description), Details()) {}
    DbError(long number, std::string description, Details details)
        : RuntimeError(number, std::move(description), "VELMORA.Data"), details_(std::move(details)) {}

    const Details& details() const { return details_; }

  private:
    Details details_;
};

}  // namespace velmora::sql
