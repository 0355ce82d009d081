#include "velmora/adapters/tsql/refusals.h"

#include <utility>

#include "velmora/platform/sql/db_error.h"

namespace velmora::tsql {

namespace {

namespace provider = sql::provider;

[[noreturn]] void refuse(long number, std::string description, std::string_view state) {
    throw sql::DbError(number, std::move(description), {.sqlState = std::string(state)});
}

}  // namespace

void throwSyntax(std::string description) {
    refuse(provider::syntax, std::move(description) + ".", "42000");
}

void throwMissingTable(std::string_view table) {
    refuse(provider::missingTable, "La tabla '" + std::string(table) + "' no existe.", "42S02");
}

void throwConversion(std::string description) {
    refuse(provider::conversion, std::move(description) + ".", "22018");
}

void throwTruncation(std::string_view column, std::size_t limit) {
    refuse(provider::truncation,
           "El texto no cabe en la columna '" + std::string(column) + "', que admite " + std::to_string(limit) +
               " caracteres.",
           "22001");
}

void throwConstraint(std::string description) {
    refuse(provider::constraint, std::move(description) + ".", "23000");
}

}  // namespace velmora::tsql
