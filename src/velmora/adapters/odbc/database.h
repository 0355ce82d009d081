#pragma once
// A database server behind a data connection, over ODBC. Statements go to the server to the letter.

#include <chrono>
#include <memory>
#include <string>

#include "velmora/platform/sql/connection.h"
#include "velmora/platform/sql/engines.h"
#include "velmora/platform/sql/long_run.h"

namespace velmora::odbc {

struct Options {
    /// How long to wait for a server that does not answer a connection.
    std::chrono::seconds loginTimeout{15};
    /// How long beginTrans waits for another client's transaction, and any statement for a row that another one holds.
    std::chrono::milliseconds lockTimeout{5000};
    /// How long a statement waits for a server that answers nothing; 0: without end.
    // Chosen C-343: a server may be gone without a word; longer than any statement of the program takes.
    std::chrono::seconds statementTimeout{120};
    /// Runs on every connection to a T-SQL server before the adapter's own settings, as the settings of a login do.
    std::string loginStatement = {};
    /// Called when the opening of a set that sorts or searches has taken `longRunAfter`, outside of transactions; none:
    /// nobody is asked.
    sql::LongRuns longRun = {};
    std::chrono::milliseconds longRunAfter{1000};
};

/// A connection that can be made anew once it is lost.
class ServerConnection : public sql::Connection {
  public:
    /// True once after an operation has met the loss of the connection, with no transaction to be ended by its owner.
    virtual bool takeLoss() = 0;
    /// Connects anew with the same connection string and settings. What was open in a transaction is undone; sets keep
    /// their rows. Errors: see openDatabase; the connection is lost as before.
    virtual void reconnect() = 0;
};

/// Opens a data source by its connection string ("DRIVER=…;SERVER=…;DATABASE=…;UID=…;PWD=…"), or by the name of a file
/// that holds one.
///
/// - On a T-SQL server every connection reads dates day first (SET DATEFORMAT dmy), and ends a statement that waits too
///   long for a row with provider::timeout; so does a deadlock's victim, whose transaction is undone. Transactions take
///   an application lock of the database that ends with them, so that one client at a time reads a highest number.
///   Clients that write without it, other programs, are held up by the server's own locks alone.
/// - A set keeps the rows of its statement: those that are not read at once are read ahead by a thread, on a connection
///   of their own, into a temporary file, so that an open set holds nothing of the server for longer than that takes.
///   Inside a transaction they are read before execute() returns.
/// - Once the connection is lost every operation fails with provider::failure until reconnect().
///
/// Errors: DbError, its words without the password: provider::failure when the driver is missing, the server does not
/// answer, or the login, the database or a right is refused.
std::unique_ptr<ServerConnection> openDatabase(const std::string& connectionText, Options options = {});

/// Registers the engine as "odbc": "odbc:CONNECTION STRING" or "odbc:FILE", with these options.
void registerIn(sql::Engines& engines, Options options = {});

}  // namespace velmora::odbc
