#include "velmora/data/indexes.h"

#include "velmora/data/schema.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::data {

namespace {

std::string statementOf(const IndexDefinition& index) {
    return "CREATE INDEX [" + std::string(index.name) + "] ON [dbo].[" + std::string(index.table) + "] (" +
           std::string(index.columns) + ")";
}

}  // namespace

std::vector<std::string> indexStatements() {
    std::vector<std::string> statements;
    for (const IndexDefinition& index : indexes()) {
        statements.push_back(statementOf(index));
    }
    return statements;
}

// The dialect cannot list existing indexes: each CREATE is tried, and a refusal of the statement itself (the name
// exists, an older table lacks the column) leaves the database as it was, without locking it.
void addMissingIndexes(sql::Connection& connection, const KnownIndexes& isKnown) {
    for (const IndexDefinition& index : indexes()) {
        if (isKnown && isKnown(index.table, index.name)) {
            continue;
        }
        try {
            connection.execute(statementOf(index));
        } catch (const sql::DbError& refusal) {
            if (refusal.number() != sql::provider::syntax && refusal.number() != sql::provider::missingTable) {
                throw;
            }
        }
    }
}

}  // namespace velmora::data
