#pragma once
// Handles of the driver manager as owning types. Only the documented interface of ODBC 3 is used.

#ifdef _WIN32
#include <windows.h>
#endif

#include <chrono>
#include <cstdint>
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

/// A statement on a connection, whose waits for the server end after `patience`; 0: never.
StatementHandle newStatement(SQLHANDLE connection, std::chrono::seconds patience);

/// A whole number where the interface wants a pointer.
SQLPOINTER asPointer(std::uintptr_t value);

/// The process's environment, made at the first call, ODBC 3 behaviour.
SQLHANDLE environment();

}  // namespace velmora::odbc
