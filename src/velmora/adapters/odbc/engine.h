#pragma once
// One data connection over ODBC, shared by the sets that it opened.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/odbc/binary_target.h"
#include "velmora/adapters/odbc/fetched_rows.h"
#include "velmora/adapters/odbc/link_pool.h"
#include "velmora/adapters/odbc/opening.h"

namespace velmora::odbc {

/// Statements run on one connection. A set with more rows than its first ones takes it along outside a transaction,
/// and the next statement runs on another one.
class Engine : public std::enable_shared_from_this<Engine> {
  public:
    Engine(std::string connectionText, Options options);
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    sql::Recordset execute(std::string_view statement);
    /// The rows of a statement that execute() has run before.
    std::unique_ptr<sql::RowSource> openRows(const std::string& statement);

    void begin();
    void commit();
    void rollback();
    const std::string& catalog() const { return catalog_; }
    bool isAlive();
    /// See ServerConnection.
    bool takeLoss();
    void reconnect();

    // For result sets.

    /// A set that was opened on this pool's connections has met their loss; nothing once they are others.
    void noteLossIn(const LinkPool& pool);

    /// See binaryTargetOf.
    std::optional<BinaryTarget> binaryTarget(std::string_view statement, const std::vector<CursorColumn>& columns,
                                             std::size_t column);
    /// Writes the column of the row with this key and looks at what was stored. `statement`: the set's, for errors.
    void updateBinary(const BinaryTarget& target, const sql::Value& key, const sql::Bytes& content,
                      std::string_view statement);

  private:
    /// Errors: provider::failure when the connection is lost, or the server has undone the transaction.
    void mustBeUsable(std::string_view statement);
    void noteLoss();
    Link& link();
    /// Runs `work` on the connection, inside the transaction that the caller believes in.
    template <typename Work>
    auto onLink(const Work& work);
    void lookAtTransaction();
    Opening open(const std::string& statement);
    Opening openWhileAsking(const std::string& statement);

    std::string connectionText_;
    Options options_;
    std::shared_ptr<LinkPool> pool_;
    std::shared_ptr<Link> link_;  ///< none when a set has taken it along
    std::string catalog_;
    bool lost_ = false;
    bool lossToTell_ = false;  ///< see takeLoss
    bool inTransaction_ = false;
    bool undoneByServer_ = false;  ///< the transaction has ended on the server although nobody ended it here
};

}  // namespace velmora::odbc
