// Reads names of database files, one a line, and answers what the engine finds wrong in each: "ok", or the first fault.

#include <exception>
#include <iostream>
#include <string>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/link.h"
#include "velmora/adapters/sqlite/statement.h"
#include "velmora/platform/sql/db_error.h"

namespace {

std::string faultOf(const std::string& file) {
    try {
        velmora::sqlite::Link link(file, {});
        const auto check = link.prepare("PRAGMA integrity_check(1)");
        return check->step() ? check->value(0, velmora::tsql::Kind::text).toText() : "no answer";
    } catch (const velmora::sql::DbError& error) {
        return error.description();
    }
}

}  // namespace

int main() {
    for (std::string file; std::getline(std::cin, file);) {
        std::cout << faultOf(file) << std::endl;
    }
    return 0;
}
