#pragma once

#include <memory>

#include "velmora/adapters/sqlite/emitters/catalog.h"
#include "velmora/adapters/sqlite/emitters/storage.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::test {

/// One table for trying the dialect without a database.
class OneTable final : public sqlite::Catalog {
  public:
    std::string schemaOf(const tsql::TableName&) override { return "main"; }
    std::shared_ptr<const sqlite::Table> table(const tsql::TableName& name) override {
        if (tsql::foldName(name.name) != "T") {
            tsql::throwMissingTable(name.name);
        }
        auto table = std::make_shared<sqlite::Table>();
        table->schema = "main";
        table->name = "T";
        const auto add = [&](const char* column, const char* type) {
            table->columns.push_back({.name = column, .type = sqlite::declaredType(type)});
        };
        add("i", "int");
        add("f", "float");
        add("n", "numeric(18, 0)");
        add("m", "numeric(10, 2)");
        add("t", "nvarchar(5)");
        add("d", "datetime");
        add("b", "bit");
        add("x", "varbinary(max)");
        return table;
    }
};

}  // namespace velmora::test
