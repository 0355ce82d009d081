#pragma once
// One open connection of the embedded engine, shared by the data connection and the result sets that it opened.

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/emitters/catalog.h"
#include "velmora/adapters/sqlite/link_pool.h"
#include "velmora/adapters/sqlite/open_rows.h"
#include "velmora/adapters/sqlite/snapshot_watch.h"
#include "velmora/adapters/sqlite/translator.h"

namespace velmora::sqlite {

/// Statements run on one link. A set that does not end with its first rows keeps them as they were:
/// - Outside a transaction, on a database with write-ahead logging, it takes the link along, which stays in the state
///   of that moment; the statements after it run on another one. SnapshotWatch takes the set off the database when the
///   write-ahead file grows behind it.
/// - Inside a transaction, and in memory, it reads on the link that all statements use; before one of them changes
///   anything, what is left of the set is copied.
/// - Where there is no write-ahead logging, a reader holds writers up: it is copied at once.
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
    std::vector<std::string> files();

    /// For result sets: writes a binary column of the row with this key (a whole number or a text) and looks at what
    /// was stored.
    void updateBinary(const Origin& origin, std::size_t column, const sql::Value& key, const sql::Bytes& content);

    std::string schemaOf(const tsql::TableName& name) override;
    std::shared_ptr<const Table> table(const tsql::TableName& name) override;

  private:
    const std::shared_ptr<Link>& link();
    void settleSets();
    std::unique_ptr<sql::RowSource> rowsOf(std::shared_ptr<CachedStatement> cached);
    struct Opening;
    Opening open(const std::shared_ptr<CachedStatement>& cached);
    std::vector<sql::Row> openingRowsOf(RowReader& reader);
    std::shared_ptr<OpenRows> keepOpen(std::unique_ptr<RowReader> reader);
    void runChange(const CachedStatement& cached);
    void runSchemaChange(const Translation& translation);
    void forget();
    bool forgetTables();
    void findDocuments(const tsql::TableName& name);
    const std::string& storedName(const std::string& schema, const tsql::TableName& name);

    Options options_;
    std::string path_;
    std::string documentsFile_;  ///< once a statement has named the documents' catalogue
    std::shared_ptr<LinkPool> pool_;
    std::shared_ptr<Link> link_;  ///< on which the statements run; none when a set has taken it along
    Translator translator_;
    std::unordered_map<std::string, std::unordered_map<std::string, std::string>> names_;  ///< schema, folded, declared
    std::unordered_map<std::string, std::shared_ptr<const Table>> tables_;
    std::vector<std::weak_ptr<OpenRows>> onLink_;  ///< sets that are read on the link of all statements
    bool inTransaction_ = false;
    SnapshotWatch watch_;
};

}  // namespace velmora::sqlite
