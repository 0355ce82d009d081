#pragma once
// Syntax trees to the engine's SQL, with the type of every expression.

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velmora/adapters/sqlite/emitters/catalog.h"
#include "velmora/adapters/sqlite/emitters/emitted.h"
#include "velmora/adapters/sqlite/emitters/parameters.h"
#include "velmora/adapters/sqlite/emitters/sources.h"
#include "velmora/adapters/sqlite/emitters/translation.h"
#include "velmora/adapters/tsql/syntax_tree.h"

namespace velmora::sqlite {

struct EmittedSelect {
    std::string sql;
    std::vector<Output> outputs;
    std::string walkSql{};                    ///< Translation::walkStatement
    std::string keysSql{};                    ///< Translation::keysStatement
    std::size_t orderAt = std::string::npos;  ///< where an ordering begins that does not decide which rows there are
};

class Emitter {
  public:
    explicit Emitter(Catalog& catalog, Parameters parameters = {})
        : catalog_(catalog), parameters_(std::move(parameters)) {}

    Emitted value(const tsql::Expression& expression, const Scope& scope);
    std::string condition(const tsql::Expression& expression, const Scope& scope);

    /// `named` gives every column its name, as a sub-select in FROM needs. With `targets` the items are converted to
    /// what those columns take.
    EmittedSelect select(const tsql::Select& select, const Scope* outer, bool named = false,
                         const std::vector<const TableColumn*>* targets = nullptr);

    Translation statement(const tsql::StatementTree& tree);

  private:
    std::optional<Origin> origin(const tsql::Select& select);
    Emitted arithmetic(const tsql::Expression& expression, const Scope& scope);
    Emitted negation(const tsql::Expression& expression, const Scope& scope);
    Emitted choice(const tsql::Expression& expression, const Scope& scope);
    Emitted function(const tsql::Expression& expression, const Scope& scope);
    Emitted conversion(const tsql::Expression& expression, const Scope& scope);
    Emitted scalar(const tsql::Expression& expression, const Scope& scope);

    std::string comparison(const tsql::Expression& expression, const Scope& scope);
    std::string comparison(const Emitted& left, std::string_view operation, const Emitted& right) const;
    std::string between(const tsql::Expression& expression, const Scope& scope);
    std::string inList(const tsql::Expression& expression, const Scope& scope);
    std::string inSelect(const tsql::Expression& expression, const Scope& scope);
    std::string like(const tsql::Expression& expression, const Scope& scope);

    std::string fromClause(const std::vector<tsql::FromItem>& items, Scope& scope);
    std::vector<Output> addItems(const tsql::Select& select, const Scope& scope, bool named,
                                 const std::vector<const TableColumn*>* targets, std::string& sql);
    std::string whereOf(const tsql::Select& select, const Scope& scope, bool isWholeStatement);
    std::string orderBy(const tsql::Select& select, const Scope& scope, const std::vector<Output>& outputs);

    Translation insert(const tsql::Insert& insert);
    Translation update(const tsql::Update& update);
    Translation remove(const tsql::Delete& remove);
    Translation createTable(const tsql::CreateTable& create);
    Translation addColumns(const tsql::AddColumns& add);
    Translation addKey(const tsql::AddKey& add);
    Translation dropColumn(const tsql::DropColumn& drop);
    Translation dropTable(const tsql::DropTable& drop);
    Translation createIndex(const tsql::CreateIndex& create);
    Translation dropIndex(const tsql::DropIndex& drop);
    Translation allowGivenKeys(const tsql::AllowGivenKeys& allow);

    std::string columnDefinition(const tsql::ColumnDefinition& definition, bool key);

    /// A value as a column takes it.
    std::string stored(const tsql::Expression& expression, const Emitted& given, const TableColumn& column);

    Catalog& catalog_;
    Parameters parameters_;
};

}  // namespace velmora::sqlite
