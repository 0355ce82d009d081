#pragma once
// The open data connection of a session. Every statement is T-SQL and is passed to the engine unchanged.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::sql {

class Connection {
  public:
    virtual ~Connection() = default;

    /// Runs exactly one statement; a second one in the text is refused (number `provider::syntax`). A statement without
    /// rows returns a closed recordset; one with rows returns a set that keeps them (Recordset). Open sets block no
    /// statement. Errors: DbError.
    virtual Recordset execute(std::string_view statement) = 0;

    /// Begins a transaction and admits one client at a time: of two clients that begin, read a highest number and
    /// insert the next one, the second waits in beginTrans until the first has committed or rolled back, and then reads
    /// what the first has written. Reading outside a transaction does not wait. Transactions do not nest
    /// (`provider::transactionOpen`). Errors: DbError, `provider::timeout` when the other client takes too long.
    virtual void beginTrans() = 0;
    /// Without an open transaction, commit and rollback raise `provider::noTransaction`.
    virtual void commitTrans() = 0;
    virtual void rollbackTrans() = 0;

    /// The name of the catalogue. The documents' catalogue is called "DOC" followed by this name.
    virtual std::string currentCatalog() const = 0;

    /// False when the connection has been lost.
    virtual bool isAlive() = 0;

    /// The files on this machine that the engine uses, its logs included, whether they exist yet or not: other code
    /// must not read, write or delete them. Empty for a server and for a database in memory.
    virtual std::vector<std::string> files() const { return {}; }
};

/// Begins a transaction and rolls it back on destruction unless it was committed.
class Transaction {
  public:
    explicit Transaction(Connection& connection) : connection_(connection) { connection_.beginTrans(); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Both mark the transaction as ended before they run: a commit that fails is not followed by a rollback.
    void commit();
    void rollback();

  private:
    Connection& connection_;
    bool open_ = true;
};

/// Forwards everything to another connection: the base of connections that observe, record or refuse.
class ForwardingConnection : public Connection {
  public:
    explicit ForwardingConnection(Connection& target) : target_(target) {}
    Recordset execute(std::string_view statement) override { return target_.execute(statement); }
    void beginTrans() override { target_.beginTrans(); }
    void commitTrans() override { target_.commitTrans(); }
    void rollbackTrans() override { target_.rollbackTrans(); }
    std::string currentCatalog() const override { return target_.currentCatalog(); }
    bool isAlive() override { return target_.isAlive(); }
    std::vector<std::string> files() const override { return target_.files(); }

  private:
    Connection& target_;
};

}  // namespace velmora::sql
