#pragma once
// One open connection of the embedded engine, shared by the data connection and the result sets that it opened.

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/sqlite/catalog.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/statement_cache.h"

struct sqlite3;

namespace velmora::sqlite {

/// A result set that is still being read. It lets go of the database when somebody else needs it, and finds its
/// place again later.
class Stream {
  public:
    virtual ~Stream() = default;
    virtual void park() = 0;
};

class Engine : public Catalog, public std::enable_shared_from_this<Engine> {
  public:
    Engine(const std::string& path, Options options);
    ~Engine() override;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    sql::Recordset execute(std::string_view text);
    /// The rows of a text that execute() has run before.
    std::unique_ptr<sql::RowSource> openRows(std::string_view text);

    void begin();
    void commit();
    void rollback();
    const std::string& catalogName() const { return options_.catalog; }
    bool isAlive();
    std::vector<std::string> files() const;

    // For result sets.
    std::unique_ptr<Statement> take(CachedStatement& cached);
    void giveBack(CachedStatement& cached, std::unique_ptr<Statement> statement);
    std::unique_ptr<Statement> prepare(std::string_view sql);
    /// Writes a binary column of the row with this key (a whole number or a text) and looks at what was stored.
    void updateBinary(const Origin& origin, std::size_t column, const sql::Value& key, const sql::Bytes& content);
    void enter(Stream& stream);
    void leave(Stream& stream);

    std::string schemaOf(const TableName& name) override;
    std::shared_ptr<const Table> table(const TableName& name) override;

  private:
    struct Close {
        void operator()(sqlite3* database) const;
    };
    struct Schema;

    void run(const std::string& sql);
    void configure(const std::string& path);
    void parkStreams();
    std::shared_ptr<CachedStatement> statementOf(std::string_view text);
    std::shared_ptr<CachedStatement> translated(std::string_view text);
    std::unique_ptr<sql::RowSource> rowsOf(const std::shared_ptr<CachedStatement>& cached);
    void runChange(CachedStatement& cached);
    void runSchemaChange(const Translation& translation);
    void forget();
    void attachDocuments(const TableName& name);
    const std::string& storedName(const std::string& schema, const TableName& name);
    std::shared_ptr<const Table> readTable(const std::string& schema, const std::string& name);

    Options options_;
    std::string path_;
    std::unique_ptr<sqlite3, Close> database_;
    StatementCache cache_;
    std::unordered_map<std::string, std::unordered_map<std::string, std::string>> names_;  ///< schema, folded, declared
    std::unordered_map<std::string, std::shared_ptr<const Table>> tables_;
    std::vector<Stream*> streams_;
    bool inTransaction_ = false;
    bool documentsAttached_ = false;
};

}  // namespace velmora::sqlite
