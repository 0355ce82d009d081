#include "velmora/adapters/script/watched_connection.h"

#include <memory>
#include <utility>

namespace velmora::script {

namespace {

[[noreturn]] void fail(const char* description, std::string_view statement) {
    throw sql::DbError(sql::provider::failure, description,
                       {.sqlState = "", .nativeCode = 0, .statement = std::string(statement)});
}

/// Forwards to the rows of another set; running the statement again goes through the watched connection.
class WatchedRows final : public sql::RowSource {
  public:
    using Run = std::function<sql::Recordset()>;
    using Pass = std::function<void(std::string_view)>;

    WatchedRows(Run run, Pass pass, sql::Recordset rows)
        : run_(std::move(run)), pass_(std::move(pass)), rows_(std::move(rows)) {}

    const std::vector<sql::Column>& columns() const override { return rows_.columns(); }
    bool hasRow(std::size_t position) override { return rows_.peek(position) != nullptr; }
    const sql::Row& row(std::size_t position) override { return *rows_.peek(position); }
    std::size_t rowCount() override { return rows_.recordCount(); }
    std::unique_ptr<sql::RowSource> reopen() const override {
        return std::make_unique<WatchedRows>(run_, pass_, run_());
    }
    void updateBinary(std::size_t position, std::size_t column, sql::Bytes content) override {
        pass_("update " + columns()[column].name);
        rows_.moveTo(position);
        rows_.updateBinary(column, std::move(content));
    }

  private:
    Run run_;
    Pass pass_;
    sql::Recordset rows_;
};

}  // namespace

void WatchedConnection::lose() {
    // Chosen C-271: an open transaction is rolled back at once, as a server does when a client disconnects.
    lost_ = true;
    if (std::exchange(inTransaction_, false)) {
        ForwardingConnection::rollbackTrans();
    }
}

sql::Recordset WatchedConnection::execute(std::string_view statement) {
    sql::Recordset rows = run(statement);
    if (!rows.isOpen()) {
        return rows;
    }
    // Chosen C-272: a requery counts as a statement: it is reported, and fails when requested.
    auto again = [this, held = std::string(statement)] { return run(held); };
    auto passes = [this](std::string_view change) { pass(change); };
    return sql::Recordset(std::make_unique<WatchedRows>(std::move(again), std::move(passes), std::move(rows)));
}

sql::Recordset WatchedConnection::run(std::string_view statement) {
    if (listener_) {
        listener_(statement);
    }
    pass(statement);
    return ForwardingConnection::execute(statement);
}

void WatchedConnection::pass(std::string_view statement) {
    mustBeAlive(statement);
    if (refused_ && statement.find(*refused_) != std::string_view::npos) {
        // Chosen C-270: the number is that of a provider failure, whatever the statement.
        refused_.reset();
        fail("El proveedor ha rechazado la instrucción", statement);
    }
}

void WatchedConnection::beginTrans() {
    mustBeAlive();
    ForwardingConnection::beginTrans();
    inTransaction_ = true;
}

void WatchedConnection::commitTrans() {
    mustBeAlive();
    inTransaction_ = false;
    ForwardingConnection::commitTrans();
}

void WatchedConnection::rollbackTrans() {
    mustBeAlive();
    inTransaction_ = false;
    ForwardingConnection::rollbackTrans();
}

std::string WatchedConnection::currentCatalog() const {
    mustBeAlive();
    return ForwardingConnection::currentCatalog();
}

void WatchedConnection::mustBeAlive(std::string_view statement) const {
    if (lost_) {
        fail("Se ha perdido la conexión con la base de datos", statement);
    }
}

}  // namespace velmora::script
