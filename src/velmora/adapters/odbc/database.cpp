#include "velmora/adapters/odbc/database.h"

#include <utility>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/engine.h"

namespace velmora::odbc {

namespace {

class Database final : public ServerConnection {
  public:
    Database(std::string connectionText, Options options)
        : engine_(std::make_shared<Engine>(std::move(connectionText), std::move(options))) {}

    sql::Recordset execute(std::string_view statement) override { return engine_->execute(statement); }
    void beginTrans() override { engine_->begin(); }
    void commitTrans() override { engine_->commit(); }
    void rollbackTrans() override { engine_->rollback(); }
    std::string currentCatalog() const override { return engine_->catalog(); }
    bool isAlive() override { return engine_->isAlive(); }
    bool takeLoss() override { return engine_->takeLoss(); }
    void reconnect() override { engine_->reconnect(); }

  private:
    std::shared_ptr<Engine> engine_;
};

}  // namespace

std::unique_ptr<ServerConnection> openDatabase(const std::string& connectionText, Options options) {
    return std::make_unique<Database>(readConnectionText(connectionText), std::move(options));
}

void registerIn(sql::Engines& engines, Options options) {
    engines.add("odbc", [options = std::move(options)](const std::string& connectionText) {
        return openDatabase(connectionText, options);
    });
}

}  // namespace velmora::odbc
