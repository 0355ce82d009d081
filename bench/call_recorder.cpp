#include "call_recorder.h"

#include <array>
#include <chrono>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string_view>

#include "velmora/adapters/odbc/utf16.h"

// The names that the linker's option --wrap asks for.
extern "C" {
SQLRETURN __real_SQLDriverConnectW(SQLHDBC, SQLHWND, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*,
                                   SQLUSMALLINT);
SQLRETURN __real_SQLExecDirectW(SQLHSTMT, SQLWCHAR*, SQLINTEGER);
SQLRETURN __real_SQLFetch(SQLHSTMT);
SQLRETURN __real_SQLPrimaryKeysW(SQLHSTMT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT);
SQLRETURN __wrap_SQLDriverConnectW(SQLHDBC, SQLHWND, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*,
                                   SQLUSMALLINT);
SQLRETURN __wrap_SQLExecDirectW(SQLHSTMT, SQLWCHAR*, SQLINTEGER);
SQLRETURN __wrap_SQLFetch(SQLHSTMT);
SQLRETURN __wrap_SQLPrimaryKeysW(SQLHSTMT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT);
}

namespace velmora::bench {
namespace {

using Clock = std::chrono::steady_clock;

/// Sets are read on threads of their own.
struct Recorder {
    std::mutex mutex;
    bool records = false;
    SentStatements sent;
    std::map<SQLHSTMT, std::size_t> running;
};

Recorder& theRecorder() {
    static Recorder recorder;
    return recorder;
}

void noteSent(SQLHSTMT handle, std::u16string text) {
    Recorder& recorder = theRecorder();
    const std::lock_guard lock(recorder.mutex);
    if (recorder.records) {
        recorder.running[handle] = recorder.sent.size();
        recorder.sent.push_back({std::move(text), 0, false});
    }
}

void noteFetched(SQLHSTMT handle, SQLRETURN answer) {
    Recorder& recorder = theRecorder();
    const std::lock_guard lock(recorder.mutex);
    const auto found = recorder.running.find(handle);
    if (!recorder.records || found == recorder.running.end()) {
        return;
    }
    SentStatement& statement = recorder.sent[found->second];
    if (SQL_SUCCEEDED(answer)) {
        ++statement.rows;
    } else {
        statement.ended = true;
    }
}

[[noreturn]] void refuse(const std::u16string& text) {
    throw std::runtime_error("the server refuses " + odbc::toUtf8(text));
}

void require(SQLRETURN answer, const std::u16string& text) {
    if (!SQL_SUCCEEDED(answer) && answer != SQL_NO_DATA) {
        refuse(text);
    }
}

SQLWCHAR* unitsOf(const std::u16string& text) {
    // The interface takes a pointer to what it only reads.
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

SQLSMALLINT bufferType(SQLSMALLINT type) {
    switch (type) {
        case SQL_BIT:
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return SQL_C_SBIGINT;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return SQL_C_DOUBLE;
        case SQL_TYPE_TIMESTAMP:
            return SQL_C_TYPE_TIMESTAMP;
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY:
            return SQL_C_BINARY;
        default:
            return SQL_C_WCHAR;
    }
}

/// The C types that fit the columns best.
std::vector<SQLSMALLINT> columnTypes(SQLHSTMT handle, const std::u16string& text) {
    SQLSMALLINT columns = 0;
    require(SQLNumResultCols(handle, &columns), text);
    std::vector<SQLSMALLINT> types;
    for (SQLUSMALLINT column = 1; column <= static_cast<SQLUSMALLINT>(columns); ++column) {
        std::array<SQLWCHAR, 256> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLULEN size = 0;
        SQLSMALLINT decimals = 0;
        SQLSMALLINT nullable = 0;
        require(SQLDescribeColW(handle, column, name.data(), name.size(), &length, &type, &size, &decimals, &nullable),
                text);
        types.push_back(bufferType(type));
    }
    return types;
}

void fetchRow(SQLHSTMT handle, const std::vector<SQLSMALLINT>& types, const std::u16string& text) {
    std::array<std::byte, 1024> value;
    if (!SQL_SUCCEEDED(__real_SQLFetch(handle))) {
        refuse(text);
    }
    for (std::size_t i = 0; i < types.size(); ++i) {
        SQLLEN length = 0;
        require(SQLGetData(handle, static_cast<SQLUSMALLINT>(i + 1), types[i], value.data(), value.size(), &length),
                text);
    }
}

}  // namespace

SentStatements recordCalls(const std::function<void()>& work) {
    Recorder& recorder = theRecorder();
    const auto switchTo = [&](bool records) {
        const std::lock_guard lock(recorder.mutex);
        recorder.records = records;
        recorder.running.clear();
        return std::move(recorder.sent);
    };
    switchTo(true);
    try {
        work();
    } catch (...) {
        switchTo(false);
        throw;
    }
    return switchTo(false);
}

BareClient::BareClient(const std::string& connectionText) : connection_(odbc::environment()) {
    const std::u16string text = odbc::toUtf16(connectionText);
    require(__real_SQLDriverConnectW(connection_.get(), nullptr, unitsOf(text), static_cast<SQLSMALLINT>(text.size()),
                                     nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT),
            u"the connection");
    send({u"SET DATEFORMAT dmy", 0, true});
}

BareClient::~BareClient() {
    SQLDisconnect(connection_.get());
}

double BareClient::replay(const SentStatements& statements) {
    double seconds = 0;
    for (const SentStatement& statement : statements) {
        seconds += send(statement);
    }
    return seconds;
}

double BareClient::send(const SentStatement& statement) {
    const auto start = Clock::now();
    const odbc::StatementHandle handle(connection_.get());
    const auto length = static_cast<SQLINTEGER>(statement.text.size());
    require(__real_SQLExecDirectW(handle.get(), unitsOf(statement.text), length), statement.text);
    const std::vector<SQLSMALLINT> types = columnTypes(handle.get(), statement.text);
    for (std::int64_t fetched = 0; fetched < statement.rows; ++fetched) {
        fetchRow(handle.get(), types, statement.text);
    }
    if (statement.ended) {
        __real_SQLFetch(handle.get());
    }
    if (statement.ended || types.empty()) {
        while (SQL_SUCCEEDED(SQLMoreResults(handle.get()))) {
        }
    }
    return std::chrono::duration<double>(Clock::now() - start).count();
}

}  // namespace velmora::bench

SQLRETURN __wrap_SQLDriverConnectW(SQLHDBC connection, SQLHWND window, SQLWCHAR* in, SQLSMALLINT inLength,
                                   SQLWCHAR* out, SQLSMALLINT outSize, SQLSMALLINT* outLength,
                                   SQLUSMALLINT completion) {
    velmora::bench::noteSent(nullptr, u"SQLDriverConnect");
    return __real_SQLDriverConnectW(connection, window, in, inLength, out, outSize, outLength, completion);
}

SQLRETURN __wrap_SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER length) {
    velmora::bench::noteSent(handle,
                             std::u16string(reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length)));
    return __real_SQLExecDirectW(handle, text, length);
}

SQLRETURN __wrap_SQLFetch(SQLHSTMT handle) {
    const SQLRETURN answer = __real_SQLFetch(handle);
    velmora::bench::noteFetched(handle, answer);
    return answer;
}

SQLRETURN __wrap_SQLPrimaryKeysW(SQLHSTMT handle, SQLWCHAR* catalog, SQLSMALLINT catalogLength, SQLWCHAR* schema,
                                 SQLSMALLINT schemaLength, SQLWCHAR* table, SQLSMALLINT tableLength) {
    velmora::bench::noteSent(handle, u"SQLPrimaryKeys");
    return __real_SQLPrimaryKeysW(handle, catalog, catalogLength, schema, schemaLength, table, tableLength);
}
