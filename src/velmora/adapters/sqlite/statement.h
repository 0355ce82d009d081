#pragma once
// A prepared statement of the engine.

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "velmora/adapters/tsql/types.h"
#include "velmora/platform/sql/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace velmora::sqlite {

class Statement {
  public:
    /// `kept`: the statement will be run many times (a hint to the engine). Errors: DbError.
    Statement(sqlite3* database, std::string_view sql, bool kept);

    /// Gives its 1-based parameter a value.
    void bind(int parameter, std::int64_t value);
    void bind(int parameter, double value);
    /// Nothing is copied: text and bytes must outlive the last step.
    void bind(int parameter, std::string_view value);
    void bind(int parameter, const sql::Bytes& value);
    /// Gives its parameters from the first on these whole numbers, numbers, texts and nulls, which must outlive the
    /// last step; they are null until then.
    void bind(const std::vector<sql::Value>& values);
    /// The parameters are null again.
    void forgetValues();
    /// Gives the parameters from this one on the columns of the row on which the other statement stands, as stored.
    void bindRow(int firstParameter, const Statement& row);
    /// To the next row; false behind the last one. Errors: DbError, and the statement is at its start again.
    bool step();
    /// Back to the start; releases the locks and the state of the database that it holds.
    void reset();

    /// A column of the row on which the statement stands.
    sql::Value value(int column, tsql::Kind kind) const;
    std::int64_t whole(int column) const;
    int columnCount() const;

    /// How often the engine has prepared it anew by itself, after a change of the tables.
    int timesPreparedAnew() const;

  private:
    void bound(int code) const;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

}  // namespace velmora::sqlite
