#pragma once
// The tables and sub-selects that a statement reads, and how their columns are referred to.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/sqlite/emitters/catalog.h"
#include "velmora/adapters/sqlite/emitters/emitted.h"
#include "velmora/adapters/tsql/syntax_tree.h"

namespace velmora::sqlite {

struct Output {
    std::string name;
    tsql::Type type;
};

/// One table or sub-select of a FROM.
struct Source {
    std::string alias;
    std::vector<Output> columns{};
    bool stored = false;
    std::vector<std::string> rowOrder{};  ///< of a table: Table::rowOrder
};

struct Scope {
    std::vector<Source> sources;
    const Scope* outer = nullptr;
};

Source tableSource(const Table& table, std::string alias);

Emitted reference(const Source& source, const Output& column);

/// The column that `expression` means, in the innermost scope that has one. Errors: provider::syntax when there is
/// none or more than one.
Emitted columnMeant(const tsql::Expression& expression, const Scope& scope);

/// Always throws DbError (provider::syntax) with SQLSTATE 42S22.
[[noreturn]] void refuseColumn(std::string_view name);

}  // namespace velmora::sqlite
