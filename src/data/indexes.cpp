#include "velmora/data/indexes.h"

#include <array>

#include "velmora/platform/sql/db_error.h"

namespace velmora::data {

namespace {

// Equality first, then the order in which the list is shown.
constexpr auto all = std::to_array<IndexDefinition>({
    {.name = "IX_DPI_Dentado", .table = "DPI", .columns = "DPI_Tipo, DPI_Z, DPI_Pas, DPI_AC, DPI_Rodillo, DPI_Fecha"},
    {.name = "IX_DPI_Tipo", .table = "DPI", .columns = "DPI_Tipo, DPI_Fecha"},
    {.name = "IX_DPI_Fecha", .table = "DPI", .columns = "DPI_Fecha"},
    {.name = "IX_DPI_FAcepta", .table = "DPI", .columns = "DPI_FAcepta, DPI_Fecha"},
    {.name = "IX_DPI_Cliente", .table = "DPI", .columns = "DPI_CodCliente, DPI_Fecha"},
    {.name = "IX_DPI_RefCli", .table = "DPI", .columns = "DPI_RefCli"},
    {.name = "IX_MoDpi_Dpi", .table = "MoDpi", .columns = "MoDpi_Dpi"},
    {.name = "IX_OPE_Maquina", .table = "OPE", .columns = "OPE_MAD"},
    {.name = "IX_OBM_Maquina", .table = "OBM", .columns = "OBM_MAQ"},
});

}  // namespace

std::span<const IndexDefinition> indexes() {
    return all;
}

std::vector<std::string> indexStatements() {
    std::vector<std::string> statements;
    for (const IndexDefinition& index : all) {
        statements.push_back("CREATE INDEX [" + std::string(index.name) + "] ON [dbo].[" + std::string(index.table) +
                             "] (" + std::string(index.columns) + ")");
    }
    return statements;
}

// The dialect has no list of indexes to ask: each is tried, and a refusal of the statement itself (the name is taken,
// an older table lacks the column) leaves the database as it was, without having locked it.
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
