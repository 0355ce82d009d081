#pragma once
// The program's connection while a script runs: reports every statement, and fails on request.

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/sql/connection.h"

namespace velmora::script {

/// Statements that a result set runs again (requery) are watched like the first time.
class WatchedConnection final : public sql::ForwardingConnection {
  public:
    /// `target` must outlive the connection, and the connection the result sets that it returned.
    explicit WatchedConnection(sql::Connection& target) : ForwardingConnection(target) {}

    /// Receives the text of each statement before it runs, also of one that will fail.
    void onStatement(std::function<void(std::string_view)> listener) { listener_ = std::move(listener); }
    /// The next statement that contains `text` fails once (provider::failure) and is not passed on; a column written
    /// through a set counts as the statement "update COLUMN". A second call replaces a text that has not matched yet.
    void refuseNext(std::string text) { refused_ = std::move(text); }
    /// From now on every operation fails with provider::failure. An open transaction is rolled back, as by a server.
    void lose();

    sql::Recordset execute(std::string_view statement) override;
    void beginTrans() override;
    void commitTrans() override;
    void rollbackTrans() override;
    std::string currentCatalog() const override;
    bool isAlive() override { return !lost_ && ForwardingConnection::isAlive(); }

  private:
    sql::Recordset run(std::string_view statement);
    void mustBeAlive(std::string_view statement = {}) const;
    void pass(std::string_view statement);

    std::function<void(std::string_view)> listener_;
    std::optional<std::string> refused_;
    bool lost_ = false;
    bool inTransaction_ = false;
};

}  // namespace velmora::script
