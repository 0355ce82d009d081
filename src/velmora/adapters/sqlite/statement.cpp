#include "velmora/adapters/sqlite/statement.h"

#include <string>
#include <variant>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/tsql/conversions.h"

namespace velmora::sqlite {

namespace {

sql::Bytes bytesOf(sqlite3_value* value) {
    const auto* first = static_cast<const std::byte*>(sqlite3_value_blob(value));
    return first ? sql::Bytes(first, first + sqlite3_value_bytes(value)) : sql::Bytes();
}

std::string_view textOf(sqlite3_value* value) {
    const auto* first = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {first, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3* database, std::string_view sql, bool kept) {
    sqlite3_stmt* prepared = nullptr;
    const int code = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                        kept ? SQLITE_PREPARE_PERSISTENT : 0, &prepared, nullptr);
    handle_.reset(prepared);
    if (code != SQLITE_OK) {
        throwEngineError(database, code);
    }
}

void Statement::bind(int parameter, std::int64_t value) {
    bound(sqlite3_bind_int64(handle_.get(), parameter, value));
}

void Statement::bind(int parameter, double value) {
    bound(sqlite3_bind_double(handle_.get(), parameter, value));
}

void Statement::bind(int parameter, std::string_view value) {
    bound(sqlite3_bind_text64(handle_.get(), parameter, value.data(), value.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::bind(int parameter, const sql::Bytes& value) {
    // Chosen C-188: no bytes are an empty content. Without an address they would be taken for null.
    bound(value.empty() ? sqlite3_bind_zeroblob(handle_.get(), parameter, 0)
                        : sqlite3_bind_blob64(handle_.get(), parameter, value.data(), value.size(), SQLITE_STATIC));
}

void Statement::bind(const std::vector<sql::Value>& values) {
    int parameter = 0;
    for (const sql::Value& value : values) {
        ++parameter;
        if (const auto* const whole = std::get_if<std::int64_t>(&value.raw())) {
            bind(parameter, *whole);
        } else if (const auto* const number = std::get_if<double>(&value.raw())) {
            bind(parameter, *number);
        } else if (const auto* const text = std::get_if<std::string>(&value.raw())) {
            bind(parameter, std::string_view(*text));
        }
    }
}

void Statement::forgetValues() {
    sqlite3_clear_bindings(handle_.get());
}

void Statement::bindRow(int firstParameter, const Statement& row) {
    for (int column = 0; column < row.columnCount(); ++column) {
        bound(sqlite3_bind_value(handle_.get(), firstParameter + column,
                                 sqlite3_column_value(row.handle_.get(), column)));
    }
}

void Statement::bound(int code) const {
    if (code != SQLITE_OK) {
        throwEngineError(sqlite3_db_handle(handle_.get()), code);
    }
}

bool Statement::step() {
    const int code = sqlite3_step(handle_.get());
    if (code == SQLITE_ROW || code == SQLITE_DONE) {
        return code == SQLITE_ROW;
    }
    try {
        throwEngineError(sqlite3_db_handle(handle_.get()), code);
    } catch (...) {
        reset();
        throw;
    }
}

void Statement::reset() {
    sqlite3_reset(handle_.get());
    sqlite3_stmt_status(handle_.get(), SQLITE_STMTSTATUS_VM_STEP, 1);  // StepLimit counts those of one run
}

sql::Value Statement::value(int column, tsql::Kind kind) const {
    // One look at the row for type and content: a link is used by one thread at a time.
    sqlite3_value* const stored = sqlite3_column_value(handle_.get(), column);
    switch (sqlite3_value_type(stored)) {
        case SQLITE_INTEGER: {
            const std::int64_t whole = sqlite3_value_int64(stored);
            if (kind == tsql::Kind::bit) {
                return whole != 0;
            }
            if (kind == tsql::Kind::real || kind == tsql::Kind::decimal) {
                return static_cast<double>(whole);
            }
            return whole;
        }
        case SQLITE_FLOAT:
            return sqlite3_value_double(stored);
        case SQLITE_TEXT: {
            const std::string_view text = textOf(stored);
            if (kind == tsql::Kind::date) {
                if (const auto date = tsql::dateFromIso(text)) {
                    return *date;
                }
            }
            return std::string(text);
        }
        case SQLITE_BLOB:
            return bytesOf(stored);
        default:
            return {};
    }
}

std::int64_t Statement::whole(int column) const {
    return sqlite3_column_int64(handle_.get(), column);
}

int Statement::columnCount() const {
    return sqlite3_column_count(handle_.get());
}

int Statement::timesPreparedAnew() const {
    return sqlite3_stmt_status(handle_.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
}

}  // namespace velmora::sqlite
