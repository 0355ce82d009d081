#pragma once
// Syntax trees to the engine's SQL, with the type of every expression.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/sqlite/catalog.h"
#include "velmora/adapters/sqlite/dialect.h"
#include "velmora/adapters/sqlite/emitted.h"
#include "velmora/adapters/sqlite/sources.h"
#include "velmora/adapters/sqlite/syntax_tree.h"

namespace velmora::sqlite {

struct EmittedSelect {
    std::string sql;
    std::vector<Output> outputs;
    std::size_t orderAt = std::string::npos;  ///< where an ordering begins that does not decide which rows there are
};

class Emitter {
  public:
    explicit Emitter(Catalog& catalog) : catalog_(catalog) {}

    Emitted value(const Expression& expression, const Scope& scope);
    std::string condition(const Expression& expression, const Scope& scope);

    /// `named` gives every column its name, as a sub-select in FROM needs. With `targets` the items are converted to
    /// what those columns take.
    EmittedSelect select(const Select& select, const Scope* outer, bool named = false,
                         const std::vector<const TableColumn*>* targets = nullptr);

    Translation statement(const StatementTree& tree);

  private:
    std::optional<Origin> origin(const Select& select);
    Emitted arithmetic(const Expression& expression, const Scope& scope);
    Emitted negation(const Expression& expression, const Scope& scope);
    Emitted choice(const Expression& expression, const Scope& scope);
    Emitted function(const Expression& expression, const Scope& scope);
    Emitted conversion(const Expression& expression, const Scope& scope);
    Emitted scalar(const Expression& expression, const Scope& scope);

    std::string comparison(const Emitted& left, std::string_view operation, const Emitted& right) const;
    std::string between(const Expression& expression, const Scope& scope);
    std::string inList(const Expression& expression, const Scope& scope);
    std::string inSelect(const Expression& expression, const Scope& scope);
    std::string like(const Expression& expression, const Scope& scope);

    std::string fromClause(const std::vector<FromItem>& items, Scope& scope);
    std::vector<Output> addItems(const Select& select, const Scope& scope, bool named,
                                 const std::vector<const TableColumn*>* targets, std::string& sql);
    std::string orderBy(const Select& select, const Scope& scope, const std::vector<Output>& outputs);

    Translation insert(const Insert& insert);
    Translation update(const Update& update);
    Translation remove(const Delete& remove);
    Translation createTable(const CreateTable& create);
    Translation addColumns(const AddColumns& add);
    Translation addKey(const AddKey& add);
    Translation dropColumn(const DropColumn& drop);
    Translation dropTable(const DropTable& drop);
    Translation createIndex(const CreateIndex& create);
    Translation dropIndex(const DropIndex& drop);
    Translation allowGivenKeys(const AllowGivenKeys& allow);

    std::string columnDefinition(const ColumnDefinition& definition, bool key);

    Catalog& catalog_;
};

}  // namespace velmora::sqlite
