#include "velmora/adapters/sqlite/database.h"

#include "velmora/adapters/sqlite/engine.h"

namespace velmora::sqlite {

namespace {

class Database final : public sql::Connection {
  public:
    Database(const std::string& path, Options options) : engine_(std::make_shared<Engine>(path, std::move(options))) {}

    sql::Recordset execute(std::string_view statement) override { return engine_->execute(statement); }
    void beginTrans() override { engine_->begin(); }
    void commitTrans() override { engine_->commit(); }
    void rollbackTrans() override { engine_->rollback(); }
    std::string currentCatalog() const override { return engine_->catalogName(); }
    std::vector<std::string> files() const override { return engine_->files(); }
    bool isAlive() override { return engine_->isAlive(); }

  private:
    std::shared_ptr<Engine> engine_;
};

}  // namespace

std::unique_ptr<sql::Connection> openDatabase(const std::string& path, Options options) {
    return std::make_unique<Database>(path, std::move(options));
}

void registerIn(sql::Engines& engines, Options options) {
    engines.add("sqlite",
                [options = std::move(options)](const std::string& path) { return openDatabase(path, options); });
}

}  // namespace velmora::sqlite
