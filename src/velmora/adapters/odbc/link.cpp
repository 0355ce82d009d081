#include "velmora/adapters/odbc/link.h"

#include <algorithm>
#include <array>

#include "velmora/adapters/odbc/diagnostics.h"
#include "velmora/adapters/odbc/refusal.h"
#include "velmora/adapters/odbc/utf16.h"

namespace velmora::odbc {

namespace {

constexpr std::u16string_view tsqlServer = u"Microsoft SQL Server";

/// One statement for one round trip.
// Differs D-290: statements hold dates day first; with the setting of a login in another language, 10 January would be
// read as 1 October without an error.
// Chosen C-342: a server would let a statement wait without end for a row that another client holds.
std::string sessionSettings(std::chrono::milliseconds lockTimeout) {
    return "SET DATEFORMAT dmy; SET LOCK_TIMEOUT " + std::to_string(lockTimeout.count());
}

/// SQLSTATEs that say no more than that something failed; the second one is a warning's, the third one that the server
/// has not answered in time.
constexpr std::array<std::string_view, 3> generalStates{"HY000", "01000", "HYT00"};
constexpr std::string_view probeStatement = "SELECT 1";

/// What the driver knows without asking the server.
bool isDead(SQLHANDLE connection) {
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(connection, SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
           dead == SQL_CD_TRUE;
}

std::u16string infoOf(SQLHANDLE connection, SQLUSMALLINT what) {
    std::array<char16_t, 256> text{};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(connection, what, text.data(), sizeof text, &bytes))) {
        return {};
    }
    const auto length = std::min(static_cast<std::size_t>(bytes) / sizeof(char16_t), text.size() - 1);
    return {text.data(), length};
}

}  // namespace

Link::Link(const std::string& connectionText, const Options& options)
    : handle_(environment()), statements_(handle_.get(), options.statementTimeout) {
    connect(connectionText, options);
    if (infoOf(handle_.get(), SQL_DBMS_NAME) == tsqlServer) {
        server_ = Server::tsql;
        if (!options.loginStatement.empty()) {
            send(options.loginStatement);
        }
        send(sessionSettings(options.lockTimeout));
    }
}

Link::~Link() {
    statements_.clear();
    SQLDisconnect(handle_.get());
}

void Link::connect(const std::string& connectionText, const Options& options) {
    SQLSetConnectAttrW(handle_.get(), SQL_ATTR_LOGIN_TIMEOUT,
                       asPointer(static_cast<std::uintptr_t>(options.loginTimeout.count())), 0);
    std::u16string text = toUtf16(connectionText);
    const SQLRETURN answer =
        SQLDriverConnectW(handle_.get(), nullptr, reinterpret_cast<SQLWCHAR*>(text.data()),
                          static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(answer)) {
        throw refusalOf(diagnosticsOf(SQL_HANDLE_DBC, handle_.get()), connectionText);
    }
}

std::string Link::catalog() const {
    std::array<char16_t, 256> name{};
    SQLINTEGER bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetConnectAttrW(handle_.get(), SQL_ATTR_CURRENT_CATALOG, name.data(), sizeof name, &bytes))) {
        return {};
    }
    const auto length = std::min(static_cast<std::size_t>(bytes) / sizeof(char16_t), name.size() - 1);
    return toUtf8(std::u16string_view(name.data(), length));
}

Cursor Link::send(std::string_view statement) {
    return watch([&] { return Cursor(statements_, std::string(statement)); });
}

sql::Value Link::ask(std::string_view statement) {
    return watch([&] {
        Cursor answer(statements_, std::string(statement));
        sql::Row row;
        sql::Row others;
        if (answer.columns().empty() || !answer.next(row)) {
            return sql::Value();
        }
        while (answer.next(others)) {
        }
        return row[0];
    });
}

/// A driver may report the first failure of a broken line in general terms: then its state tells, or the next
/// statement.
bool Link::meansLoss(const sql::DbError& error) {
    const std::string& state = error.details().sqlState;
    if (isLoss(state)) {
        return true;
    }
    if (server_ != Server::tsql || std::ranges::find(generalStates, state) == generalStates.end()) {
        return false;
    }
    if (isDead(handle_.get())) {
        return true;
    }
    try {
        const Cursor probe(statements_, std::string(probeStatement));
        return false;
    } catch (const sql::DbError& second) {
        return isLoss(second.details().sqlState) || isTimeout(second.details().sqlState);
    }
}

sql::DbError lossOf(std::string_view statement) {
    return {sql::provider::failure,
            "La conexión con la base de datos se perdió.",
            {.sqlState = "08S01", .statement = std::string(statement)}};
}

}  // namespace velmora::odbc
