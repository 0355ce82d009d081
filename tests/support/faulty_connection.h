#pragma once
// A connection that fails where a test tells it to.

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velmora/platform/sql/connection.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::support {

/// Counts what reaches a connection, from 0: statements, begins, commits, rollbacks; keeps their log. Some of them can
/// be refused, or the connection is lost at one: from there on everything fails and an open transaction is undone, as a
/// server does.
class FaultyConnection final : public sql::ForwardingConnection {
  public:
    using ForwardingConnection::ForwardingConnection;

    /// A commit or a rollback that is refused has undone everything, as engines have it; else all stays open.
    bool refusedEndUndoes = false;
    /// Columns that are written through a set count as operations too. Its sets cannot be opened anew.
    bool countsWritesThroughSets = false;

    /// Counts anew, and refuses this operation only.
    void failAt(int operation, long number = sql::provider::failure);
    /// Counts anew, and refuses nothing.
    void count() { restore(); }
    int operations() const { return static_cast<int>(log_.size()); }
    const std::vector<std::string>& log() const { return log_; }

    void refuse(int operation, long number = sql::provider::failure) { refused_[operation] = number; }
    void loseAt(int operation) { lostAt_ = operation; }
    /// The operation itself still goes through.
    void loseAfter(int operation) { lostAfter_ = operation; }
    /// Fails there as no database does: by a std::runtime_error that is no run-time error of the program.
    void breakAt(int operation) { brokenAt_ = operation; }
    /// The same at every statement that holds the text.
    void breakOn(std::string text) { brokenText_ = std::move(text); }
    /// Runs right before the next statement that holds the text.
    void before(std::string text, std::function<void()> deed) { before_ = {std::move(text), std::move(deed)}; }
    /// Runs right before this operation.
    void beforeOperation(int operation, std::function<void()> deed) { beforeOperation_ = {operation, std::move(deed)}; }
    /// Works again, and counts anew.
    void restore();
    bool transactionOpen() const { return open_; }

    sql::Recordset execute(std::string_view statement) override;
    void beginTrans() override;
    void commitTrans() override;
    void rollbackTrans() override;
    bool isAlive() override { return !lost_ && ForwardingConnection::isAlive(); }

  private:
    class Rows;

    void pass(std::string_view what);
    void passEnd(std::string_view what);
    void passed();
    void lose();

    std::vector<std::string> log_;
    std::map<int, long> refused_;
    std::pair<std::string, std::function<void()>> before_;
    std::pair<int, std::function<void()>> beforeOperation_;
    std::string brokenText_;  ///< empty: none
    int lostAt_ = -1;
    int lostAfter_ = -1;
    int brokenAt_ = -1;
    bool lost_ = false;
    bool open_ = false;
};

}  // namespace velmora::support
