#pragma once
// The open data connection of a session. Every statement is T-SQL and goes to the engine to the letter.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::sql {

class Connection {
  public:
    virtual ~Connection() = default;

    /// Runs exactly one statement; a second one in the text is refused (number `provider::syntax`). A statement
    /// that answers no rows gives a closed recordset; one that answers rows gives a set that keeps them (Recordset).
    /// Open sets hold up nobody's statements. Errors: DbError.
    virtual Recordset execute(std::string_view statement) = 0;

    /// Begins a transaction and lets one client in at a time: of two clients that begin, read a highest number and
    /// insert the next one, the second waits in beginTrans until the first has committed or rolled back, and then reads
    /// what that has written. Reading outside a transaction does not wait. Transactions do not nest
    /// (`provider::transactionOpen`). Errors: DbError, `provider::timeout` when the other client takes too long.
    virtual void beginTrans() = 0;
    /// Commit and rollback with no transaction open are `provider::noTransaction`.
    virtual void commitTrans() = 0;
    virtual void rollbackTrans() = 0;

    /// The name of the catalogue, from which the documents' catalogue is named "DOC" and this.
    virtual std::string currentCatalog() const = 0;

    /// False when the connection has been lost.
    virtual bool isAlive() = 0;

    /// The files on this machine that the engine works in, its logs too, whether they exist yet or not: nobody else may
    /// read, write or delete them. None for a server and for a database in memory.
    virtual std::vector<std::string> files() const { return {}; }
};

/// Begins a transaction and rolls it back at the end of its life unless it was committed.
class Transaction {
  public:
    explicit Transaction(Connection& connection) : connection_(connection) { connection_.beginTrans(); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Either ends the transaction's open state before it runs: a commit that fails is not rolled back again.
    void commit();
    void rollback();

  private:
    Connection& connection_;
    bool open_ = true;
};

/// Passes everything on to another connection: the base of connections that watch, record or refuse.
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
