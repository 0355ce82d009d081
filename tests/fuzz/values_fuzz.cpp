// Any text as a statement: with its values as parameters, as the engine is given them, it does and answers what it does
// with its values in its text.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "any_statement.h"

namespace {

using namespace velmora;

/// The statement with other digits: it is of the same shape as long as no name has any.
std::string withOtherDigits(std::string statement) {
    for (char& c : statement) {
        if (c >= '0' && c <= '9') {
            c = static_cast<char>(c == '9' ? '1' : c + 1);
        }
    }
    return statement;
}

/// What a statement answers and leaves when it is run, then with other values, then as before.
std::string traceOf(sql::Connection& connection, const std::string& statement) {
    std::string trace;
    connection.beginTrans();
    for (const std::string& each : {statement, withOtherDigits(statement), statement}) {
        trace += fuzz::run(connection, each) + '\n';
    }
    trace += fuzz::run(connection, "select * from T");
    connection.rollbackTrans();
    return trace;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::unique_ptr<sql::Connection> given = fuzz::openWithOneRow();
    static const std::unique_ptr<sql::Connection> written = fuzz::openWithOneRow(false);
    const std::string statement(reinterpret_cast<const char*>(data), size);
    fuzz::expect(traceOf(*given, statement) == traceOf(*written, statement), "parameters do what literals do");
    return 0;
}
