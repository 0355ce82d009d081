#pragma once
// What a T-SQL statement says, before anything is known about its tables.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "velmora/adapters/tsql/types.h"

namespace velmora::tsql {

struct Expression;
struct Select;
using ExpressionPtr = std::unique_ptr<Expression>;

enum class Form {
    null,
    whole,
    decimal,
    real,
    text,
    binary,
    column,  ///< `qualifier`, `text`
    star,    ///< the argument of count(*), or an item of a list with its `qualifier`
    negate,
    arithmetic,  ///< `text` is the operator
    comparison,  ///< `text` is the operator
    both,        ///< AND over all operands
    either,      ///< OR over all operands
    no,          ///< NOT
    isNull,
    between,
    inList,  ///< the operand, then the list
    inSelect,
    exists,
    like,      ///< the operand, the pattern, and perhaps the escape character
    choice,    ///< CASE: pairs of condition and result, and perhaps the rest; `simple` when compared with a first
    function,  ///< `text` is its name in capitals
    cast,      ///< to `type`
    convert,   ///< to `type`, perhaps under a style
    scalar,    ///< a sub-select as a value
};

inline constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

struct Expression {
    Form form = Form::null;
    std::string text;
    std::string qualifier;
    std::size_t place = nowhere;  ///< of a literal or NULL: where it begins in the statement
    bool negated = false;         ///< IS NOT NULL, NOT BETWEEN, NOT IN, NOT LIKE
    bool simple = false;          ///< CASE value WHEN …
    bool hasElse = false;
    bool distinct = false;  ///< count(DISTINCT x)
    std::vector<ExpressionPtr> operands;
    std::unique_ptr<Select> select;
    Type type;
    std::size_t height = 1;

    /// True for a condition, which T-SQL does not accept where it wants a value.
    bool isCondition() const { return form >= Form::comparison && form <= Form::like; }
};

struct TableName {
    std::string catalog{};  ///< empty for the session's own
    std::string schema{};   ///< empty for dbo
    std::string name{};
};

struct Item {
    ExpressionPtr value;
    std::string alias;
};

enum class Join { first, comma, inner, left, right, full, cross };

struct FromItem {
    Join join = Join::first;
    TableName table;  ///< when there is no sub-select
    std::unique_ptr<Select> select;
    std::string alias;
    ExpressionPtr on;
};

struct OrderItem {
    ExpressionPtr value;
    bool descending = false;
};

struct Select {
    bool distinct = false;
    ExpressionPtr top;
    std::vector<Item> items;
    std::vector<FromItem> from;
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
    ExpressionPtr having;
    std::vector<OrderItem> orderBy;
};

struct Insert {
    TableName table;
    std::vector<std::string> columns;  ///< empty: all of them
    std::vector<std::vector<ExpressionPtr>> rows;
    std::unique_ptr<Select> select;
};

struct Assignment {
    std::string column;
    ExpressionPtr value;
};

struct Update {
    TableName table;
    std::vector<Assignment> assignments;
    ExpressionPtr where;
};

struct Delete {
    TableName table;
    ExpressionPtr where;
};

struct ColumnDefinition {
    std::string name;
    Type type;
    bool notNull = false;
    bool identity = false;
    bool primaryKey = false;
    bool unique = false;
    bool withValues = false;  ///< existing rows take the default
    std::size_t seed = 1;
    ExpressionPtr defaultValue;
};

struct KeyDefinition {
    std::string name{};
    bool primary = false;
    std::vector<std::string> columns{};
};

struct CreateTable {
    TableName table;
    std::vector<ColumnDefinition> columns;
    std::vector<KeyDefinition> keys;
};

struct AddColumns {
    TableName table;
    std::vector<ColumnDefinition> columns;
};

struct AddKey {
    TableName table;
    KeyDefinition key;
};

struct DropColumn {
    TableName table;
    std::string column;
};

struct DropTable {
    TableName table;
};

struct CreateIndex {
    std::string name;
    bool unique = false;
    TableName table;
    std::vector<OrderItem> columns;
};

struct DropIndex {
    std::string name;
    TableName table;
};

/// SET IDENTITY_INSERT: nothing to do here, the engine takes a given key at any time.
struct AllowGivenKeys {
    TableName table;
};

using StatementTree = std::variant<std::unique_ptr<Select>, Insert, Update, Delete, CreateTable, AddColumns, AddKey,
                                   DropColumn, DropTable, CreateIndex, DropIndex, AllowGivenKeys>;

}  // namespace velmora::tsql
