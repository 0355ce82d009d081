#include "named_differences.h"

#include <array>

#include "velmora/adapters/odbc/database.h"

namespace velmora::test {

namespace {

constexpr std::string_view contract = "ConnectionContract";

constexpr std::array ofEveryServer{
    NamedDifference{contract, "AnEmptyTextIsNoNumber",
                    "the server takes '' for 0; VELMORA refuses it before it builds a statement (CDbl)"},
};

/// Of a server that understands T-SQL and is not the original.
constexpr std::array ofOtherServers{
    NamedDifference{contract, "TextLengthCountsUtf16Units",
                    "the server refuses the text, but with a number that says nothing of its length"},
    NamedDifference{contract, "AFloatAsTextKeepsSixDigits", "the server gives all digits of a float as text"},
    NamedDifference{contract, "ColumnsAnswerInAnyCaseAndByPosition",
                    "the server finds a name in any case only where it has letters of ASCII"},
};

/// By a conversion in which the others are known to differ.
bool isOriginal(sql::Connection& connection) {
    return connection.execute("select cast(cast(1000000 as float) as nvarchar)")[std::size_t{0}] ==
           sql::Value("1e+006");
}

}  // namespace

std::vector<NamedDifference> namedDifferences(const std::string& server) {
    std::vector<NamedDifference> differences(ofEveryServer.begin(), ofEveryServer.end());
    if (!isOriginal(*odbc::openDatabase(server))) {
        differences.insert(differences.end(), ofOtherServers.begin(), ofOtherServers.end());
    }
    return differences;
}

}  // namespace velmora::test
