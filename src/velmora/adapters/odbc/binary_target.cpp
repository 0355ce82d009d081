#include "velmora/adapters/odbc/binary_target.h"

#include <algorithm>
#include <array>

#include "velmora/adapters/odbc/utf16.h"
#include "velmora/adapters/tsql/parser.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::odbc {

namespace {

/// Position of COLUMN_NAME in the answer of SQLPrimaryKeys.
constexpr SQLUSMALLINT keyColumnName = 4;

/// The columns stand in the set under their own names.
bool isPlain(const tsql::Item& item) {
    return item.value->form == tsql::Form::star || (item.value->form == tsql::Form::column && item.alias.empty());
}

/// The one table of a plain select; none for any other statement.
std::optional<tsql::TableName> tableOf(std::string_view statement) {
    tsql::StatementTree tree;
    try {
        tree = tsql::parse(statement);
    } catch (const sql::DbError&) {
        return std::nullopt;
    }
    const auto* parsed = std::get_if<std::unique_ptr<tsql::Select>>(&tree);
    if (parsed == nullptr) {
        return std::nullopt;
    }
    const tsql::Select& select = **parsed;
    const bool plain = !select.distinct && select.from.size() == 1 && !select.from.front().select &&
                       select.groupBy.empty() && !select.having && std::ranges::all_of(select.items, isPlain);
    return plain ? std::optional(select.from.front().table) : std::nullopt;
}

std::string inBrackets(std::string_view name) {
    return "[" + runtime::Replace(name, "]", "]]") + "]";
}

std::string written(const tsql::TableName& table) {
    std::string name;
    if (!table.catalog.empty()) {
        name = inBrackets(table.catalog) + "." + (table.schema.empty() ? "" : inBrackets(table.schema)) + ".";
    } else if (!table.schema.empty()) {
        name = inBrackets(table.schema) + ".";
    }
    return name + inBrackets(table.name);
}

/// The columns of the table's key; empty when it has none or the server does not tell.
std::vector<std::string> keyOf(SQLHANDLE connection, const tsql::TableName& table) {
    const StatementHandle handle(connection);
    std::u16string catalog = toUtf16(table.catalog);
    std::u16string schema = toUtf16(table.schema);
    std::u16string name = toUtf16(table.name);
    const auto units = [](std::u16string& text) {
        return text.empty() ? nullptr : reinterpret_cast<SQLWCHAR*>(text.data());
    };
    const auto length = [](const std::u16string& text) { return static_cast<SQLSMALLINT>(text.size()); };
    if (!SQL_SUCCEEDED(SQLPrimaryKeysW(handle.get(), units(catalog), length(catalog), units(schema), length(schema),
                                       units(name), length(name)))) {
        return {};
    }
    std::vector<std::string> columns;
    while (SQL_SUCCEEDED(SQLFetch(handle.get()))) {
        std::array<char16_t, 256> column{};
        SQLLEN bytes = 0;
        SQLGetData(handle.get(), keyColumnName, SQL_C_WCHAR, column.data(), sizeof column, &bytes);
        columns.push_back(toUtf8(std::u16string(column.data())));
    }
    return columns;
}

std::optional<std::size_t> positionOf(const std::vector<CursorColumn>& columns, std::string_view name) {
    const auto found = std::ranges::find_if(
        columns, [&](const CursorColumn& each) { return runtime::UCase(each.name) == runtime::UCase(name); });
    return found == columns.end() ? std::nullopt : std::optional<std::size_t>(found - columns.begin());
}

/// The column of the statement's set that the server numbers. Drivers need not say it of a table of another catalogue;
/// then the server is asked, if it is one that describes statements.
std::optional<std::size_t> numberedColumn(Link& link, std::string_view statement,
                                          const std::vector<CursorColumn>& columns) {
    const auto told = std::ranges::find(columns, true, &CursorColumn::identity);
    if (told != columns.end()) {
        return told - columns.begin();
    }
    try {
        Cursor answer =
            link.send("EXEC sp_describe_first_result_set N'" + runtime::Replace(statement, "'", "''") + "'");
        const auto name = positionOf(answer.columns(), "name");
        const auto isNumbered = positionOf(answer.columns(), "is_identity_column");
        std::optional<std::size_t> numbered;
        for (sql::Row row; answer.next(row);) {
            if (name && isNumbered && row[*isNumbered].toBool()) {
                numbered = positionOf(columns, row[*name].toText());
            }
        }
        return numbered;
    } catch (const sql::DbError&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<BinaryTarget> binaryTargetOf(Link& link, std::string_view statement,
                                           const std::vector<CursorColumn>& columns, std::size_t column) {
    const auto table = tableOf(statement);
    if (!table) {
        return std::nullopt;
    }
    const std::vector<std::string> key = keyOf(link.handle(), *table);
    const auto keyColumn = key.empty() ? numberedColumn(link, statement, columns)
                                       : positionOf(columns, key.size() == 1 ? key.front() : std::string_view());
    if (!keyColumn) {
        return std::nullopt;
    }
    return BinaryTarget{.table = written(*table),
                        .column = inBrackets(columns[column].name),
                        .key = inBrackets(columns[*keyColumn].name),
                        .keyColumn = *keyColumn};
}

}  // namespace velmora::odbc
