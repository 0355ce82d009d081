#pragma once
// Handles of the driver manager as owning types. Only the documented interface of ODBC 3 is used.

#ifdef _WIN32
#include <windows.h>
#endif

#include <chrono>
#include <cstdint>
#include <optional>
#include <utility>

#include <sql.h>
#include <sqlext.h>

namespace velmora::odbc {

/// What failed without a diagnostic of its own: the driver manager has no memory or the handle is not valid.
[[noreturn]] void throwNoHandle();

/// Owns one handle; freed with its owner. `kind` is SQL_HANDLE_ENV, SQL_HANDLE_DBC or SQL_HANDLE_STMT.
template <SQLSMALLINT kind>
class Handle {
  public:
    /// Allocates it below `parent`. Errors: DbError (provider::failure).
    explicit Handle(SQLHANDLE parent) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_))) {
            throwNoHandle();
        }
    }
    ~Handle() {
        if (handle_ != nullptr) {
            SQLFreeHandle(kind, handle_);
        }
    }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&&) = delete;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE get() const { return handle_; }

  private:
    SQLHANDLE handle_ = nullptr;
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

/// The statements of one connection. One that has run to its end is used again: making one costs the driver as much as
/// describing a short answer. For the thread that uses the connection.
class StatementStock {
  public:
    /// Each wait of its statements for the server ends after `patience`; 0: never.
    StatementStock(SQLHANDLE connection, std::chrono::seconds patience)
        : connection_(connection), patience_(patience) {}

    /// Errors: DbError (provider::failure).
    StatementHandle take();
    /// Of a statement that has run to its end, without parameters.
    void giveBack(StatementHandle statement) noexcept;
    /// Before the connection ends.
    void clear() { idle_.reset(); }

  private:
    SQLHANDLE connection_;
    std::chrono::seconds patience_;
    std::optional<StatementHandle> idle_;
};

/// A whole number where the interface wants a pointer.
SQLPOINTER asPointer(std::uintptr_t value);

/// The process's environment, made at the first call, ODBC 3 behaviour.
SQLHANDLE environment();

}  // namespace velmora::odbc
