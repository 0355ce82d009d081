#pragma once
// One connection to the server.

#include <string>
#include <string_view>

#include "velmora/adapters/odbc/cursor.h"
#include "velmora/adapters/odbc/database.h"

namespace velmora::odbc {

/// What the server at the other end understands beyond plain statements.
enum class Server {
    tsql,   ///< session settings, transactions with an application lock
    other,  ///< plain transactions: drivers for tests
};

/// The error of an operation on a connection that is lost: provider::failure, SQLSTATE 08S01.
sql::DbError lossOf(std::string_view statement);

/// For one thread at a time.
class Link {
  public:
    /// Connects and makes the session's settings. Errors: see openDatabase.
    Link(const std::string& connectionText, const Options& options);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    SQLHANDLE handle() const { return handle_.get(); }
    StatementStock& statements() { return statements_; }
    Server server() const { return server_; }
    std::string catalog() const;

    /// Sends a statement. Errors: DbError.
    Cursor send(std::string_view statement);
    /// Sends a statement and answers the first column of its first row; null when there is none. Errors: DbError.
    sql::Value ask(std::string_view statement);
    /// Runs what uses this connection. When it ends with the loss of the connection, that is the error, in one form for
    /// all drivers (see lossOf).
    template <typename Work>
    auto watch(const Work& work) {
        try {
            return work();
        } catch (const sql::DbError& error) {
            if (meansLoss(error)) {
                lost_ = true;
                throw lossOf(error.details().statement);
            }
            throw;
        }
    }

    bool isLost() const { return lost_; }

  private:
    void connect(const std::string& connectionText, const Options& options);
    bool meansLoss(const sql::DbError& error);

    ConnectionHandle handle_;
    StatementStock statements_;
    Server server_ = Server::other;
    bool lost_ = false;
};

}  // namespace velmora::odbc
