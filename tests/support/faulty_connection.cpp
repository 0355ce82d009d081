#include "support/faulty_connection.h"

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <utility>

namespace velmora::support {

class FaultyConnection::Rows final : public sql::RowSource {
  public:
    Rows(FaultyConnection& owner, sql::Recordset rows) : owner_(owner), rows_(std::move(rows)) {}
    const std::vector<sql::Column>& columns() const override { return rows_.columns(); }
    bool hasRow(std::size_t position) override { return rows_.peek(position) != nullptr; }
    const sql::Row& row(std::size_t position) override { return *rows_.peek(position); }
    std::size_t rowCount() override { return rows_.recordCount(); }
    std::unique_ptr<sql::RowSource> reopen() const override { return nullptr; }
    void updateBinary(std::size_t position, std::size_t column, sql::Bytes content) override {
        owner_.pass("WRITE");
        rows_.moveTo(position);
        rows_.updateBinary(column, std::move(content));
    }

  private:
    FaultyConnection& owner_;
    sql::Recordset rows_;
};

void FaultyConnection::failAt(int operation, long number) {
    restore();
    refuse(operation, number);
}

void FaultyConnection::restore() {
    log_.clear();
    refused_.clear();
    brokenText_.clear();
    lostAt_ = lostAfter_ = brokenAt_ = -1;
    lost_ = false;
}

void FaultyConnection::pass(std::string_view what) {
    const int operation = static_cast<int>(log_.size());
    log_.emplace_back(what);
    if (beforeOperation_.second && operation == beforeOperation_.first) {
        std::exchange(beforeOperation_, {}).second();
    }
    if (operation == lostAt_) {
        lose();
    }
    if (operation == brokenAt_) {
        throw std::runtime_error("No es un error del lenguaje");
    }
    if (lost_) {
        throw sql::DbError(sql::provider::failure, "Se perdió la conexión");
    }
    if (const auto refusal = refused_.find(operation); refusal != refused_.end()) {
        throw sql::DbError(refusal->second, "Fallo provocado");
    }
}

void FaultyConnection::passed() {
    if (static_cast<int>(log_.size()) == lostAfter_ + 1) {
        lose();
    }
}

void FaultyConnection::lose() {
    lost_ = true;
    if (std::exchange(open_, false)) {
        ForwardingConnection::rollbackTrans();
    }
}

sql::Recordset FaultyConnection::execute(std::string_view statement) {
    pass(statement);
    if (before_.second && statement.find(before_.first) != std::string_view::npos) {
        std::exchange(before_, {}).second();
    }
    if (!brokenText_.empty() && statement.find(brokenText_) != std::string_view::npos) {
        throw std::runtime_error("broken");
    }
    sql::Recordset answer = ForwardingConnection::execute(statement);
    passed();
    return countsWritesThroughSets && answer.isOpen() ? sql::Recordset(std::make_unique<Rows>(*this, std::move(answer)))
                                                      : std::move(answer);
}

void FaultyConnection::beginTrans() {
    pass("BEGIN");
    ForwardingConnection::beginTrans();
    open_ = true;
    passed();
}

void FaultyConnection::passEnd(std::string_view what) {
    try {
        pass(what);
    } catch (const sql::DbError&) {
        if (refusedEndUndoes && std::exchange(open_, false)) {
            ForwardingConnection::rollbackTrans();
        }
        throw;
    }
}

void FaultyConnection::commitTrans() {
    passEnd("COMMIT");
    ForwardingConnection::commitTrans();
    open_ = false;
    passed();
}

void FaultyConnection::rollbackTrans() {
    passEnd("ROLLBACK");
    ForwardingConnection::rollbackTrans();
    open_ = false;
    passed();
}

}  // namespace velmora::support
