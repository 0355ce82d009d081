#include "velmora/adapters/odbc/cursor.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "velmora/adapters/odbc/diagnostics.h"
#include "velmora/adapters/odbc/utf16.h"

namespace velmora::odbc {

namespace {

/// Bytes fetched at a time of a column whose length is not known beforehand.
constexpr std::size_t pieceSize = std::size_t{64} * 1024;
constexpr std::size_t longestName = 256;

/// Types that the server has beyond those of ODBC, as its drivers number them.
constexpr SQLSMALLINT serverTime = -154;

Kind kindOf(SQLSMALLINT type) {
    switch (type) {
        case SQL_BIT:
            return Kind::bit;
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return Kind::whole;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return Kind::number;
        case SQL_DATE:
        case SQL_TIME:
        case SQL_TIMESTAMP:
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIME:
        case SQL_TYPE_TIMESTAMP:
        case serverTime:
            return Kind::date;
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY:
            return Kind::binary;
        default:
            return Kind::text;
    }
}

SQLWCHAR* unitsOf(std::u16string& text) {
    static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the driver manager takes UTF-16");
    return reinterpret_cast<SQLWCHAR*>(text.data());
}

}  // namespace

Cursor::Cursor(StatementStock& statements, std::string statement) : Cursor(statements, std::move(statement), Later()) {
    run();
}

Cursor::Cursor(StatementStock& statements, std::string statement, Later /*later*/)
    : statements_(&statements), statement_(std::move(statement)), handle_(statements.take()) {}

void Cursor::run() {
    std::u16string text = toUtf16(statement_);
    const SQLRETURN answer = SQLExecDirectW(handle_.get(), unitsOf(text), static_cast<SQLINTEGER>(text.size()));
    if (answer != SQL_NO_DATA) {
        require(answer);
    }
    describe();
    if (columns_.empty()) {
        SQLLEN changed = -1;
        SQLRowCount(handle_.get(), &changed);
        changedRows_ = static_cast<long>(changed);
        finish();
    }
}

Cursor::~Cursor() {
    if (ended_ && handle_.get() != nullptr) {
        statements_->giveBack(std::move(handle_));
    }
}

void Cursor::require(SQLRETURN answer) const {
    if (!SQL_SUCCEEDED(answer)) {
        throw errorOf(diagnosticsOf(SQL_HANDLE_STMT, handle_.get()), statement_);
    }
}

void Cursor::describe() {
    SQLSMALLINT count = 0;
    require(SQLNumResultCols(handle_.get(), &count));
    std::u16string name(longestName, u'\0');
    bool hasBinary = false;
    for (SQLUSMALLINT column = 1; column <= static_cast<SQLUSMALLINT>(count); ++column) {
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLULEN size = 0;
        SQLSMALLINT decimals = 0;
        SQLSMALLINT nullable = 0;
        require(SQLDescribeColW(handle_.get(), column, unitsOf(name), static_cast<SQLSMALLINT>(name.size()), &length,
                                &type, &size, &decimals, &nullable));
        const std::size_t shown = std::min(static_cast<std::size_t>(length), name.size() - 1);
        columns_.push_back({.name = toUtf8(std::u16string_view(name).substr(0, shown)), .kind = kindOf(type)});
        hasBinary = hasBinary || columns_.back().kind == Kind::binary;
    }
    if (hasBinary) {
        findIdentity();
    }
}

/// Only a set through which a content can be written needs to know which column the server numbers.
void Cursor::findIdentity() {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        SQLLEN identity = SQL_FALSE;
        SQLColAttributeW(handle_.get(), static_cast<SQLUSMALLINT>(i + 1), SQL_DESC_AUTO_UNIQUE_VALUE, nullptr, 0,
                         nullptr, &identity);
        columns_[i].identity = identity == SQL_TRUE;
    }
}

/// Takes what the server has still to say: a batch's later errors come with the results behind the first one.
void Cursor::finish() {
    for (;;) {
        const SQLRETURN answer = SQLMoreResults(handle_.get());
        if (answer == SQL_NO_DATA) {
            ended_ = true;
            return;
        }
        require(answer);
    }
}

bool Cursor::next(sql::Row& row) {
    const SQLRETURN answer = SQLFetch(handle_.get());
    if (answer == SQL_NO_DATA) {
        finish();
        return false;
    }
    require(answer);
    row.clear();
    row.reserve(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        row.push_back(value(static_cast<SQLUSMALLINT>(i + 1), columns_[i].kind));
    }
    return true;
}

sql::Value Cursor::value(SQLUSMALLINT column, Kind kind) {
    SQLLEN length = 0;
    const auto fetch = [&](SQLSMALLINT type, auto& into) {
        require(SQLGetData(handle_.get(), column, type, &into, sizeof into, &length));
        return length != SQL_NULL_DATA;
    };
    switch (kind) {
        case Kind::bit: {
            unsigned char bit = 0;
            return fetch(SQL_C_BIT, bit) ? sql::Value(bit != 0) : sql::Value();
        }
        case Kind::whole: {
            std::int64_t whole = 0;
            return fetch(SQL_C_SBIGINT, whole) ? sql::Value(whole) : sql::Value();
        }
        case Kind::number: {
            double number = 0;
            return fetch(SQL_C_DOUBLE, number) ? sql::Value(number) : sql::Value();
        }
        case Kind::date: {
            SQL_TIMESTAMP_STRUCT at{};
            // The program's dates are to the second: what is left of a second is dropped.
            return fetch(SQL_C_TYPE_TIMESTAMP, at)
                       ? sql::Value(runtime::Date::of(at.year, at.month, at.day, at.hour, at.minute, at.second))
                       : sql::Value();
        }
        case Kind::binary:
            return bytes(column);
        case Kind::text:
            break;
    }
    return text(column);
}

sql::Value Cursor::text(SQLUSMALLINT column) {
    std::u16string all;
    std::array<char16_t, 512> few;  // as the driver fills it
    std::u16string piece;
    void* into = few.data();
    std::size_t room = few.size();
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN answer =
            SQLGetData(handle_.get(), column, SQL_C_WCHAR, into, static_cast<SQLLEN>(room * sizeof(char16_t)), &length);
        if (answer == SQL_NO_DATA) {
            break;
        }
        require(answer);
        if (length == SQL_NULL_DATA) {
            return {};
        }
        const std::size_t held = room - 1;  // a piece ends with a zero
        const bool cut = answer == SQL_SUCCESS_WITH_INFO &&
                         (length == SQL_NO_TOTAL || static_cast<std::size_t>(length) / sizeof(char16_t) > held);
        const std::size_t taken = cut ? held : static_cast<std::size_t>(length) / sizeof(char16_t);
        const std::u16string_view part(static_cast<const char16_t*>(into), taken);
        if (!cut && all.empty()) {
            return toUtf8(part);
        }
        all.append(part);
        if (!cut) {
            break;
        }
        piece.resize(pieceSize / sizeof(char16_t));
        into = piece.data();
        room = piece.size();
    }
    return toUtf8(all);
}

sql::Value Cursor::bytes(SQLUSMALLINT column) {
    sql::Bytes all;
    std::size_t used = 0;
    for (;;) {
        all.resize(used + std::max(pieceSize, used / 2));
        const std::size_t room = all.size() - used;
        SQLLEN length = 0;
        const SQLRETURN answer =
            SQLGetData(handle_.get(), column, SQL_C_BINARY, all.data() + used, static_cast<SQLLEN>(room), &length);
        if (answer == SQL_NO_DATA) {
            break;
        }
        require(answer);
        if (length == SQL_NULL_DATA) {
            return {};
        }
        const bool cut =
            answer == SQL_SUCCESS_WITH_INFO && (length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > room);
        used += cut ? room : static_cast<std::size_t>(length);
        if (!cut) {
            break;
        }
    }
    all.resize(used);
    all.shrink_to_fit();
    return all;
}

long updateBinary(StatementStock& statements, const std::string& statement, const sql::Bytes& content) {
    const StatementHandle handle = statements.take();
    const auto require = [&](SQLRETURN answer) {
        if (!SQL_SUCCEEDED(answer) && answer != SQL_NO_DATA) {
            throw errorOf(diagnosticsOf(SQL_HANDLE_STMT, handle.get()), statement);
        }
    };
    // The interface takes a pointer to what it only reads.
    auto* bytes = const_cast<std::byte*>(content.data());
    std::byte none{};
    auto length = static_cast<SQLLEN>(content.size());
    // Drivers that cannot ask the server for a parameter's type take the one given here.
    require(SQLBindParameter(handle.get(), 1, SQL_PARAM_INPUT, SQL_C_BINARY, SQL_LONGVARBINARY,
                             std::max<SQLULEN>(content.size(), 1), 0, content.empty() ? &none : bytes, length,
                             &length));
    std::u16string text = toUtf16(statement);
    require(SQLExecDirectW(handle.get(), unitsOf(text), static_cast<SQLINTEGER>(text.size())));
    SQLLEN changed = -1;
    require(SQLRowCount(handle.get(), &changed));
    return static_cast<long>(changed);
}

}  // namespace velmora::odbc
