#pragma once
// The dialect layer: a T-SQL statement to what the embedded engine runs.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/sqlite/emitters/catalog.h"
#include "velmora/adapters/sqlite/emitters/parameters.h"
#include "velmora/adapters/tsql/types.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::sqlite {

enum class Answer { rows, changes, schema };

/// From where the rows of a select come, when they can be found again in their table.
struct Origin {
    std::string table;                 ///< quoted, with its schema
    std::vector<std::string> columns;  ///< quoted, by position in the rows; empty for what is worked out
    std::size_t key = 0;               ///< position of the table's key in the rows
};

/// Behind a statement whose rows are read from a 0-based position on, which is its last parameter.
inline constexpr const char* laterRows = " LIMIT -1 OFFSET ?";

struct Translation {
    Answer answer = Answer::rows;
    /// In the engine's SQL, to run one after the other, all or none. Several only for changes of the schema.
    std::vector<std::string> steps{};
    std::vector<sql::Column> columns{};  ///< of the rows
    std::vector<tsql::Type> types{};     ///< of the columns
    std::string countStatement{};        ///< answers how many rows there are, without putting them in order
    std::string laterRowsStatement{};    ///< the rows from a 0-based position on; empty when it has a TOP
    /// The same rows, in an order that agrees with ORDER BY, read through an index of that order instead of one of the
    /// condition; empty for what is not read from one table.
    std::string walkStatement{};
    /// The same rows in the same order: their keys alone are put in order, and each row is read by its key. Empty where
    /// walkStatement is, and for a table without a key.
    std::string keysStatement{};
    std::optional<Origin> origin{};       ///< of rows that can be written through the set
    std::vector<Parameter> parameters{};  ///< of the first step, and of the statements above
    std::vector<tsql::Literal> fixed{};   ///< the literals of its shape that are no parameters
};

/// Errors: DbError, provider::syntax, missingTable, conversion, truncation, constraint.
Translation translate(std::string_view statement, Catalog& catalog);

/// The same with parameters in the place of those literals of its shape that are stored or compared as they stand.
Translation translate(std::string_view statement, Catalog& catalog, const tsql::Shape& shape);

}  // namespace velmora::sqlite
