#pragma once
// The program's connection while a script runs: reports every statement, and fails on request.

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/adapters/script/faults.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::script {

/// Statements that a result set runs again (requery) are watched like the first time.
class WatchedConnection final : public sql::ForwardingConnection, public Faults {
  public:
    /// `target` must outlive the connection, and the connection the result sets that it returned.
    explicit WatchedConnection(sql::Connection& target) : ForwardingConnection(target) {}

    /// Receives the text of each statement before it runs, also of one that will fail.
    void onStatement(std::function<void(std::string_view)> listener) { listener_ = std::move(listener); }
    void refuseNext(std::string text) override { refused_ = std::move(text); }
    void lose() override;

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
