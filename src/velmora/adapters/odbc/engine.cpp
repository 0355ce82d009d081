#include "velmora/adapters/odbc/engine.h"

#include <limits>
#include <utility>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/diagnostics.h"
#include "velmora/adapters/tsql/one_statement.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::odbc {

namespace {

/// Rows read on opening: more than a screen shows. A longer set is read on by a thread, with its connection.
constexpr std::size_t openingRows = 32;

/// sp_getapplock: below this the lock was not given.
constexpr int lockGranted = 0;
constexpr int lockDeadlock = -3;

/// One statement for one round trip: the transaction and its lock. The answer is sp_getapplock's.
std::string beginWithLock(std::chrono::milliseconds patience) {
    return "BEGIN TRANSACTION; DECLARE @answer int; EXEC @answer = sp_getapplock @Resource = N'VELMORA', "
           "@LockMode = 'Exclusive', @LockOwner = 'Transaction', @LockTimeout = " +
           std::to_string(patience.count()) + "; SELECT @answer";
}

constexpr std::string_view beginPlain = "BEGIN TRANSACTION";
constexpr std::string_view commitStatement = "COMMIT TRANSACTION";
constexpr std::string_view rollbackStatement = "ROLLBACK TRANSACTION";
constexpr std::string_view rollbackIfOpen = "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION";

/// The answer of sp_getapplock. When it fails, the transaction that has been begun before it is undone.
sql::Value askForLock(Link& link, std::chrono::milliseconds patience) {
    try {
        return link.ask(beginWithLock(patience));
    } catch (const sql::DbError&) {
        if (!link.isLost()) {
            link.send(rollbackIfOpen);
        }
        throw;
    }
}

/// The catalogue's name as the connection string spells it, if it names this one: servers find it in any case, and some
/// tell it in another one.
std::string spelledAsAsked(const std::string& catalog, const std::string& connectionText) {
    const std::string asked = valueOf(connectionText, "DATABASE");
    return runtime::UCase(asked) == runtime::UCase(catalog) ? asked : catalog;
}

[[noreturn]] void throwNoTransaction() {
    throw sql::DbError(sql::provider::noTransaction, "No hay ninguna transacción abierta.", {.sqlState = "25000"});
}

/// The server may have committed before the connection was lost: only its rows tell.
// Chosen C-290: the words say so, because a second try would store a new row twice.
[[noreturn]] void throwInDoubt(const sql::DbError& loss) {
    throw sql::DbError(loss.number(),
                       "La conexión con la base de datos se perdió al confirmar los cambios: puede que se hayan "
                       "grabado. Compruébelo antes de repetir.",
                       loss.details());
}

[[noreturn]] void throwUndone() {
    throw sql::DbError(sql::provider::failure, "La transacción se deshizo por un error anterior.",
                       {.sqlState = "40000"});
}

}  // namespace

Engine::Engine(std::string connectionText, Options options)
    : connectionText_(std::move(connectionText)), options_(std::move(options)) {
    reconnect();
}

Engine::~Engine() {
    if (inTransaction_ && !undoneByServer_ && !lost_) {
        try {
            link_->send(rollbackStatement);
        } catch (const sql::DbError&) {
            // The server undoes it when the connection ends.
        }
    }
}

void Engine::reconnect() {
    auto pool = std::make_shared<LinkPool>(connectionText_, options_);
    std::shared_ptr<Link> link = pool->take();
    pool_ = std::move(pool);
    link_ = std::move(link);
    catalog_ = spelledAsAsked(link_->catalog(), connectionText_);
    lost_ = lossToTell_ = inTransaction_ = undoneByServer_ = false;
}

void Engine::noteLoss() {
    lost_ = lossToTell_ = true;
}

void Engine::noteLossIn(const LinkPool& pool) {
    if (&pool == pool_.get()) {
        noteLoss();
    }
}

bool Engine::takeLoss() {
    return !inTransaction_ && std::exchange(lossToTell_, false);
}

void Engine::mustBeUsable(std::string_view statement) {
    if (lost_) {
        noteLoss();
        throw lossOf(statement);
    }
    if (undoneByServer_) {
        throwUndone();
    }
}

Link& Engine::link() {
    if (!link_) {
        link_ = pool_->take();
    }
    return *link_;
}

template <typename Work>
auto Engine::onLink(const Work& work) {
    try {
        return work(link());
    } catch (const sql::DbError& error) {
        if (isLoss(error.details().sqlState)) {
            noteLoss();
        } else if (inTransaction_) {
            lookAtTransaction();
        }
        throw;
    }
}

/// After an error: whether the server has ended the transaction with it, as it does for a deadlock's victim. A
/// statement sent after that would stand outside of any transaction.
void Engine::lookAtTransaction() {
    if (link_->server() != Server::tsql) {
        return;
    }
    try {
        undoneByServer_ = link_->ask("SELECT @@TRANCOUNT").toLong() == 0;
    } catch (const runtime::RuntimeError&) {
        if (link_->isLost()) {
            noteLoss();
        }
        undoneByServer_ = true;
    }
}

// Statements.

sql::Recordset Engine::execute(std::string_view statement) {
    const std::string text(statement);
    std::unique_ptr<sql::RowSource> rows = openRows(text);
    return rows ? sql::Recordset(std::move(rows)) : sql::Recordset();
}

std::unique_ptr<sql::RowSource> Engine::openRows(const std::string& statement) {
    mustBeUsable(statement);
    tsql::refuseSecondStatement(statement);
    Opening opened = open(statement);
    if (opened.cursor.columns().empty()) {
        return nullptr;
    }
    auto columns = opened.cursor.columns();
    std::unique_ptr<ReadAhead> readAhead;
    if (opened.more) {
        readAhead =
            std::make_unique<ReadAhead>(std::move(opened.cursor), std::exchange(link_, nullptr), pool_, opened.spool);
    } else {
        opened.spool->finish();
    }
    return std::make_unique<FetchedRows>(shared_from_this(), pool_, statement, std::move(columns),
                                         std::move(opened.spool), std::move(readAhead));
}

Opening Engine::open(const std::string& statement) {
    if (options_.longRun && !inTransaction_ && mayRunLong(statement)) {
        return openWhileAsking(statement);
    }
    constexpr std::size_t all = std::numeric_limits<std::size_t>::max();
    return onLink(
        [&](Link& link) { return openingOf(link.send(statement), link, inTransaction_ ? all : openingRows); });
}

// While the program is asked, other statements run on another connection.
Opening Engine::openWhileAsking(const std::string& statement) {
    return onLink([&](Link&) {
        LongOpening opening(std::exchange(link_, nullptr), pool_, statement, openingRows);
        try {
            Opening opened = opening.wait(options_);
            link_ = opening.takeLink();
            return opened;
        } catch (...) {
            link_ = opening.takeLink();
            throw;
        }
    });
}

bool Engine::isAlive() {
    if (lost_) {
        noteLoss();
        return false;
    }
    try {
        onLink([](Link& link) { return link.ask("SELECT 1"); });
        return true;
    } catch (const sql::DbError&) {
        return false;
    }
}

// Transactions.

void Engine::begin() {
    if (inTransaction_) {
        throw sql::DbError(sql::provider::transactionOpen, "Ya hay una transacción abierta.", {.sqlState = "25001"});
    }
    mustBeUsable("");
    if (link().server() != Server::tsql) {
        onLink([](Link& link) { link.send(beginPlain); });
        inTransaction_ = true;
        return;
    }
    const sql::Value answer = onLink([&](Link& link) { return askForLock(link, options_.lockTimeout); });
    const int granted = answer.isNull() ? lockDeadlock : answer.toLong();
    if (granted < lockGranted) {
        onLink([](Link& link) { link.send(rollbackIfOpen); });
        throw sql::DbError(sql::provider::timeout, "Otro usuario está grabando y no termina. Vuelva a intentarlo.",
                           {.sqlState = "HYT00", .nativeCode = native::lockTimeout});
    }
    inTransaction_ = true;
}

void Engine::commit() {
    if (!inTransaction_) {
        throwNoTransaction();
    }
    inTransaction_ = false;
    if (lost_) {
        noteLoss();
        throw lossOf(commitStatement);
    }
    if (std::exchange(undoneByServer_, false)) {
        throwUndone();
    }
    try {
        onLink([](Link& link) { link.send(commitStatement); });
    } catch (const sql::DbError& error) {
        if (lost_) {
            throwInDoubt(error);
        }
        throw;
    }
}

void Engine::rollback() {
    if (!inTransaction_) {
        throwNoTransaction();
    }
    inTransaction_ = false;
    if (lost_) {
        noteLoss();
        throw lossOf(rollbackStatement);
    }
    if (std::exchange(undoneByServer_, false)) {
        return;
    }
    onLink([](Link& link) { link.send(rollbackStatement); });
}

// Binary columns.

std::optional<BinaryTarget> Engine::binaryTarget(std::string_view statement, const std::vector<CursorColumn>& columns,
                                                 std::size_t column) {
    mustBeUsable(statement);
    return onLink([&](Link& link) {
        auto target = link.watch([&] { return binaryTargetOf(link, statement, columns, column); });
        if (!target) {
            // A server that does not tell the key may be one that is no longer there.
            link.ask("SELECT 1");
        }
        return target;
    });
}

void Engine::updateBinary(const BinaryTarget& target, const sql::Value& key, const sql::Bytes& content,
                          std::string_view statement) {
    mustBeUsable(statement);
    const std::string literal =
        key.isText() ? "N'" + runtime::Replace(key.toText(), "'", "''") + "'" : std::to_string(key.toLong());
    const std::string where = " WHERE " + target.key + " = " + literal;
    onLink([&](Link& link) {
        const std::string update = "UPDATE " + target.table + " SET " + target.column + " = ?" + where;
        const long changed = link.watch([&] { return odbc::updateBinary(link.statements(), update, content); });
        if (changed == 0) {
            throw sql::DbError(sql::provider::rowGone, "La fila que se iba a actualizar ya no existe.",
                               {.statement = std::string(statement)});
        }
        // Differs D-184: whoever deletes the file afterwards must know that the database has all of it.
        const sql::Value stored = link.ask("SELECT DATALENGTH(" + target.column + ") FROM " + target.table + where);
        if (stored.isNull() || stored.toDouble() != static_cast<double>(content.size())) {
            throw sql::DbError(sql::provider::failure, "El contenido no se guardó entero.",
                               {.statement = std::string(statement)});
        }
    });
}

}  // namespace velmora::odbc
