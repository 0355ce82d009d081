#include "velmora/adapters/com/host_engine.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "velmora/adapters/com/binary_column.h"
#include "velmora/adapters/com/host_rows.h"
#include "velmora/adapters/com/provider_errors.h"
#include "velmora/adapters/com/set_reading.h"
#include "velmora/adapters/tsql/one_statement.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::com {

namespace {

/// Neither rows affected nor a cursor is asked for: the options of `Execute` are left open.
constexpr std::int32_t unspecified = -1;
constexpr std::int32_t closedConnection = 0;

constexpr std::string_view dayFirst = "SET DATEFORMAT dmy";
/// The answer of sp_getapplock: below 0 the lock was not given within the time, in milliseconds.
constexpr std::string_view askForLock =
    "DECLARE @answer int; EXEC @answer = sp_getapplock @Resource = N'VELMORA', @LockMode = 'Exclusive', "
    "@LockOwner = 'Transaction', @LockTimeout = 5000; SELECT @answer AS answer";
constexpr std::int32_t lockGranted = 0;
/// The results of a batch before the one with rows: counts that a server may give for each of its statements.
constexpr int mostEmptyResults = 8;
constexpr std::string_view openTransactions = "SELECT @@TRANCOUNT AS open_transactions";

[[noreturn]] void throwNoOpenTransaction() {
    throw sql::DbError(sql::provider::noTransaction, "No hay ninguna transacción abierta.", {.sqlState = "25000"});
}

[[noreturn]] void throwUndoneTransaction() {
    throw sql::DbError(sql::provider::failure, "La transacción se deshizo por un error anterior.",
                       {.sqlState = "40000"});
}

/// The first set of a batch that has rows; closed when none has.
LateObject firstWithRows(LateObject set) {
    for (int i = 0; i < mostEmptyResults && set && isClosed(set) && set.has("NextRecordset"); ++i) {
        set = objectIn(set.call("NextRecordset"));
    }
    return set;
}

/// The value of the first column of the first row; null when there is none.
sql::Value onlyValue(const LateObject& set) {
    const auto read = readSet(set);
    return !read || read->rows.empty() || read->rows.front().empty() ? sql::Value() : read->rows.front().front();
}

}  // namespace

void HostEngine::follow(const LateObject& connection) {
    if (connection_.isSame(connection)) {
        return;
    }
    connection_ = connection;
    prepared_ = inTransaction_ = undoneByServer_ = false;
    lock_ = Lock::untried;
}

// Differs D-360: dates in statements are read day first whatever the language of the host's login. A connection that
// refuses the setting goes on with its own.
void HostEngine::prepare() {
    if (std::exchange(prepared_, true)) {
        return;
    }
    try {
        connection_.call("Execute", {Variant::text(dayFirst), Variant::omitted(), Variant::longNumber(unspecified)});
    } catch (const runtime::RuntimeError&) {
        // A connection that is lost is told by the statement that follows.
    }
}

LateObject HostEngine::run(std::string_view statement) {
    prepare();
    try {
        return objectIn(connection_.call(
            "Execute", {Variant::text(statement), Variant::omitted(), Variant::longNumber(unspecified)}));
    } catch (const runtime::RuntimeError& error) {
        const sql::DbError told = providerError(error, connection_, statement);
        if (inTransaction_) {
            lookAtTransaction();
        }
        throw told;
    }
}

std::unique_ptr<sql::RowSource> HostEngine::openRows(const std::string& statement) {
    if (undoneByServer_) {
        throwUndoneTransaction();
    }
    tsql::refuseSecondStatement(statement);
    const LateObject set = run(statement);
    std::optional<ReadSet> read;
    try {
        read = readSet(set);
    } catch (const runtime::RuntimeError& error) {
        throw providerError(error, connection_, statement);
    }
    return read ? std::make_unique<HostRows>(shared_from_this(), statement, std::move(*read)) : nullptr;
}

bool HostEngine::isAlive() {
    try {
        if (connection_.has("State") && connection_.get("State").value().toLong() == closedConnection) {
            return false;
        }
        run("SELECT 1 AS alive");
        return true;
    } catch (const runtime::RuntimeError&) {
        return false;
    }
}

std::string HostEngine::catalog() const {
    try {
        const LateObject properties = connection_.getObject("Properties");
        return itemOf(properties, Variant::text("Current Catalog")).getOrDefault("Value").value().toText();
    } catch (const runtime::RuntimeError& error) {
        throw providerError(error, connection_, "");
    }
}

// Transactions.

void HostEngine::step(std::string_view member) {
    try {
        connection_.call(member);
    } catch (const runtime::RuntimeError& error) {
        throw providerError(error, connection_, "");
    }
}

/// After an error: whether the server has ended the transaction with it, as it does for a deadlock's victim. A
/// statement sent after that would stand outside of any transaction. Only a server that knows the lock is asked.
void HostEngine::lookAtTransaction() {
    if (lock_ != Lock::given) {
        return;
    }
    try {
        const LateObject set = objectIn(connection_.call(
            "Execute", {Variant::text(openTransactions), Variant::omitted(), Variant::longNumber(unspecified)}));
        const sql::Value open = onlyValue(set);
        undoneByServer_ = open.isNull() || open.toLong() == 0;
    } catch (const runtime::RuntimeError&) {
        undoneByServer_ = true;
    }
}

/// False when another client holds the lock for too long. Errors: the engine's, when it does not know the lock.
bool HostEngine::takeLock() {
    const sql::Value answer = onlyValue(firstWithRows(run(askForLock)));
    return !answer.isNull() && answer.toLong() >= lockGranted;
}

void HostEngine::begin() {
    if (inTransaction_) {
        throw sql::DbError(sql::provider::transactionOpen, "Ya hay una transacción abierta.", {.sqlState = "25001"});
    }
    prepare();
    step("BeginTrans");
    if (lock_ == Lock::refused) {
        inTransaction_ = true;
        return;
    }
    bool granted = false;
    try {
        granted = takeLock();
    } catch (const runtime::RuntimeError&) {
        // Chosen C-360: an engine that does not know the lock keeps numbers single itself. The transaction begins anew,
        // because the error may have ended it.
        runtime::ErrorTrap ignored;
        ignored([&] { step("RollbackTrans"); });
        if (lock_ == Lock::given || !isAlive()) {
            throw;
        }
        lock_ = Lock::refused;
        step("BeginTrans");
        inTransaction_ = true;
        return;
    }
    if (!granted) {
        step("RollbackTrans");
        throw sql::DbError(sql::provider::timeout, "Otro usuario está grabando y no termina. Vuelva a intentarlo.",
                           {.sqlState = "HYT00"});
    }
    lock_ = Lock::given;
    inTransaction_ = true;
}

void HostEngine::commit() {
    if (!inTransaction_) {
        throwNoOpenTransaction();
    }
    inTransaction_ = false;
    if (std::exchange(undoneByServer_, false)) {
        runtime::ErrorTrap ignored;
        ignored([&] { step("RollbackTrans"); });  // the host's connection still counts it as open
        throwUndoneTransaction();
    }
    step("CommitTrans");
}

void HostEngine::rollback() {
    if (!inTransaction_) {
        throwNoOpenTransaction();
    }
    inTransaction_ = false;
    if (std::exchange(undoneByServer_, false)) {
        runtime::ErrorTrap ignored;
        ignored([&] { step("RollbackTrans"); });
        return;
    }
    step("RollbackTrans");
}

// Binary columns.

void HostEngine::updateBinary(const std::string& statement, const sql::Row& shown, std::size_t column,
                              const sql::Bytes& content) {
    if (undoneByServer_) {
        throwUndoneTransaction();
    }
    try {
        writeBinary(connection_, statement, shown, column, content);
        // Differs D-184: whoever deletes the file afterwards must know that the database has all of it.
        if (storedLength(run(statement), shown, column) != content.size()) {
            throw sql::DbError(sql::provider::failure, "El contenido no se guardó entero.", {.statement = statement});
        }
    } catch (const sql::DbError&) {
        throw;
    } catch (const runtime::RuntimeError& error) {
        if (error.number() == notUpdatable) {
            throw;
        }
        throw providerError(error, connection_, statement);
    }
}

}  // namespace velmora::com
