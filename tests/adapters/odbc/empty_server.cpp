// Removes every table of the server's database that VELMORA_TEST_DSN names, and of its documents' catalogue: tests play
// each story on an empty one.

#include <iostream>

#include "velmora/platform/sql/db_error.h"

#include "server_under_test.h"

int main() {
    using namespace velmora;
    const auto server = test::testServer();
    if (!server) {
        std::cerr << "VELMORA_TEST_DSN names no server\n";
        return 1;
    }
    try {
        test::dropAllTables(*server);
    } catch (const sql::DbError& error) {
        std::cerr << error.description() << '\n';
        return 1;
    }
    return 0;
}
