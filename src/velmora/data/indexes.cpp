#include "velmora/data/indexes.h"

#include "velmora/data/schema.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::data {

std::vector<std::string> indexStatements() {
    std::vector<std::string> statements;
    for (const IndexDefinition& index : indexes()) {
        statements.push_back("CREATE INDEX [" + std::string(index.name) + "] ON [dbo].[" + std::string(index.table) +
                             "] (" + std::string(index.columns) + ")");
    }
    return statements;
}

// The dialect cannot list existing indexes: each CREATE is tried, and a refusal of the statement itself (the name
// exists, an older table lacks the column) leaves the database as it was, without locking it.
void addMissingIndexes(sql::Connection& connection) {
    for (const std::string& statement : indexStatements()) {
        try {
            connection.execute(statement);
        } catch (const sql::DbError& refusal) {
            if (refusal.number() != sql::provider::syntax && refusal.number() != sql::provider::missingTable) {
                throw;
            }
        }
    }
}

}  // namespace velmora::data
