#include "many_proposals.h"

#include <charconv>
#include <cstdlib>
#include <string>
#include <string_view>

#include "velmora/data/schema.h"

namespace velmora::bench {

namespace {

/// Every column of a proposal but its key.
std::string columns() {
    std::string names;
    for (const data::TableDefinition& table : data::tables()) {
        if (table.name == "DPI") {
            for (const data::ColumnDefinition& column : table.columns) {
                if (column.name != "DPI_Id") {
                    names += (names.empty() ? "" : ",") + std::string(column.name);
                }
            }
        }
    }
    return names;
}

}  // namespace

std::int64_t numberFrom(const char* variable, std::int64_t unlessTold) {
    std::int64_t number = unlessTold;
    if (const char* text = std::getenv(variable)) {
        const std::string_view digits(text);
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    }
    return number;
}

std::int64_t wantedProposals() {
    return numberFrom("VELMORA_BENCH_PROPOSALS", 1'000'000);
}

std::int64_t wantedSaves() {
    return numberFrom("VELMORA_BENCH_SAVES", 10'000);
}

void multiplyProposals(sql::Connection& connection) {
    const std::string names = columns();
    std::string copied = names;
    const auto count = [&] { return connection.execute("select count(*) as n from DPI")[0].toDouble(); };
    for (int turn = 0; count() < static_cast<double>(wantedProposals()); ++turn) {
        if (turn >= 6) {
            copied = names;
            copied.replace(copied.find("DPI_Z"), 5, "DPI_Z + " + std::to_string(1000 << (turn - 6)));
        }
        connection.execute("INSERT INTO DPI (" + names + ") SELECT " + copied + " FROM DPI");
    }
}

}  // namespace velmora::bench
