// Any text as a statement. It is run or refused with an error of the data provider; what the dialect lets through, the
// engine can read; and one statement is all that ever runs.

#include <cstddef>
#include <cstdint>

#include "any_statement.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    static const std::unique_ptr<sql::Connection> connection = fuzz::openWithOneRow();
    connection->beginTrans();
    fuzz::run(*connection, {reinterpret_cast<const char*>(data), size});
    connection->rollbackTrans();
    fuzz::expect(connection->execute("select a from Guard").hasRows(), "what was there is there again");
    return 0;
}
