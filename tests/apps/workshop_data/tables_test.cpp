#include "velmora/apps/workshop_data/tables.h"

#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/data/schema.h"

namespace velmora::workshop_data {
namespace {

TEST(Tables, EveryNameIsOneOfTheSchema) {
    for (const Table& table : allTables()) {
        const data::TableDefinition* schema = data::findTable(table.name);
        ASSERT_NE(schema, nullptr) << table.name;
        for (const Column& column : table.columns) {
            ASSERT_NE(data::findColumn(*schema, column.name), nullptr) << column.name;
        }
        for (const Use& use : table.uses) {
            const bool ownNumber = use.column == table.ownNumber;
            EXPECT_TRUE(ownNumber || positionOf(table, use.column) < table.columns.size());
            ASSERT_NE(data::findTable(use.table), nullptr) << use.table;
            EXPECT_NE(data::findColumn(*data::findTable(use.table), use.byColumn), nullptr) << use.byColumn;
        }
    }
}

// What is left out of a description could never be entered.
TEST(Tables, NoColumnOfTheSchemaIsMissing) {
    for (const Table& table : allTables()) {
        const data::TableDefinition* schema = data::findTable(table.name);
        EXPECT_EQ(schema->columns.size(), table.columns.size() + (table.ownNumber.empty() ? 0 : 1)) << table.name;
    }
}

TEST(Tables, KindsFitTheColumnsOfTheDatabase) {
    for (const Table& table : allTables()) {
        for (const Column& column : table.columns) {
            const auto type = data::findColumn(*data::findTable(table.name), column.name)->type;
            EXPECT_EQ(column.kind == Kind::text, type == data::ColumnType::text) << column.name;
            EXPECT_EQ(column.kind == Kind::number, type == data::ColumnType::number) << column.name;
            EXPECT_EQ(column.kind == Kind::choice, !column.choices.empty()) << column.name;
            EXPECT_EQ(column.kind == Kind::reference, column.reference != nullptr) << column.name;
        }
    }
}

TEST(Tables, CaptionsAreAllOfATablesOwnAndItsKeyIsRequired) {
    for (const Table& table : allTables()) {
        std::set<std::string_view> captions;
        for (const Column& column : table.columns) {
            EXPECT_TRUE(captions.insert(column.caption).second) << column.caption;
            EXPECT_FALSE(column.explanation.empty()) << column.caption;
            EXPECT_TRUE(!isKey(table, column) || column.required) << column.caption;
        }
    }
}

TEST(Tables, ATableStandsBehindThoseThatItNames) {
    std::set<std::string_view> before;
    for (const Table& table : allTables()) {
        for (const Column& column : table.columns) {
            EXPECT_TRUE(column.reference == nullptr || before.contains(column.reference->table)) << column.name;
        }
        before.insert(table.name);
    }
}

TEST(Tables, UsesAreAllThatTheSchemaKnowsOfReferences) {
    for (const Table& table : allTables()) {
        for (const Column& column : table.columns) {
            if (column.reference == nullptr) {
                continue;
            }
            const Table& named = *findTable(column.reference->table);
            const bool known = std::ranges::any_of(
                named.uses, [&](const Use& use) { return use.table == table.name && use.byColumn == column.name; });
            EXPECT_TRUE(known) << column.name;
        }
    }
}

}  // namespace
}  // namespace velmora::workshop_data
