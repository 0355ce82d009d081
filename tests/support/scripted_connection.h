#pragma once
// A connection with no engine behind it: answers what a test gave it.

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velmora/platform/sql/connection.h"

namespace velmora::support {

/// A statement that was given an answer gets it; any other runs without rows. Transactions are counted.
class ScriptedConnection : public sql::Connection {
  public:
    void answer(std::string statement, std::vector<std::string> columns, std::vector<sql::Row> rows = {}) {
        answers_[std::move(statement)] = setOf(std::move(columns), std::move(rows));
    }
    /// The answer of statements that begin so and have none of their own.
    void answerAllThatBegin(std::string beginning, std::vector<std::string> columns, std::vector<sql::Row> rows = {}) {
        answersByBeginning_[std::move(beginning)] = setOf(std::move(columns), std::move(rows));
    }
    void fail(std::string statement, long number, std::string description = "Rechazada") {
        answers_[std::move(statement)] = [number, description]() -> sql::Recordset {
            throw sql::DbError(number, description);
        };
    }

    sql::Recordset execute(std::string_view statement) override {
        if (const auto found = answers_.find(statement); found != answers_.end()) {
            return found->second();
        }
        for (const auto& [beginning, answer] : answersByBeginning_) {
            if (statement.starts_with(beginning)) {
                return answer();
            }
        }
        return {};
    }
    void beginTrans() override { open_ = true; }
    void commitTrans() override { end(); }
    void rollbackTrans() override { end(); }
    std::string currentCatalog() const override { return "TALLER"; }
    bool isAlive() override { return alive; }

    bool alive = true;

  private:
    using Answer = std::function<sql::Recordset()>;

    static Answer setOf(std::vector<std::string> columns, std::vector<sql::Row> rows) {
        return [columns = std::move(columns), rows = std::move(rows)] {
            std::vector<sql::Column> named;
            for (const std::string& column : columns) {
                named.push_back({column});
            }
            return sql::Recordset(sql::rowsInMemory(named, rows));
        };
    }
    void end() {
        if (!open_) {
            throw sql::DbError(sql::provider::noTransaction, "No hay ninguna transacción abierta");
        }
        open_ = false;
    }

    std::map<std::string, Answer, std::less<>> answers_;
    std::map<std::string, Answer, std::less<>> answersByBeginning_;
    bool open_ = false;
};

}  // namespace velmora::support
