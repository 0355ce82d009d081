#pragma once
// What is known of the tables: their columns and T-SQL types.

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/tsql/syntax_tree.h"

namespace velmora::sqlite {

struct TableColumn {
    std::string name;  ///< as declared
    tsql::Type type{};
    bool identity = false;
    bool key = false;  ///< by itself the table's primary key
    bool notNull = false;
};

struct Table {
    std::string schema;  ///< the engine's: main, or the attached documents
    std::string name;    ///< as declared
    std::vector<TableColumn> columns;
    /// The columns by which the rows come when a statement asks for no order; empty for a view.
    std::vector<std::string> rowOrder{};

    const TableColumn* column(std::string_view name) const;
};

/// The table that a definition describes, for later parts of the same statement. Errors: provider::syntax when two
/// columns have one name.
Table definedTable(std::string schema, const tsql::CreateTable& create);

/// Finds tables by name. Translation depends on this interface only, so it can be tested without a database.
class Catalog {
  public:
    virtual ~Catalog() = default;

    /// The engine's schema for a catalogue and a schema of the statement. Errors: provider::missingTable.
    virtual std::string schemaOf(const tsql::TableName& name) = 0;
    /// Errors: provider::missingTable.
    virtual std::shared_ptr<const Table> table(const tsql::TableName& name) = 0;
};

}  // namespace velmora::sqlite
