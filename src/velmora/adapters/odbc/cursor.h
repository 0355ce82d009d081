#pragma once
// A statement that has been sent, and the rows that it answers, forward only.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/odbc/handles.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::odbc {

/// What a column's type becomes.
enum class Kind { bit, whole, number, text, date, binary };

struct CursorColumn {
    std::string name;
    Kind kind = Kind::text;
    bool identity = false;  ///< numbered by the server; told of sets with a binary column only
};

/// Everything that the driver says goes out as DbError with the statement.
class Cursor {
  public:
    /// Sends the statement. A statement without rows has run to its end afterwards. `statements` must live longer.
    Cursor(StatementStock& statements, std::string statement);
    /// A statement that run() sends.
    struct Later {};
    Cursor(StatementStock& statements, std::string statement, Later later);
    void run();
    ~Cursor();
    Cursor(Cursor&&) noexcept = default;
    Cursor& operator=(Cursor&&) = delete;

    /// Of the statement while it runs, for SQLCancel, which another thread may call.
    SQLHANDLE handle() const { return handle_.get(); }
    /// Empty for a statement that answers no rows.
    const std::vector<CursorColumn>& columns() const { return columns_; }

    /// The next row; false behind the last one, with the statement run to its end.
    bool next(sql::Row& row);

    /// Rows that a statement without an answer has changed; -1 when the driver cannot tell.
    long changedRows() const { return changedRows_; }

  private:
    void describe();
    void findIdentity();
    void finish();
    sql::Value value(SQLUSMALLINT column, Kind kind);
    sql::Value text(SQLUSMALLINT column);
    sql::Value bytes(SQLUSMALLINT column);
    void require(SQLRETURN answer) const;

    StatementStock* statements_;
    std::string statement_;
    StatementHandle handle_;
    std::vector<CursorColumn> columns_;
    long changedRows_ = -1;
    bool ended_ = false;
};

/// Runs an UPDATE whose one parameter is a binary content, sent whole. The number of rows that it changed. Errors:
/// DbError.
long updateBinary(StatementStock& statements, const std::string& statement, const sql::Bytes& content);

}  // namespace velmora::odbc
