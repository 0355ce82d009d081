#pragma once
// Watches what reaches a connection, to the letter, and refuses what a test wants refused.

#include <deque>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velmora/platform/sql/connection.h"

namespace velmora::support {

/// Keeps every statement in order, with "BEGIN", "COMMIT" and "ROLLBACK" between them; refused ones are kept too.
class RecordingConnection : public sql::ForwardingConnection {
  public:
    using ForwardingConnection::ForwardingConnection;

    const std::vector<std::string>& log() const { return log_; }
    void clear() { log_.clear(); }
    /// The statements of the log that hold a text.
    std::vector<std::string> logged(std::string_view part) const {
        std::vector<std::string> found;
        for (const std::string& entry : log_) {
            if (entry.find(part) != std::string::npos) {
                found.push_back(entry);
            }
        }
        return found;
    }

    /// The next statement that holds the text does not reach the engine and raises the error instead. Refusals
    /// queue up: one text may be given several times.
    void refuse(std::string text, long number = sql::provider::failure, std::string description = "Rechazada") {
        refusals_.push_back({std::move(text), sql::DbError(number, std::move(description))});
    }
    /// The next statement that holds the text meets a fault of the program itself: a std::logic_error.
    void breakOn(std::string text) { breaking_ = std::move(text); }
    /// From now on the connection is gone: isAlive is false and every statement fails.
    void lose() { lost_ = true; }

    sql::Recordset execute(std::string_view statement) override {
        log_.emplace_back(statement);
        if (lost_) {
            throw sql::DbError(sql::provider::failure, "Se perdió la conexión");
        }
        if (!breaking_.empty() && statement.find(breaking_) != std::string_view::npos) {
            breaking_.clear();
            throw std::logic_error("a fault of the program");
        }
        for (auto refusal = refusals_.begin(); refusal != refusals_.end(); ++refusal) {
            if (statement.find(refusal->text) != std::string_view::npos) {
                const sql::DbError error = refusal->error;
                refusals_.erase(refusal);
                throw error;
            }
        }
        return ForwardingConnection::execute(statement);
    }
    void beginTrans() override {
        log_.emplace_back("BEGIN");
        ForwardingConnection::beginTrans();
    }
    void commitTrans() override {
        log_.emplace_back("COMMIT");
        ForwardingConnection::commitTrans();
    }
    void rollbackTrans() override {
        log_.emplace_back("ROLLBACK");
        ForwardingConnection::rollbackTrans();
    }
    bool isAlive() override { return !lost_ && ForwardingConnection::isAlive(); }

  private:
    struct Refusal {
        std::string text;
        sql::DbError error;
    };
    std::vector<std::string> log_;
    std::deque<Refusal> refusals_;
    std::string breaking_;
    bool lost_ = false;
};

}  // namespace velmora::support
