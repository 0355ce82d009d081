#pragma once
// A database in memory for statements of any kind, and what must hold when one is run.

#include <array>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "velmora/adapters/sqlite/database.h"

#include "expect.h"

namespace velmora::fuzz {

inline std::unique_ptr<sql::Connection> openWithOneRow(bool preparesByShape = true) {
    auto connection = sqlite::openDatabase(":memory:", {.clock = [] { return runtime::Date::of(2026, 1, 15, 10); },
                                                        .cachedStatements = 4,
                                                        .preparesByShape = preparesByShape});
    connection->execute(
        "CREATE TABLE T (Id int IDENTITY (1, 1), i int, f float, n numeric(18, 0), m numeric(10, 2), "
        "t nvarchar(5), l ntext, d datetime, b bit, x image)");
    connection->execute(
        "insert into T (i, f, n, m, t, l, d, b, x) values (1, 2.5, 3, 4.25, N'ñ', 'x', '15/01/2026', 1, 0x01)");
    connection->execute("CREATE TABLE Guard (a int)");
    connection->execute("insert into Guard values (1)");
    connection->execute("CREATE TABLE DOCVELMORA.dbo.dex (Dex_Id int IDENTITY (1, 1), Dex_Doc image)");
    return connection;
}

/// Whether the engine complains in these words. A statement may hold them as a name, which an error then repeats.
inline bool complains(std::string_view words, std::string_view statement, std::string_view phrase) {
    return words.find(phrase) != std::string_view::npos && statement.find(phrase) == std::string_view::npos;
}

/// A number as far as two ways of reading the same digits agree.
inline std::string shown(const sql::Value& value) {
    if (const auto* const number = std::get_if<double>(&value.raw())) {
        std::array<char, 32> digits{};
        std::snprintf(digits.data(), digits.size(), "%.13g", *number);
        return digits.data();
    }
    return value.isNull() ? "null" : value.isBytes() ? "bytes" : value.toText();
}

/// Its first rows, or the words of its refusal.
inline std::string run(sql::Connection& connection, std::string_view statement) {
    std::string answer;
    try {
        sql::Recordset rows = connection.execute(statement);
        for (int i = 0; i < 50 && rows.isOpen() && !rows.eof(); ++i, rows.moveNext()) {
            for (std::size_t column = 0; column < rows.columns().size(); ++column) {
                answer += shown(rows[column]) + '|';
            }
        }
    } catch (const sql::DbError& error) {
        const std::string_view words = error.description();
        expect(!complains(words, statement, "syntax error"), "the engine reads what the dialect writes");
        expect(!complains(words, statement, "unrecognized token"), "the engine knows every word of the dialect");
        answer += error.description();
    }
    return answer;
}

}  // namespace velmora::fuzz
