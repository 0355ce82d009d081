#pragma once
// A connection with no engine behind it: answers what a test gave it.

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/connection.h"

namespace velmora::support {

/// A statement that was given an answer gets it; any other runs without rows. Transactions are counted.
class ScriptedConnection : public sql::Connection {
  public:
    void answer(std::string statement, std::vector<std::string> columns, std::vector<sql::Row> rows = {}) {
        answers_[std::move(statement)] = [columns = std::move(columns), rows = std::move(rows)] {
            std::vector<sql::Column> named;
            for (const std::string& column : columns) {
                named.push_back({column});
            }
            return sql::Recordset(sql::rowsInMemory(named, rows));
        };
    }
    void fail(std::string statement, long number, std::string description = "Rechazada") {
        answers_[std::move(statement)] = [number, description]() -> sql::Recordset {
            throw sql::DbError(number, description);
        };
    }

    sql::Recordset execute(std::string_view statement) override {
        const auto found = answers_.find(statement);
        return found == answers_.end() ? sql::Recordset() : found->second();
    }
    void beginTrans() override { open_ = true; }
    void commitTrans() override { end(); }
    void rollbackTrans() override { end(); }
    std::string currentCatalog() const override { return "TALLER"; }
    bool isAlive() override { return alive; }

    bool alive = true;

  private:
    void end() {
        if (!open_) {
            throw sql::DbError(sql::provider::noTransaction, "No hay ninguna transacción abierta");
        }
        open_ = false;
    }

    std::map<std::string, std::function<sql::Recordset()>, std::less<>> answers_;
    bool open_ = false;
};

}  // namespace velmora::support
